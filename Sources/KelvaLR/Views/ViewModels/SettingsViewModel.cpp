#include "Views/ViewModels/SettingsViewModel.h"

#include "Platform/Preferences.h"
#include "Services/Lightroom/LightroomSentences.h"
#include "Services/Lightroom/LightroomService.h"
#include "Support/DetachedTask.h"

#include <QPointer>
#include <QScopeGuard>

namespace KelvaLR {

using namespace Qt::StringLiterals;

SettingsViewModel::SettingsViewModel(Preferences &preferences, LightroomService &lightroom, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_lightroom(lightroom)
{
    connect(&lightroom, &LightroomService::isPluginConnectedChanged, this,
            &SettingsViewModel::isPluginConnectedChanged);
}

bool SettingsViewModel::startInQuietMode() const
{
    return m_preferences.isOn(Preference::startInQuietMode);
}

void SettingsViewModel::setStartInQuietMode(bool isOn)
{
    setPreference(Preference::startInQuietMode, isOn);
}

bool SettingsViewModel::readResponsesAloud() const
{
    return m_preferences.isOn(Preference::readResponsesAloud);
}

void SettingsViewModel::setReadResponsesAloud(bool isOn)
{
    setPreference(Preference::readResponsesAloud, isOn);
}

bool SettingsViewModel::allowComputerControl() const
{
    return m_preferences.isOn(Preference::allowComputerControl);
}

void SettingsViewModel::setAllowComputerControl(bool isOn)
{
    setPreference(Preference::allowComputerControl, isOn);
}

bool SettingsViewModel::isPluginConnected() const
{
    return m_lightroom.isPluginConnected();
}

QString SettingsViewModel::resultText() const
{
    return m_lrInstallationResult.isEmpty()
               ? u"This installs the KelvaLR helper module to Lightroom Classic's default Modules folder."_s
               : m_lrInstallationResult;
}

QString SettingsViewModel::resultTone() const
{
    if (m_lrInstallationResult.isEmpty()) {
        return u"note"_s;
    }
    return m_lrInstallationResult.contains("installed"_L1) ? u"success"_s : u"failure"_s;
}

void SettingsViewModel::reread()
{
    Q_EMIT preferencesChanged();
}

void SettingsViewModel::askForComputerControl()
{
    Q_EMIT computerControlAsked();
}

void SettingsViewModel::installPlugin()
{
    setInstallationResult(
        m_lightroom.installPlugin()
            ? u"Plugin installed. Add it in Lightroom Classic's Plug-in Manager if it is not listed, then "
              "restart Lightroom Classic."_s
            : u"Installation failed."_s);
    Q_EMIT pluginTended();
}

void SettingsViewModel::openPluginManager()
{
    startDetached(m_lightroom.openPluginManager());
    Q_EMIT pluginTended();
}

void SettingsViewModel::revealInstalledPlugin()
{
    m_lightroom.revealInstalledPlugin();
    Q_EMIT pluginTended();
}

void SettingsViewModel::testConnection()
{
    if (!m_isTesting) {
        startDetached(ping());
    }
}

QCoro::Task<> SettingsViewModel::ping()
{
    const QPointer<SettingsViewModel> self(this);
    setTesting(true);
    const auto testing = qScopeGuard([self] {
        if (self) {
            self->setTesting(false);
        }
    });
    const bool isConnected = co_await m_lightroom.ping(AutoStart::yes);
    if (!self) {
        co_return;
    }
    setInstallationResult(isConnected
                              ? connectedToPlugin()
                              : u"Not connected. In Lightroom Classic, open File > Plug-in Manager and add "
                                "the revealed KelvaLR.lrplugin folder."_s);
}

void SettingsViewModel::setPreference(Preference preference, bool isOn)
{
    if (m_preferences.isOn(preference) != isOn) {
        m_preferences.setOn(preference, isOn);
        Q_EMIT preferencesChanged();
    }
}

void SettingsViewModel::setInstallationResult(const QString &text)
{
    if (m_lrInstallationResult != text) {
        m_lrInstallationResult = text;
        Q_EMIT resultChanged();
    }
}

void SettingsViewModel::setTesting(bool isTesting)
{
    if (m_isTesting != isTesting) {
        m_isTesting = isTesting;
        Q_EMIT isTestingChanged();
    }
}

} // namespace KelvaLR
