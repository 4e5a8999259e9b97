// lightroom_soak [MINUTES] [SEED]: mixed requests, one after the other, from a whole KelvaLR without a window
// to stand-ins that come and go (UnsteadyLightroom). Prints how often each kind of request was answered,
// whether what was said to be done is in the sidecars, what is left in the reply folder, and the memory; ends
// with 1 when a request stayed without a sentence, a success was none, a reply was left, or the memory grew.
// Nothing else may use the bridge's port meanwhile.

#include "ResidentMemory.h"
#include "UnsteadyLightroom.h"

#include "App/KelvaLRApp.h"
#include "App/PromptSession.h"
#include "Support/WaitForTask.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <optional>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::chrono::minutes settlingTime{10}; ///< in which memory may still grow
constexpr double growthAllowed = 1.1;            ///< the pieces of a heap are not the same size every minute
constexpr qint64 requestsOfASession = 100;

/// The requests but for the one whose effect is looked up. %1 is the folder of photos.
const QStringList &mixedRequests()
{
    static const QStringList requests{
        u"increase contrast by 1"_s,
        u"set temperature to 5600"_s,
        u"rate it 3 stars in lightroom"_s,
        u"flag as pick in lightroom"_s,
        u"reject in lightroom"_s,
        u"next photo in lightroom"_s,
        u"previous photo in lightroom"_s,
        u"what photo is selected in lightroom"_s,
        u"apply preset soft matte in lightroom"_s,
        u"apply preset \u201cno such one \U0001F4F7\u201d in lightroom"_s,
        u"test lightroom connection"_s,
        u"import photos from folder %1"_s,
        u"rate all imported photos 2 stars"_s,
        u"press d in lightroom"_s,
        u"tell me a story"_s,
    };
    return requests;
}

struct Tally
{
    qint64 requests = 0;
    qint64 silent = 0;        ///< without a sentence
    qint64 untrue = 0;        ///< said to be done, but not in a sidecar
    qint64 looked = 0;        ///< said to be done, and looked up
    qint64 slowest = 0;       ///< in milliseconds
    QMap<QString, qint64> by; ///< answers by their first words
};

class Soak
{
public:
    Soak(const QString &home, quint32 seed)
        : m_photos(home + u"/photos"_s)
        , m_random(seed)
        , m_lightroom(QCoreApplication::applicationDirPath() + u"/lightroom-standin"_s, m_photos, seed)
    {
        QProcess::execute(QCoreApplication::applicationDirPath() + u"/lightroom-standin"_s,
                          {u"--sample-photos"_s, m_photos});
    }

    /// Whether everything went well.
    bool run(std::chrono::minutes length)
    {
        const QStringList earlierReplies = replies();
        m_lightroom.start();
        (void)waitUntil([this] { return m_lightroom.isReady(); });
        QTimer everyMinute;
        QObject::connect(&everyMinute, &QTimer::timeout, &everyMinute, [this] { weigh(); });
        everyMinute.start(1min);
        const QDeadlineTimer end(length);
        while (!end.hasExpired()) {
            ask(m_random.bounded(3) == 0 ? newExposure() : anyRequest());
            (void)waitUntil([] { return false; }, std::chrono::milliseconds(m_random.bounded(600)));
        }
        m_lightroom.calmDown();
        (void)waitUntil([this] { return m_lightroom.isReady(); });
        ask(newExposure());
        QStringList left = replies();
        left.removeIf([&](const QString &reply) { return earlierReplies.contains(reply); });
        report(left);
        return m_tally.silent == 0 && m_tally.untrue == 0 && m_tally.looked > 0 && left.isEmpty() &&
               m_highestLater <= m_highestAtFirst * growthAllowed;
    }

private:
    void weigh()
    {
        const double memory = allocatedMegabytes();
        double &highest = ++m_minutes <= settlingTime.count() ? m_highestAtFirst : m_highestLater;
        highest = std::max(highest, memory);
        std::printf("%lld min: %lld requests, %d starts, %.2f MB allocated\n",
                    static_cast<long long>(m_minutes), static_cast<long long>(m_tally.requests),
                    m_lightroom.counts().starts, memory);
        std::fflush(stdout);
    }

    /// No photo has this exposure yet, so that it can be found.
    QString newExposure()
    {
        do {
            m_exposure = m_exposure % 499 + 1;
        } while (isInASidecar(m_exposure / 100.0));
        return u"set exposure to %1"_s.arg(m_exposure / 100.0, 0, 'f', 2);
    }

    QString anyRequest()
    {
        QString request = mixedRequests().at(m_random.bounded(int(mixedRequests().size())));
        return request.replace("%1"_L1, m_photos);
    }

    void ask(const QString &request)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        AppModel &model = m_app.model();
        const qsizetype before = model.messages().size();
        const int status = waitForTask(answerPrompts(model, {request}), answerDeadline + 10s);
        ++m_tally.requests;
        m_tally.slowest = std::max(m_tally.slowest, elapsed.elapsed());
        // The end of a session, which a new one begins with, may take "responding" away from a request under
        // way.
        std::optional<QString> answer;
        (void)waitUntil([&] { return (answer = answerSince(before)).has_value(); }, answerDeadline);
        if (status != 0 || !answer) {
            ++m_tally.silent;
            std::printf("no sentence for: %s\n", qPrintable(request));
        } else {
            count(request, *answer);
        }
        if (m_tally.requests % requestsOfASession == 0) {
            model.startNewSession(); // a conversation grows as long as it lasts
        }
    }

    /// What the assistant has said last behind the first messages; none while it has said nothing.
    [[nodiscard]] std::optional<QString> answerSince(qsizetype first)
    {
        for (qsizetype i = m_app.model().messages().size(); i-- > first;) {
            const ConversationMessage &message = m_app.model().messages().at(i);
            if (message.role == ConversationRole::assistant && !message.content.isEmpty()) {
                return message.content;
            }
        }
        return std::nullopt;
    }

    void count(const QString &request, const QString &answer)
    {
        ++m_tally.by[answer.section(u' ', 0, 4)];
        if (answer.startsWith("Lightroom Classic: Adjusted Exposure on"_L1)) {
            ++m_tally.looked;
            if (!isInASidecar(request.section(u' ', -1).toDouble())) {
                ++m_tally.untrue;
                std::printf("not in a sidecar: %s\n", qPrintable(answer));
            }
        }
    }

    [[nodiscard]] bool isInASidecar(double exposure) const
    {
        const QByteArray setting = "crs:Exposure2012=\"" + QByteArray(exposure > 0 ? "+" : "") +
                                   QByteArray::number(exposure, 'f', 2) + '"';
        const auto sidecars = QDir(m_photos).entryInfoList({u"*.xmp"_s}, QDir::Files);
        return std::ranges::any_of(sidecars, [&](const QFileInfo &info) {
            QFile file(info.filePath());
            return file.open(QIODevice::ReadOnly) && file.readAll().contains(setting);
        });
    }

    [[nodiscard]] static QStringList replies()
    {
        const BridgeEndpoint endpoint;
        return QDir(endpoint.replyDirectory)
            .entryList({QFileInfo(endpoint.replyPath(u"*"_s)).fileName()}, QDir::Files);
    }

    void report(const QStringList &left) const
    {
        const UnsteadyLightroom::Counts &counts = m_lightroom.counts();
        std::printf(
            "\nThe stand-in was started %d times: ended %d, killed %d, hanging %d, its port taken %d times; "
            "frozen for a moment %d times.\n",
            counts.starts, counts.ended, counts.killed, counts.hanging, counts.strangers, counts.frozen);
        std::printf("%lld requests, %lld without a sentence; the slowest answer took %.1f s.\n",
                    static_cast<long long>(m_tally.requests), static_cast<long long>(m_tally.silent),
                    double(m_tally.slowest) / 1000);
        std::printf("%lld exposures said to be set were looked up, %lld were not in a sidecar.\n",
                    static_cast<long long>(m_tally.looked), static_cast<long long>(m_tally.untrue));
        std::printf("Allocated: at most %.2f MB in the first %lld minutes, %.2f MB after.\n",
                    m_highestAtFirst, static_cast<long long>(settlingTime.count()), m_highestLater);
        std::printf("Replies left: %lld\n", static_cast<long long>(left.size()));
        for (const QString &reply : left) {
            const QFileInfo info(QDir(BridgeEndpoint().replyDirectory), reply);
            std::printf("  %s, %lld bytes, %lld s ago\n", qPrintable(reply),
                        static_cast<long long>(info.size()),
                        static_cast<long long>(info.lastModified().secsTo(QDateTime::currentDateTime())));
        }
        for (auto row = m_tally.by.begin(); row != m_tally.by.end(); ++row) {
            std::printf("%7lld  %s ...\n", static_cast<long long>(row.value()), qPrintable(row.key()));
        }
    }

    QString m_photos;
    QRandomGenerator m_random;
    UnsteadyLightroom m_lightroom;
    KelvaLRApp m_app{stderr, KelvaLRApp::Speech::off};
    Tally m_tally;
    int m_exposure = 0; ///< in hundredths
    qint64 m_minutes = 0;
    double m_highestAtFirst = 0;
    double m_highestLater = 0;
};

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("HOME",
            home.path().toUtf8()); // the photographer's own settings, plug-ins and keys stay out of it
    for (const char *variable :
         {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "KELVALR_OPENAI_API_KEY",
          "KELVALR_PRESET_FOLDERS", "OPENAI_API_KEY", "DISPLAY"}) {
        qunsetenv(variable);
    }
    qputenv("OPENAI_BASE_URL", "http://127.0.0.1:9/v1"); // a key in an .env.local must not cost anything
    QDir::setCurrent(home.path());
    const QCoreApplication application(argc, argv);
    const int minutes = QCoreApplication::arguments().value(1, u"120"_s).toInt();
    const quint32 seed = QCoreApplication::arguments().value(2, u"1"_s).toUInt();
    try {
        return Soak(home.path(), seed).run(std::chrono::minutes(std::max(1, minutes))) ? 0 : 1;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "lightroom_soak: %s\n", error.what());
        return 1;
    }
}
