#include "Services/Lightroom/Bridge/ReplyFile.h"
#include "Services/Lightroom/Bridge/ReplyMailbox.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
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

void write(const QString &path, const QByteArray &bytes, QIODevice::OpenMode mode = QIODevice::WriteOnly)
{
    QFile file(path);
    ASSERT_TRUE(file.open(mode));
    file.write(bytes);
}

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

    struct Case
    {
        const char *name;
        std::function<void()> prepare;
    };

    const QList<Case> cases{
        {"nothing", [] {}},
        {"empty", [&] { write(path, ""); }},
        {"not UTF-8", [&] { write(path, "{\"message\":\"\xC3\x28\"}\n"); }},
        {"cut inside a character", [&] { write(path, "{\"message\":\"\xC3"); }},
        {"an encoded surrogate", [&] { write(path, "\xED\xA0\x80\n"); }},
        {"too large", [&] { write(path, QByteArray(maximumReplySize, ' ') + '\n'); }},
        {"a symbolic link",
         [&] {
             write(elsewhere, "{}\n");
             QFile::link(elsewhere, path);
         }},
        {"a dangling link", [&] { QFile::link(u"/nonexistent"_s, path); }},
        {"a pipe", [&] { ::mkfifo(encodedPath.constData(), 0600); }},
        {"a directory", [&] { QDir().mkdir(path); }},
    };
    for (const Case &one : cases) {
        one.prepare();
        EXPECT_EQ(takeReply(shortReply), std::nullopt) << one.name;
        EXPECT_TRUE(!QFileInfo(path).isSymLink() && (!QFile::exists(path) || QDir().rmdir(path)))
            << one.name << " is left, and is not a directory";
    }
}

TEST_F(ReplyMailboxTest, refusesAnotherUsersFile)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can make another user's file";
    }
    write(path, "{}\n");
    ASSERT_EQ(::chown(QFile::encodeName(path).constData(), 1, 1), 0);
    EXPECT_EQ(takeReply(shortReply), std::nullopt);
}

TEST_F(ReplyMailboxTest, takesALargeReplyAndRemovesIt)
{
    const QByteArray bytes = QByteArray(maximumReplySize - 1, 'x') + '\n';
    write(path, bytes);
    EXPECT_EQ(takeReply(rarePoll), QString::fromUtf8(bytes));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ReplyMailboxTest, seesAReplyAtOnceHoweverItIsWritten)
{
    const QString elsewhere = directory.filePath(u"elsewhere"_s);
    const QList<std::function<void()>> writers{
        [&] { write(path, "{}\n"); },
        [&] {
            write(elsewhere, "{}\n");
            QFile::rename(elsewhere, path);
        },
        // The directory reports only the creation; the content comes much later, and in pieces.
        [&] {
            write(path, "");
            later(50ms, [&] { write(path, "{", QIODevice::Append); });
            later(100ms, [&] { write(path, "}\n", QIODevice::Append); });
        },
    };
    for (const auto &writer : writers) {
        later(20ms, writer);
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(takeReply(rarePoll), u"{}\n"_s);
        EXPECT_LT(clock.elapsed(), 10'000);
    }
}

TEST_F(ReplyMailboxTest, takesAReplyThatCameWhileTheProgramStoodStill)
{
    later(20ms, [this] {
        QThread::msleep(200); // past the deadline
        write(path, "{}\n");
    });
    EXPECT_EQ(takeReply(shortReply), u"{}\n"_s);
}

TEST_F(ReplyMailboxTest, findsAReplyByPollingWhereNothingCanBeWatched)
{
    endpoint.replyDirectory = directory.filePath(u"not-yet"_s);
    path = endpoint.replyPath(u"ID"_s);
    later(20ms, [&] {
        QDir().mkpath(endpoint.replyDirectory);
        write(path, "{}\n");
    });
    EXPECT_EQ(takeReply({.reply = 15s, .poll = 10ms}), u"{}\n"_s);
}

TEST_F(ReplyMailboxTest, takesATextWithoutItsLineFeedOnlyOnceItHasStoppedGrowing)
{
    write(path, "{\"a\"");
    later(150ms, [&] { write(path, ":1}", QIODevice::Append); });
    EXPECT_EQ(takeReply({.reply = 15s, .poll = 300ms}), u"{\"a\":1}"_s);
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
