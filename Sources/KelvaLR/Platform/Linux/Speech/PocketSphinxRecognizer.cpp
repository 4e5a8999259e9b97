#include "Platform/Linux/Speech/PocketSphinxRecognizer.h"

#include "Platform/Linux/Speech/RecognitionWorker.h"
#include "Support/PcmConverter.h"
#include "Support/Posted.h"

#include <QMetaObject>

namespace KelvaLR {

namespace {

/// What waits to be decoded, at most; the rest of an utterance that long would not be understood anyway.
constexpr qsizetype longestBacklog = qsizetype{30} * UtteranceGate::sampleRate * 2;

/// The audio thread's end: turns blocks into what the worker takes. The worker outlives it.
class Feed final : public SpeechRecognition
{
public:
    Feed(RecognitionWorker &worker, SpeechRecognizer::ResultHandler onResult)
        : m_worker(worker)
        , m_channel(std::make_shared<RecognitionChannel>(std::move(onResult)))
    {
    }

    ~Feed() override { m_channel->close(); }

    Q_DISABLE_COPY_MOVE(Feed)

    void append(QByteArrayView samples, qsizetype frames, const AudioFormat &format) override
    {
        if (!m_converter || m_format != format) {
            m_format = format;
            m_converter = PcmConverter::make(format, UtteranceGate::sampleRate);
        }
        if (!m_converter) {
            return;
        }
        QByteArray pcm = m_converter->convert(samples, frames);
        if (m_channel->waiting.load() > longestBacklog) {
            return;
        }
        m_channel->waiting += pcm.size();
        QMetaObject::invokeMethod(&m_worker,
                                  Posted([worker = &m_worker, channel = m_channel, pcm = std::move(pcm)] {
                                      worker->take(channel, pcm);
                                  }),
                                  Qt::QueuedConnection);
    }

    [[nodiscard]] const std::shared_ptr<RecognitionChannel> &channel() const { return m_channel; }

private:
    RecognitionWorker &m_worker;
    std::shared_ptr<RecognitionChannel> m_channel;
    AudioFormat m_format;
    std::optional<PcmConverter> m_converter;
};

} // namespace

PocketSphinxRecognizer::PocketSphinxRecognizer(SpeechModelFiles files)
    : m_files(std::move(files))
    , m_worker(std::make_unique<RecognitionWorker>(m_files))
{
    m_thread.setObjectName(QStringLiteral("speech"));
    m_worker->moveToThread(&m_thread);
}

PocketSphinxRecognizer::~PocketSphinxRecognizer()
{
    m_thread.quit();
    m_thread.wait(); // for one decoding at most, or the loading of the models: a second or two
}

QCoro::Task<bool> PocketSphinxRecognizer::requestAccess()
{
    co_return true;
}

std::unique_ptr<SpeechRecognition> PocketSphinxRecognizer::recognize(const SpeechHints &hints,
                                                                     ResultHandler onResult)
{
    if (!m_files.exist()) {
        return nullptr;
    }
    if (!m_thread.isRunning()) {
        m_thread.start(QThread::LowPriority);
    }
    auto feed = std::make_unique<Feed>(*m_worker, std::move(onResult));
    QMetaObject::invokeMethod(m_worker.get(),
                              Posted([worker = m_worker.get(), channel = feed->channel(),
                                      names = hints.presetNames] { worker->begin(channel, names); }),
                              Qt::QueuedConnection);
    return feed;
}

} // namespace KelvaLR
