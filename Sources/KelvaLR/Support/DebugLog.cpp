#include "Support/DebugLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

/// Makes the folder, and keeps others out of it, only where it is missing: the user's own choice stays.
void makePrivateFolder(const QString &folder)
{
    if (!QFileInfo::exists(folder) && QDir().mkpath(folder)) {
        QFile::setPermissions(folder, ownerOnly | QFile::ExeOwner);
    }
}

} // namespace

DebugLog::DebugLog(QString file)
    : m_file(std::move(file))
{
}

QString DebugLog::defaultFile()
{
    const QString configured = qEnvironmentVariable("XDG_STATE_HOME");
    const QString stateFolder =
        QDir::isAbsolutePath(configured) ? configured : QDir::homePath() + "/.local/state"_L1;
    return stateFolder + "/kelvalr/app_debug.log"_L1;
}

void DebugLog::write(const QString &message) const
{
    const QFileInfo present(m_file);
    if (present.isSymLink() || (present.exists() && !present.isFile())) {
        return; // opening a pipe would wait for its reader, and a link leads out of the private folder
    }
    makePrivateFolder(present.absolutePath());
    QFile log(m_file);
    if (!log.open(QFile::WriteOnly | QFile::Append, ownerOnly)) {
        return;
    }
    if (log.permissions() & (QFile::ReadGroup | QFile::ReadOther)) {
        log.setPermissions(ownerOnly);
    }
    QString line = message;
    line.replace(u'\n', u' ').replace(u'\r', u' ');
    const QString time = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s);
    log.write(u"[%1] %2\n"_s.arg(time, line).toUtf8()); // in one write, so that lines do not mix
}

} // namespace KelvaLR
