#pragma once

#include "Platform/LightroomMenus.h"
#include "Platform/ListeningPrograms.h"
#include "Platform/RunningApplications.h"
#include "Services/Automation/UIAutomationService.h"
#include "Services/Lightroom/LightroomService.h"
#include "Support/DebugLog.h"
#include "Support/RecordingPorts.h"
#include "Support/ScriptedPlugin.h"

#include <QHash>
#include <QTemporaryDir>

#include <memory>

namespace KelvaLR::Testing {

/// A desktop with the applications it is given. Writes down "activate NAME", "own windows", "open URL" and
/// "reveal FOLDER".
class FakeRunningApplications final : public RunningApplications
{
public:
    explicit FakeRunningApplications(QStringList &journal)
        : m_journal(journal)
    {
    }

    std::optional<RunningApplication> frontmostApplication() const override { return frontmost; }

    QList<RunningApplication> runningApplications() const override { return running; }

    bool activate(const RunningApplication &application) override
    {
        m_journal.append(QStringLiteral("activate ") + application.name);
        return true;
    }

    void bringOwnWindowsToFront() override { m_journal.append(QStringLiteral("own windows")); }

    std::optional<InstalledApplication> applicationWithIdentifier(const QString &identifier) const override
    {
        return registered.contains(identifier) ? std::optional(registered[identifier]) : std::nullopt;
    }

    QList<InstalledApplication> installedApplications() const override { return installed; }

    QCoro::Task<std::expected<void, QString>> open(QUrl application) override;

    void reveal(const QString &folder) override { m_journal.append(QStringLiteral("reveal ") + folder); }

    std::optional<RunningApplication> frontmost;
    QList<RunningApplication> running;
    QHash<QString, InstalledApplication> registered; ///< by identifier
    QList<InstalledApplication> installed;
    std::expected<void, QString> opening;

private:
    QStringList &m_journal;
};

/// Writes down "bridge status" and "plug-in manager".
class FakeLightroomMenus final : public LightroomMenus
{
public:
    explicit FakeLightroomMenus(QStringList &journal)
        : m_journal(journal)
    {
    }

    QCoro::Task<std::expected<QString, QString>> clickBridgeStatus() override;
    QCoro::Task<> openPluginManager() override;

    std::expected<QString, QString> answer = QStringLiteral("Lightroom Classic is not running");
    std::function<void()> whenClicked = [] {};

private:
    QStringList &m_journal;
};

/// Says that Lightroom listens, until it is told otherwise.
class FakeListeningPrograms final : public ListeningPrograms
{
public:
    QCoro::Task<PortListener> listenerOn(quint16 port) override;

    PortListener listener{PortListener::Presence::present, {{QStringLiteral("Lightroom.exe"), 4711}}};
    std::function<void()> whenAsked = [] {};
    int questions = 0;
};

/// Waits that end soon where an answer is missing and are long enough for one that comes.
[[nodiscard]] BridgeTiming impatientTiming();

/// Waits that nothing which answers will reach, however busy the machine is.
[[nodiscard]] BridgeTiming patientTiming();

/// A Lightroom service among test doubles, with a scripted plug-in that listens.
struct LightroomRig
{
    explicit LightroomRig(BridgeTiming timing = patientTiming())
        : service(std::make_unique<LightroomService>(applications, accessibility, menus, automation,
                                                     LightroomPluginInstaller(modules.path()), log,
                                                     plugin.endpoint(), timing))
    {
    }

    QStringList journal; ///< what was done to the desktop, in order
    FakeRunningApplications applications{journal};
    FakeAccessibility accessibility{journal};
    RecordingInputEvents inputEvents{journal};
    FakeLightroomMenus menus{journal};
    FakeListeningPrograms listening;
    UIAutomationService automation{accessibility, inputEvents, applications};
    QTemporaryDir modules;
    DebugLog log{modules.filePath(QStringLiteral("app_debug.log"))};
    ScriptedPlugin plugin;
    std::unique_ptr<LightroomService> service;
};

} // namespace KelvaLR::Testing
