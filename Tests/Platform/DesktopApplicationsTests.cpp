#include "Platform/Linux/DesktopApplications.h"

#include "Support/PrintQt.h"
#include "Support/PrivateSessionBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString contents(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

enum class Answer { none, error, silence, reply };

/// A file manager that writes down what it is asked to show.
class RecordingFileManager final : public QDBusVirtualObject
{
public:
    QStringList shown;
    Answer answer = Answer::reply;

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        EXPECT_EQ(message.interface(), u"org.freedesktop.FileManager1"_s);
        EXPECT_EQ(message.member(), u"ShowItems"_s);
        EXPECT_EQ(message.signature(), u"ass"_s);
        shown += message.arguments().value(0).toStringList();
        if (answer != Answer::silence) {
            connection.send(answer == Answer::reply ? message.createReply()
                                                    : message.createErrorReply(QDBusError::Failed, u"no"_s));
        }
        return true;
    }
};

/// A session bus of its own, a file manager on it, and an xdg-open that writes down what it is given.
class DesktopApplicationsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile script(m_folder.filePath(u"xdg-open"_s));
        ASSERT_TRUE(script.open(QFile::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s\\n' \"$@\" >>\"$0.log\"\necho noise\necho noise >&2\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", QFile::encodeName(m_folder.path()) + ':' + m_path);

        ASSERT_TRUE(m_bus.isUp());
        ASSERT_TRUE(m_bus.connect(u"server"_s)
                        .registerVirtualObject(u"/org/freedesktop/FileManager1"_s, &m_fileManager));
    }

    void TearDown() override { qputenv("PATH", m_path); }

    void setAnswer(Answer answer)
    {
        const QString service = u"org.freedesktop.FileManager1"_s;
        m_fileManager.answer = answer;
        QDBusConnection server(u"server"_s);
        server.unregisterService(service);
        EXPECT_TRUE(answer == Answer::none || server.registerService(service));
    }

    [[nodiscard]] QString opened() const { return contents(m_folder.filePath(u"xdg-open.log"_s)); }

    QTemporaryDir m_folder;
    const X11Connection m_x11;
    RecordingFileManager m_fileManager;
    const DesktopApplications::SessionBus m_client = [this] { return m_bus.connect(u"client"_s); };

private:
    const QByteArray m_path = qgetenv("PATH");
    Testing::PrivateSessionBus m_bus;
};

TEST_F(DesktopApplicationsTest, showTheFolderOrItsNearestParentSelectedInTheFileManager)
{
    const QString odd = m_folder.filePath(u"Plug ins #1 é"_s);
    ASSERT_TRUE(QDir().mkpath(odd));
    const QString url = u"file://%1/Plug%20ins%20%231%20%C3%A9"_s.arg(m_folder.path());

    DesktopApplications applications(m_x11, m_client);
    setAnswer(Answer::reply);
    for (const QString &asked : QStringList{odd, odd + u"/", odd + u"/none/at all"}) {
        applications.reveal(asked);
        EXPECT_TRUE(waitUntil([this] { return !m_fileManager.shown.isEmpty(); }));
        EXPECT_EQ(m_fileManager.shown, QStringList(url)) << asked.toStdString();
        m_fileManager.shown.clear();
    }

    // The first folder that is opened is the one that no file manager shows.
    setAnswer(Answer::none);
    applications.reveal(odd);
    EXPECT_TRUE(waitUntil([this] { return opened().endsWith(u'\n'); }));
    EXPECT_EQ(opened(), m_folder.path() + u'\n');
}

TEST_F(DesktopApplicationsTest, openTheFolderAroundItQuietlyWhereNoFileManagerAnswers)
{
    QLocalServer hangingBus;
    ASSERT_TRUE(hangingBus.listen(m_folder.filePath(u"hanging"_s)));
    const auto connectToHangingBus = [path = hangingBus.fullServerName()] {
        return QDBusConnection::connectToBus(u"unix:path="_s + path, u"hanging"_s);
    };
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DISPLAY");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder.path() + u"/none"));

    const struct
    {
        const char *name;
        DesktopApplications::SessionBus bus;
        Answer answer;
        bool isWaitedFor;
    } rows[] = {
        {"no bus", &QDBusConnection::sessionBus, Answer::none, false},
        {"no file manager", m_client, Answer::none, false},
        {"a file manager that fails", m_client, Answer::error, false},
        {"a file manager that hangs", m_client, Answer::silence, true},
        {"a bus that hangs", connectToHangingBus, Answer::none,
         true}, // last: it keeps the thread in which all buses are connected
    };

    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        setAnswer(row.answer);
        QFile::remove(m_folder.filePath(u"xdg-open.log"_s));
        int ticks = 0;
        QTimer ticking;
        ticking.callOnTimeout([&ticks] { ++ticks; });
        ticking.start(10ms);

        DesktopApplications(m_x11, row.bus, row.isWaitedFor ? 300ms : 20s)
            .reveal(m_folder.filePath(u"none"_s));
        EXPECT_TRUE(waitUntil([this] { return opened().endsWith(u'\n'); }, 10s));
        EXPECT_EQ(opened(), QDir::tempPath() + u'\n');
        EXPECT_TRUE(!row.isWaitedFor || ticks > 10) << "the event loop stood still";
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
