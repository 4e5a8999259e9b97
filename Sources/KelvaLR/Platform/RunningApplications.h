#pragma once

#include "Platform/FrontmostApplication.h"

#include <QCoroTask>

#include <QList>
#include <QUrl>

#include <expected>

namespace KelvaLR {

/// An installed application that can be opened.
struct InstalledApplication
{
    QString displayName; ///< the name shown to the user
    QString fileName;    ///< of its bundle or desktop entry, with the extension
    QUrl url;            ///< its bundle or desktop entry

    bool operator==(const InstalledApplication &) const = default;
};

/// Port: the applications of this desktop. Main thread; what takes longer than a moment is a task.
class RunningApplications : public FrontmostApplication
{
public:
    /// In the order in which the desktop lists them.
    [[nodiscard]] virtual QList<RunningApplication> runningApplications() const = 0;

    /// Brings an application's windows to the front; false when it could not be asked.
    virtual bool activate(const RunningApplication &application) = 0;

    /// Brings our own windows to the front, de-minimised.
    virtual void bringOwnWindowsToFront() = 0;

    /// The installed application registered under this identifier.
    [[nodiscard]] virtual std::optional<InstalledApplication>
    applicationWithIdentifier(const QString &identifier) const = 0;

    /// The installed applications in the folders that the desktop looks in, in listing order.
    [[nodiscard]] virtual QList<InstalledApplication> installedApplications() const = 0;

    /// Opens an application and waits until it has started; the error is the desktop's own text.
    virtual QCoro::Task<std::expected<void, QString>> open(QUrl application) = 0;

    /// Shows a folder in the file manager, selected. Reports nothing.
    virtual void reveal(const QString &folder) = 0;
};

} // namespace KelvaLR
