#pragma once

#include "Services/Lightroom/Bridge/BridgeEndpoint.h"
#include "Services/Lightroom/Bridge/BridgeExchange.h"
#include "Services/Lightroom/Bridge/BridgeTiming.h"
#include "Services/Lightroom/Bridge/LightroomPluginCommand.h"
#include "Services/Lightroom/Language/ParsedLightroomSliderCommand.h"
#include "Services/Lightroom/LightroomPluginInstaller.h"
#include "Support/DebugLog.h"

#include <QCoroTask>

#include <QObject>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <optional>

namespace KelvaLR {

class Accessibility;
class LightroomMenus;
class RunningApplications;
class UIAutomationService;
struct KeyFallback;
struct LightroomOperation;
struct SliderFallback;

/// Whether a failed connection test may start the plug-in's server and test once more.
enum class AutoStart { no, yes };

/// The Lightroom plug-in as the rest of the program sees it: the bridge to it, the Lightroom operations, and
/// its installation. One exists in a process; commands of all callers are sent one at a time.
///
/// Main thread; the tasks suspend without blocking it, and every wait has a deadline. A task that outlives
/// the service touches nothing more and ends empty-handed.
class LightroomService : public QObject
{
    Q_OBJECT
    /// The last exchange with the plug-in succeeded.
    Q_PROPERTY(bool isPluginConnected READ isPluginConnected NOTIFY isPluginConnectedChanged)
    /// The text shown for the last reply, or the last bridge error.
    Q_PROPERTY(QString lastMessage READ lastMessage NOTIFY lastMessageChanged)

public:
    /// Installs the plug-in. What is given by reference outlives the service and its tasks.
    /// @param log learns whether the effect of a key or a slider was seen
    /// @param report where a failed installation is printed
    LightroomService(RunningApplications &applications, Accessibility &accessibility, LightroomMenus &menus,
                     UIAutomationService &automation, LightroomPluginInstaller installer, DebugLog log,
                     BridgeEndpoint endpoint = {}, BridgeTiming timing = {}, std::FILE *report = stdout,
                     QObject *parent = nullptr);
    ~LightroomService() override;
    Q_DISABLE_COPY_MOVE(LightroomService)

    [[nodiscard]] bool isPluginConnected() const { return m_isPluginConnected; }

    [[nodiscard]] const QString &lastMessage() const { return m_lastMessage; }

    /// A command is between send and reply.
    [[nodiscard]] bool isCommandInFlight() const { return m_isCommandInFlight; }

    /// How the last command to the plug-in ended.
    [[nodiscard]] BridgeExchange lastExchange() const { return m_lastExchange; }

    /// Where the plug-in listens.
    [[nodiscard]] quint16 bridgePort() const { return m_endpoint.port; }

    // The bridge.

    /// Sends one command, after those in flight, and gives the reply's text as it is. None when the command
    /// could not be written as JSON, could not be sent, or got no reply in time.
    QCoro::Task<std::optional<QString>> sendPluginCommand(LightroomPluginCommand command);

    /// Whether the plug-in answers.
    QCoro::Task<bool> ping(AutoStart autoStart);

    /// Starts the plug-in's server by its menu command; `lastMessage` says why not when it fails.
    QCoro::Task<bool> startLightroomBridgeFromMenu();

    /// Brings a running Lightroom to the front; false when none runs.
    QCoro::Task<bool> activateLightroom();

    // The operations. Each answers with the sentence for the user. Target paths are absolute paths of photos;
    // without any, the operation acts on the photo selected in Lightroom.

    QCoro::Task<QString> adjustSlider(ParsedLightroomSliderCommand change, QStringList targetPaths = {});

    /// @param adjustments "Slider:Value:Relative" items separated by ";", Relative 1 or 0
    QCoro::Task<QString> adjustSliders(QString adjustments, QStringList targetPaths = {});

    QCoro::Task<QString> applyPreset(QString name, QStringList targetPaths = {});

    QCoro::Task<QString> importFolder(QString path);

    /// @param type "pick", "reject" or "unflag"
    QCoro::Task<QString> cullPhoto(QString type, QStringList targetPaths = {});

    QCoro::Task<QString> setRating(qint64 value, QStringList targetPaths = {});

    /// @param direction "prev" in any case goes back, anything else goes on
    QCoro::Task<QString> navigate(QString direction);

    QCoro::Task<QString> getStatus();

    // The plug-in's installation.

    /// Writes the plug-in's files; prints the reason when that fails.
    bool installPlugin();

    /// How the last installation went.
    [[nodiscard]] bool isPluginInstalled() const { return m_isPluginInstalled; }

    /// Whether all of the plug-in's files are in its folder now.
    [[nodiscard]] bool isPluginInPlace() const { return m_installer.isInPlace(); }

    /// Shows the plug-in's folder in the file manager.
    void revealInstalledPlugin();

    /// Opens Lightroom Classic's Plug-in Manager. Reports nothing.
    QCoro::Task<> openPluginManager();

Q_SIGNALS:
    void isPluginConnectedChanged();
    void lastMessageChanged();
    /// A connection test or an operation is done with the plug-in, with or without an answer.
    void exchangeEnded();

private:
    class CommandInFlight;

    void setPluginConnected(bool isConnected);
    void setLastMessage(const QString &message);

    QCoro::Task<QString> perform(LightroomOperation operation);

    QCoro::Task<QString> proceedWithoutPlugin(QString explanation);
    QCoro::Task<QString> proceedWithoutPlugin(KeyFallback fallback);
    QCoro::Task<QString> proceedWithoutPlugin(SliderFallback fallback);
    QCoro::Task<bool> adjustSliderAccessibility(ParsedLightroomSliderCommand change);
    QCoro::Task<> pressAndWait(QLatin1StringView keyDescription, BridgeTiming::milliseconds pause);

    RunningApplications &m_applications;
    Accessibility &m_accessibility;
    LightroomMenus &m_menus;
    UIAutomationService &m_automation;
    LightroomPluginInstaller m_installer;
    DebugLog m_log;
    BridgeEndpoint m_endpoint;
    BridgeTiming m_timing;
    std::FILE *m_report;
    bool m_isPluginConnected = false;
    bool m_isPluginInstalled = false;
    bool m_isCommandInFlight = false;
    BridgeExchange m_lastExchange = BridgeExchange::none;
    QString m_lastMessage;
};

} // namespace KelvaLR
