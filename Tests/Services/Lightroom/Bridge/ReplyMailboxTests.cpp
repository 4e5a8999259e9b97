#include "Services/Lightroom/Bridge/ReplyFile.h"
#include "Services/Lightroom/Bridge/ReplyMailbox.h"
#include "Support/PrintQt.h"
#include "Support/TestFiles.h"
#include "Support/WaitForTask.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

#include <sys/stat.h>
#include <unistd.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class ReplyMailboxTest : public testing::Test
{
protected:
    std::optional<QString> takeReply(BridgeTiming timing)
    {
        ReplyMailbox mailbox(endpoint, u"ID"_s, timing);
        return waitForTask(mailbox.takeReply(&owner));
    }

    void later(std::chrono::milliseconds delay, std::function<void()> deed)
    {
        QTimer::singleShot(delay, &owner, std::move(deed));
    }

    QObject owner;
    QTemporaryDir directory;
    BridgeEndpoint endpoint{.replyDirectory = directory.path()};
    QString path = endpoint.replyPath(u"ID"_s);
    /// Without the watch, nothing would be seen within this.
    BridgeTiming rarePoll{.reply = 15s, .poll = 15s};
    BridgeTiming shortReply{.reply = 100ms, .poll = 10ms};
};

TEST_F(ReplyMailboxTest, refusesWhatIsNotAReplyOfOurs)
{
    const QString elsewhere = directory.filePath(u"elsewhere"_s);
    const QByteArray encodedPath = QFile::encodeName(path);

    const std::pair<const char *, std::function<void()>> cases[] = {
        {"nothing", [] {}},
        {"empty", [&] { writeFile(path, ""); }},
        {"not UTF-8", [&] { writeFile(path, "{\"message\":\"\xC3\x28\"}\n"); }},
        {"cut inside a character", [&] { writeFile(path, "{\"message\":\"\xC3"); }},
        {"an encoded surrogate", [&] { writeFile(path, "\xED\xA0\x80\n"); }},
        {"too large", [&] { writeFile(path, QByteArray(maximumReplySize, ' ') + '\n'); }},
        {"a symbolic link",
         [&] {
             writeFile(elsewhere, "{}\n");
             QFile::link(elsewhere, path);
         }},
        {"a dangling link", [&] { QFile::link(u"/nonexistent"_s, path); }},
        {"a pipe", [&] { ::mkfifo(encodedPath.constData(), 0600); }},
        {"a directory", [&] { QDir().mkdir(path); }},
    };
    for (const auto &[name, prepare] : cases) {
        prepare();
        EXPECT_EQ(takeReply(shortReply), std::nullopt) << name;
        EXPECT_TRUE(!QFileInfo(path).isSymLink() && (!QFile::exists(path) || QDir().rmdir(path)))
            << name << " is left, and is not a directory";
    }
}

TEST_F(ReplyMailboxTest, refusesAnotherUsersFile)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can make another user's file";
    }
    writeFile(path, "{}\n");
    ASSERT_EQ(::chown(QFile::encodeName(path).constData(), 1, 1), 0);
    EXPECT_EQ(takeReply(shortReply), std::nullopt);
}

TEST_F(ReplyMailboxTest, takesALargeReplyAndRemovesIt)
{
    const QByteArray bytes = QByteArray(maximumReplySize - 1, 'x') + '\n';
    writeFile(path, bytes);
    EXPECT_EQ(takeReply(rarePoll), QString::fromUtf8(bytes));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ReplyMailboxTest, takesAReplyHoweverItIsWritten)
{
    const QString elsewhere = directory.filePath(u"elsewhere"_s);

    const struct
    {
        const char *name;
        BridgeTiming timing;
        QString reply;
        std::function<void()> writer;
    } rows[] = {
        {"seen at once", rarePoll, u"{}\n"_s, [&] { writeFile(path, "{}\n"); }},
        {"renamed, and seen at once", rarePoll, u"{}\n"_s,
         [&] {
             writeFile(elsewhere, "{}\n");
             QFile::rename(elsewhere, path);
         }},
        {"seen although the directory reports only the creation, long before the content", rarePoll,
         u"{}\n"_s,
         [&] {
             writeFile(path, "");
             later(50ms, [&] { writeFile(path, "{", QIODevice::Append); });
             later(100ms, [&] { writeFile(path, "}\n", QIODevice::Append); });
         }},
        {"written while the program stood still past the deadline", shortReply, u"{}\n"_s,
         [&] {
             QThread::msleep(200);
             writeFile(path, "{}\n");
         }},
        {"without a line feed, taken only once it has stopped growing",
         {.reply = 15s, .poll = 300ms},
         u"{}"_s,
         [&] {
             writeFile(path, "{");
             later(150ms, [&] { writeFile(path, "}", QIODevice::Append); });
         }},
    };

    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        later(20ms, row.writer);
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(takeReply(row.timing), row.reply);
        EXPECT_LT(clock.elapsed(), 10'000);
    }
}

TEST_F(ReplyMailboxTest, findsAReplyByPollingWhereNothingCanBeWatched)
{
    endpoint.replyDirectory = directory.filePath(u"not-yet"_s);
    path = endpoint.replyPath(u"ID"_s);
    later(20ms, [&] { writeFile(path, "{}\n"); });
    EXPECT_EQ(takeReply({.reply = 15s, .poll = 10ms}), u"{}\n"_s);
}

TEST_F(ReplyMailboxTest, endsEarlyWhenItsOwnerDies)
{
    auto mortal = std::make_unique<QObject>();
    ReplyMailbox mailbox(endpoint, u"ID"_s, {.reply = 60s, .poll = 10ms});
    later(30ms, [&] { mortal.reset(); });
    EXPECT_EQ(waitForTask(mailbox.takeReply(mortal.get())), std::nullopt);
}

} // namespace
} // namespace KelvaLR::Testing
