#pragma once

#include <QString>

#include <optional>

namespace KelvaLR {

/// A running application as the desktop names it.
struct RunningApplication
{
    QString name;         ///< the name shown to the user; may be empty
    QString identifier;   ///< bundle identifier or desktop-entry id; may be empty
    qint64 processId = 0; ///< 0 when unknown

    bool operator==(const RunningApplication &) const = default;
};

/// Port: which application receives keyboard input. Answers at once; main thread.
class FrontmostApplication
{
public:
    FrontmostApplication() = default;
    virtual ~FrontmostApplication() = default;
    Q_DISABLE_COPY_MOVE(FrontmostApplication)

    /// None when the desktop has no frontmost application or cannot say.
    [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;
};

} // namespace KelvaLR
