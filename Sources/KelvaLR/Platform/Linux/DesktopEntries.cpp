#include "Platform/Linux/DesktopEntries.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView suffix(".desktop");
constexpr qint64 largestFile = qint64{1024} * 1024; ///< entries with all their languages stay below 100 KiB

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator found(folder, {u'*' + suffix}, QDir::Files, // leaves out pipes, which would wait
                       QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (found.hasNext()) {
        files.append(found.next());
    }
    std::ranges::sort(files);
    return files;
}

/// Folders become part of the id: wine/Programs/App.desktop is "wine-Programs-App".
QString idOfFile(const QString &path, const QString &folder)
{
    return QDir(folder).relativeFilePath(path).chopped(suffix.size()).replace(u'/', u'-');
}

bool isApplication(const DesktopEntry &entry)
{
    const bool isMissing =
        !entry.tryExec.isEmpty() && QStandardPaths::findExecutable(entry.tryExec).isEmpty();
    return entry.type == "Application"_L1 && !entry.name.isEmpty() && !entry.isHidden && !isMissing;
}

bool namesOneOf(const QString &list, const QStringList &names)
{
    const QStringList listed = list.split(u';', Qt::SkipEmptyParts);
    return std::ranges::any_of(names, [&](const QString &name) { return listed.contains(name); });
}

bool isSame(const QString &left, const QString &right)
{
    return !right.isEmpty() && left.compare(right, Qt::CaseInsensitive) == 0;
}

using Matches = bool (*)(const DesktopEntry &, const WindowClass &);

/// From sure to likely. Many toolkits name windows after the program: "gedit" of org.gnome.gedit.
constexpr std::array<Matches, 4> ways{
    [](const DesktopEntry &entry, const WindowClass &windows) {
        return isSame(entry.windowClass, windows.name);
    },
    [](const DesktopEntry &entry, const WindowClass &windows) {
        return isSame(entry.windowClass, windows.instance);
    },
    [](const DesktopEntry &entry, const WindowClass &windows) {
        return isSame(entry.id, windows.name) || isSame(entry.id, windows.instance);
    },
    [](const DesktopEntry &entry, const WindowClass &windows) {
        const QString program = entry.id.section(u'.', -1);
        return isSame(program, windows.name) || isSame(program, windows.instance);
    },
};

} // namespace

std::optional<DesktopEntry> readDesktopEntry(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > largestFile || !file.open(QFile::ReadOnly)) {
        return std::nullopt;
    }
    std::optional<DesktopEntry> entry = parsedDesktopEntry(file.read(largestFile));
    if (entry) {
        entry->id = QFileInfo(path).completeBaseName();
        entry->path = path;
    }
    return entry;
}

QList<DesktopEntry> installedDesktopEntries(const QStringList &folders)
{
    QList<DesktopEntry> entries;
    QSet<QString> known;
    for (const QString &folder : folders) {
        for (const QString &path : filesBelow(folder)) {
            const QString id = idOfFile(path, folder);
            std::optional<DesktopEntry> entry = known.contains(id) ? std::nullopt : readDesktopEntry(path);
            if (!entry) {
                continue;
            }
            known.insert(id);
            entry->id = id;
            if (isApplication(*entry)) {
                entries.append(*std::move(entry));
            }
        }
    }
    return entries;
}

QStringList applicationFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

bool isListed(const DesktopEntry &entry, const QStringList &desktopNames)
{
    return !entry.isUnlisted && !namesOneOf(entry.notShowIn, desktopNames) &&
           (entry.onlyShowIn.isEmpty() || namesOneOf(entry.onlyShowIn, desktopNames));
}

const DesktopEntry *entryOfWindows(const WindowClass &windowClass, const QList<DesktopEntry> &entries)
{
    for (const Matches matches : ways) {
        const auto entry = std::ranges::find_if(
            entries, [&](const DesktopEntry &candidate) { return matches(candidate, windowClass); });
        if (entry != entries.end()) {
            return &*entry;
        }
    }
    return nullptr;
}

} // namespace KelvaLR
