#pragma once

#include "Views/ViewModels/AppearanceViewModel.h"
#include "Views/ViewModels/ArtifactViewModel.h"
#include "Views/ViewModels/ConversationViewModel.h"
#include "Views/ViewModels/LightroomHintViewModel.h"
#include "Views/ViewModels/SettingsViewModel.h"

#include <QQmlApplicationEngine>

class QQuickWindow;

namespace KelvaLR {

/// What the window shows and works on. Everything here outlives it.
struct MainWindowSources
{
    AppModel &model;
    AppIntentRouter &router;
    Preferences &preferences;
    LightroomService &lightroomService;
    Appearance &appearance;
};

/// Opens the main window: makes the view models and loads the QML. Main thread of a QGuiApplication.
class MainWindowHost
{
public:
    explicit MainWindowHost(const MainWindowSources &sources);

    /// Null when the QML could not be loaded; the engine has then said why on standard error.
    [[nodiscard]] QQuickWindow *window() const;

    [[nodiscard]] ConversationViewModel &conversation() { return m_conversation; }

    [[nodiscard]] ArtifactViewModel &artifact() { return m_artifact; }

    [[nodiscard]] SettingsViewModel &settings() { return m_settings; }

    [[nodiscard]] QQmlApplicationEngine &engine() { return m_engine; }

private:
    void watchLightroom();

    ConversationViewModel m_conversation;
    ArtifactViewModel m_artifact;
    SettingsViewModel m_settings;
    LightroomHintViewModel m_lightroomHint;
    AppearanceViewModel m_appearance;
    QQmlApplicationEngine m_engine;
};

} // namespace KelvaLR
