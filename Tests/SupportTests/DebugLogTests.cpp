#include "Support/DebugLog.h"

#include "Support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

QString contents(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

mode_t permissionsOf(const QString &path)
{
    struct stat status{};
    return stat(path.toUtf8().constData(), &status) == 0 ? status.st_mode & 0777 : 0;
}

TEST(DebugLog, appendsLinesThatOnlyTheOwnerCanRead)
{
    const QTemporaryDir folder;
    const DebugLog log(folder.filePath(u"state/kelvalr/app_debug.log"_s));
    log.write(u"first %1 café"_s);
    log.write(u"second\nwith\r\na break"_s);

    static const QRegularExpression lines(
        u"\\A\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}\\] first %1 café\n"
        "\\[[^]]{23}\\] second with  a break\n\\z"_s);
    EXPECT_TRUE(lines.match(contents(log.file())).hasMatch()) << contents(log.file()).toStdString();
    EXPECT_EQ(permissionsOf(log.file()), 0600U);
    EXPECT_EQ(permissionsOf(folder.filePath(u"state/kelvalr"_s)), 0700U);

    QFile::setPermissions(log.file(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    log.write(u"third"_s);
    EXPECT_EQ(permissionsOf(log.file()), 0600U);
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

} // namespace

} // namespace KelvaLR
