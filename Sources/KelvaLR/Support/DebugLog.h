#pragma once

#include <QString>

namespace KelvaLR {

/// The append-only diagnostic log. A line that cannot be written is dropped silently: a diagnosis must never
/// become a fault of its own. Any thread; nothing orders the lines of two threads.
class DebugLog
{
public:
    explicit DebugLog(QString file = defaultFile());

    /// `app_debug.log` in the user's state folder (the XDG base directories: $XDG_STATE_HOME, else
    /// ~/.local/state).
    [[nodiscard]] static QString defaultFile();

    [[nodiscard]] const QString &file() const { return m_file; }

    /// Appends "[yyyy-MM-dd HH:mm:ss.SSS] message" in local time. Line breaks inside the message become
    /// blanks, so that an entry is always one line. The file can be read by its owner only.
    void write(const QString &message) const;

private:
    QString m_file;
};

} // namespace KelvaLR
