#include "Support/DebugLog.h"

#include "Support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(DebugLog, appendsLinesThatOnlyTheOwnerCanRead)
{
    using std::filesystem::perms;
    const auto permissions = [](const QString &path) {
        return std::filesystem::status(path.toStdString()).permissions();
    };
    const QTemporaryDir folder;
    const DebugLog log(folder.filePath(u"state/kelvalr/app_debug.log"_s));
    log.write(u"first %1 café"_s);
    log.write(u"second\nwith\r\na break"_s);

    QFile file(log.file());
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray text = file.readAll();
    static const QRegularExpression lines(
        u"\\A\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}\\] first %1 café\n"
        "\\[[^]]{23}\\] second with  a break\n\\z"_s);
    EXPECT_TRUE(lines.match(QString::fromUtf8(text)).hasMatch()) << text.toStdString();
    EXPECT_EQ(permissions(log.file()), perms(0600));
    EXPECT_EQ(permissions(folder.filePath(u"state/kelvalr"_s)), perms(0700));

    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    log.write(u"third"_s);
    EXPECT_EQ(permissions(log.file()), perms(0600));
}

TEST(DebugLog, isSilentWhereItCannotWrite)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe"_s);
    const QString target = folder.filePath(u"target"_s);
    const QString link = folder.filePath(u"link"_s);
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(target, link));
    for (const QString &path : {pipe, link, folder.path(), u"/proc/none/app_debug.log"_s}) {
        DebugLog(path).write(u"lost"_s);
    }
    EXPECT_FALSE(QFile::exists(target));
}

TEST(DebugLog, liesInTheUsersStateFolder)
{
    qputenv("XDG_STATE_HOME", "/state");
    EXPECT_EQ(DebugLog::defaultFile(), u"/state/kelvalr/app_debug.log"_s);
    qunsetenv("XDG_STATE_HOME");
    EXPECT_EQ(DebugLog::defaultFile(), QDir::homePath() + u"/.local/state/kelvalr/app_debug.log"_s);
}
