#pragma once

#include <QCoroTask>

#include <QList>
#include <QStringList>
#include <QUrl>

namespace KelvaLR {

/// The supported photo files of a folder itself, as absolute paths ordered by file name (numbers inside names
/// compare by value); hidden files and subfolders are left out. A folder that cannot be read, or not
/// within half a minute, has none. Reads off the main thread, since photo folders may live on a sleeping
/// network drive.
QCoro::Task<QStringList> photoPaths(QString folder);

/// The folder or file as an absolute path without "." and ".." in it; nothing is looked up on the disk.
[[nodiscard]] QString standardizedPath(const QString &path);

/// The local folders among these places, in their order.
[[nodiscard]] QList<QUrl> foldersAmong(QList<QUrl> places);

} // namespace KelvaLR
