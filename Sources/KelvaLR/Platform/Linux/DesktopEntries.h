#pragma once

#include "Platform/Linux/DesktopEntry.h"

#include <QList>

namespace KelvaLR {

/// The window class that a program gives its windows: WM_CLASS.
struct WindowClass
{
    QString instance;
    QString name;

    bool operator==(const WindowClass &) const = default;
};

/// The entry in this file, its id that of a file in no subfolder; none when it is unreadable, larger than 1
/// MiB or no entry.
[[nodiscard]] std::optional<DesktopEntry> readDesktopEntry(const QString &path);

/// The applications of these folders, by folder and then by id. Of two entries with one id the first counts,
/// also when it says that the application is deleted.
[[nodiscard]] QList<DesktopEntry> installedDesktopEntries(const QStringList &folders);

/// The folders of this session in which applications are installed, the user's own first.
[[nodiscard]] QStringList applicationFolders();

/// Whether a desktop of these names offers the application to its user.
[[nodiscard]] bool isListed(const DesktopEntry &entry, const QStringList &desktopNames);

/// The entry of the program to which windows of this class belong; null when none is known.
[[nodiscard]] const DesktopEntry *entryOfWindows(const WindowClass &windowClass,
                                                 const QList<DesktopEntry> &entries);

} // namespace KelvaLR
