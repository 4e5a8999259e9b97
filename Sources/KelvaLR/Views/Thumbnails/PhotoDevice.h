#pragma once

#include <QDeadlineTimer>
#include <QIODevice>

namespace KelvaLR {

/// What a decoder reads a photo through: it runs dry when the time is up, so that no decoder goes on for ever
/// on a broken file or a slow drive, and it knows whether the decoder wanted more than there was. Any one
/// thread.
class PhotoDevice final : public QIODevice
{
public:
    /// The source is open for reading, random-access, and outlives this.
    PhotoDevice(QIODevice &source, QDeadlineTimer deadline);
    ~PhotoDevice() override;

    /// Whether something was read at the end or after the deadline: the photo was cut short.
    [[nodiscard]] bool ranDry() const { return m_ranDry; }

    [[nodiscard]] qint64 size() const override;
    bool seek(qint64 position) override;

protected:
    qint64 readData(char *data, qint64 maximumSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    QIODevice &m_source;
    QDeadlineTimer m_deadline;
    bool m_ranDry = false;
};

} // namespace KelvaLR
