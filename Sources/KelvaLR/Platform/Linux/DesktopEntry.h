#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace KelvaLR {

/// What a desktop entry says of an application.
/// https://specifications.freedesktop.org/desktop-entry-spec/latest/
struct DesktopEntry
{
    QString id;   ///< as the desktop names it, without ".desktop"; of the folder, not of the text
    QString path; ///< of the file; likewise

    QString type;
    QString name;
    QString icon;
    QString exec;
    QString tryExec;
    QString workingFolder;
    QString windowClass;
    QString onlyShowIn; ///< names of desktops, each ended by a semicolon; likewise notShowIn
    QString notShowIn;
    bool isHidden = false; ///< deleted by the user
    bool isUnlisted = false;
    bool needsTerminal = false;

    bool operator==(const DesktopEntry &) const = default;
};

/// The entry that a file's text describes, with the names of no language; none when it holds no entry. What
/// is not UTF-8 becomes U+FFFD.
[[nodiscard]] std::optional<DesktopEntry> parsedDesktopEntry(QByteArrayView text);

/// The program and the arguments that start the application without a file; none when the entry's command
/// cannot be read.
[[nodiscard]] std::optional<QStringList> commandLine(const DesktopEntry &entry);

} // namespace KelvaLR
