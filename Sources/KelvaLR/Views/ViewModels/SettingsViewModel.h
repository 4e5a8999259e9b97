#pragma once

#include <QCoroTask>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace KelvaLR {

class LightroomService;
class Preferences;
enum class Preference;

/// The settings window: three preferences and the Lightroom plug-in. Main thread. What it is given outlives
/// it.
class SettingsViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application.")
    Q_PROPERTY(
        bool startInQuietMode READ startInQuietMode WRITE setStartInQuietMode NOTIFY preferencesChanged)
    Q_PROPERTY(
        bool readResponsesAloud READ readResponsesAloud WRITE setReadResponsesAloud NOTIFY preferencesChanged)
    Q_PROPERTY(bool allowComputerControl READ allowComputerControl WRITE setAllowComputerControl NOTIFY
                   preferencesChanged)
    Q_PROPERTY(bool isPluginConnected READ isPluginConnected NOTIFY isPluginConnectedChanged)
    /// What the last button did, or the note that stands there before any.
    Q_PROPERTY(QString resultText READ resultText NOTIFY resultChanged)
    /// "note", "success" or "failure".
    Q_PROPERTY(QString resultTone READ resultTone NOTIFY resultChanged)
    Q_PROPERTY(bool isTesting READ isTesting NOTIFY isTestingChanged)

public:
    SettingsViewModel(Preferences &preferences, LightroomService &lightroom, QObject *parent = nullptr);

    [[nodiscard]] bool startInQuietMode() const;
    void setStartInQuietMode(bool isOn);
    [[nodiscard]] bool readResponsesAloud() const;
    void setReadResponsesAloud(bool isOn);
    [[nodiscard]] bool allowComputerControl() const;
    void setAllowComputerControl(bool isOn);

    [[nodiscard]] bool isPluginConnected() const;
    [[nodiscard]] QString resultText() const;
    [[nodiscard]] QString resultTone() const;

    [[nodiscard]] bool isTesting() const { return m_isTesting; }

    /// Shows what the preferences are now: another process may have changed them.
    Q_INVOKABLE void reread();

    /// Leads the user to the setting that was missing for something that was asked for.
    void askForComputerControl();

    Q_INVOKABLE void installPlugin();
    Q_INVOKABLE void openPluginManager();
    Q_INVOKABLE void revealInstalledPlugin();
    /// Asks the plug-in for an answer; a second call while one is under way does nothing.
    Q_INVOKABLE void testConnection();

Q_SIGNALS:
    /// The setting "Allow Computer Control" should be shown.
    void computerControlAsked();
    void preferencesChanged();
    void isPluginConnectedChanged();
    void resultChanged();
    void isTestingChanged();
    /// The plug-in may be about to come: it was installed, shown, or its manager opened.
    void pluginTended();

private:
    void setPreference(Preference preference, bool isOn);
    void setInstallationResult(const QString &text);
    void setTesting(bool isTesting);
    QCoro::Task<> ping();

    Preferences &m_preferences;
    LightroomService &m_lightroom;
    QString m_lrInstallationResult; ///< empty before any button was used
    bool m_isTesting = false;
};

} // namespace KelvaLR
