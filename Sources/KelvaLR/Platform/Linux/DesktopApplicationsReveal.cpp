#include "Platform/Linux/DesktopApplications.h"

#include "Support/DetachedTask.h"

#include <QCoroDBusPendingCall>
#include <QCoroSignal>

#include <QDBusMessage>
#include <QDir>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QProcess>
#include <QUrl>
#include <QtConcurrentRun>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

QString nearestExisting(const QString &path)
{
    QString nearest = QDir::cleanPath(QDir::current().absoluteFilePath(path));
    while (!QFileInfo::exists(nearest)) {
        nearest = QFileInfo(nearest).path();
    }
    return nearest;
}

/// https://www.freedesktop.org/wiki/Specifications/file-manager-interface/
QDBusMessage showItems(const QString &path)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QString noStartupId;
    message << QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)) << noStartupId;
    return message;
}

/// Whether a file manager shows the folder, selected, within the deadlines.
QCoro::Task<bool> didShow(QString folder, DesktopApplications::SessionBus sessionBus,
                          std::chrono::milliseconds deadline)
{
    QFutureWatcher<QDBusConnection> connecting;
    connecting.setFuture(QtConcurrent::run(sessionBus));
    if (!co_await qCoro(&connecting, &QFutureWatcherBase::finished, deadline)) {
        co_return false;
    }
    const QDBusConnection bus = connecting.result();
    const QDBusMessage reply = co_await bus.asyncCall(showItems(folder), static_cast<int>(deadline.count()));
    co_return reply.type() == QDBusMessage::ReplyMessage;
}

/// Neither waits for the opener nor lets it write among our own output.
void openDetached(const QString &folder)
{
    QProcess opener;
    opener.setProgram(u"xdg-open"_s);
    opener.setArguments({folder});
    opener.setStandardInputFile(QProcess::nullDevice());
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    opener.startDetached();
}

QCoro::Task<> show(QString folder, DesktopApplications::SessionBus sessionBus,
                   std::chrono::milliseconds deadline)
{
    if (!co_await didShow(folder, sessionBus, deadline)) {
        openDetached(QFileInfo(folder).path());
    }
}

} // namespace

void DesktopApplications::reveal(const QString &folder)
{
    startDetached(show(nearestExisting(folder), m_sessionBus, m_deadline));
}

} // namespace KelvaLR
