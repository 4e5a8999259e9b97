#pragma once

#include <QCoroTask>

#include <QString>

#include <expected>

namespace KelvaLR {

/// Port: the menu commands of Lightroom Classic that have no other interface. Main thread; the tasks do not
/// block it and end within a bounded time.
class LightroomMenus
{
public:
    LightroomMenus() = default;
    virtual ~LightroomMenus() = default;
    Q_DISABLE_COPY_MOVE(LightroomMenus)

    /// Brings Lightroom Classic forward and clicks "KelvaLR Status" under Plug-in Extras. Answers "started",
    /// or the sentence that says why not; an error carries the system's text, which may be empty.
    virtual QCoro::Task<std::expected<QString, QString>> clickBridgeStatus() = 0;

    /// Brings Lightroom Classic forward and clicks File > "Plug-in Manager...". Reports nothing.
    virtual QCoro::Task<> openPluginManager() = 0;
};

} // namespace KelvaLR
