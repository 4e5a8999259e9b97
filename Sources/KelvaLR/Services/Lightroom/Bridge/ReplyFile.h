#pragma once

#include <QString>

#include <optional>

namespace KelvaLR {

/// In bytes; a longer reply is refused.
inline constexpr qint64 maximumReplySize = 1 << 20;

/// The readable content of a reply file.
struct ReplyFileContent
{
    QString text;
    qint64 size = 0;         ///< in bytes
    bool isComplete = false; ///< it ends with the line feed that ends every reply

    bool operator==(const ReplyFileContent &) const = default;
};

/// Reads what stands at this path. The directory is open to every user of the machine, so only a regular file
/// of our own user counts, never one behind a symbolic link, and reading never blocks on a pipe. None for
/// anything else, and for a file that is empty, too large or not valid UTF-8 (which may still be growing).
[[nodiscard]] std::optional<ReplyFileContent> readReplyFile(const QString &path);

} // namespace KelvaLR
