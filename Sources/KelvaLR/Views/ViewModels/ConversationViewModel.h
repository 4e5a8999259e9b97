#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace KelvaLR {

class AppIntentRouter;
class AppModel;

/// The workspace and the menus as the window binds them: the composer, the voice state, the commands. Main
/// thread. What it is given outlives it.
class ConversationViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application.")
    Q_PROPERTY(QString promptText READ promptText WRITE setPromptText NOTIFY promptTextChanged)
    Q_PROPERTY(bool isResponding READ isResponding NOTIFY isRespondingChanged)
    /// The raw value of the realtime voice state.
    Q_PROPERTY(QString voiceState READ voiceState NOTIFY voiceStatusChanged)
    Q_PROPERTY(QString statusTitle READ statusTitle NOTIFY voiceStatusChanged)
    Q_PROPERTY(QString statusSubtitle READ statusSubtitle NOTIFY voiceStatusChanged)
    Q_PROPERTY(QString microphoneHelp READ microphoneHelp NOTIFY voiceStatusChanged)
    /// Where the folder chooser begins.
    Q_PROPERTY(QUrl picturesFolder READ picturesFolder CONSTANT)

public:
    ConversationViewModel(AppModel &model, AppIntentRouter &router, QObject *parent = nullptr);

    [[nodiscard]] QString promptText() const;
    void setPromptText(const QString &text);
    [[nodiscard]] bool isResponding() const;
    [[nodiscard]] QString voiceState() const;
    [[nodiscard]] QString statusTitle() const;
    [[nodiscard]] QString statusSubtitle() const;
    [[nodiscard]] QString microphoneHelp() const;
    [[nodiscard]] QUrl picturesFolder() const;

    /// The window is there: applies the route that waits, and from now on every new one.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void submitPrompt();
    Q_INVOKABLE void startNewSession();
    Q_INVOKABLE void focusPrompt();
    Q_INVOKABLE void enableVoice();
    Q_INVOKABLE void enableQuiet();
    Q_INVOKABLE void startComputerUseVoiceMode();
    /// Imports the folders among these places, one after the other; anything else is left out.
    Q_INVOKABLE void importFolders(const QList<QUrl> &places);

Q_SIGNALS:
    void promptTextChanged();
    void isRespondingChanged();
    void voiceStatusChanged();
    /// The composer is asked to take keyboard focus; emitted for every request.
    void promptFocusRequested();

private:
    void applyPendingRoute();

    AppModel &m_model;
    AppIntentRouter &m_router;
};

} // namespace KelvaLR
