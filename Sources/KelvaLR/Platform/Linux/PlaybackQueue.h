#pragma once

#include <QByteArray>
#include <QIODevice>

#include <deque>

namespace KelvaLR {

/// What a speaker reads: the queued samples one after the other, then silence without end. A device that
/// never runs dry has no gap to close when more comes, and plays also what is shorter than its buffer.
class PlaybackQueue final : public QIODevice
{
public:
    /// @param silence the byte of which silence consists
    explicit PlaybackQueue(char silence);

    void append(QByteArray samples);
    void clear();

    /// How many bytes of silence have been read since the last sample.
    [[nodiscard]] qint64 silenceRead() const { return m_silenceRead; }

    /// How many bytes have been read since its creation, silence and all.
    [[nodiscard]] qint64 totalRead() const { return m_totalRead; }

    bool isSequential() const override { return true; }

    /// Qt asks on a thread of the sound system, when the speaker ran dry.
    bool atEnd() const override { return false; }

protected:
    qint64 readData(char *target, qint64 capacity) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    char m_silence;
    std::deque<QByteArray> m_queue;
    qsizetype m_taken = 0; ///< bytes of the first one
    qint64 m_silenceRead = 0;
    qint64 m_totalRead = 0;
};

} // namespace KelvaLR
