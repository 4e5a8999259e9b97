#pragma once

#include "App/ComputerControlConsent.h"
#include "App/LocalSpeech.h"
#include "Platform/Linux/AccessibleLightroomMenus.h"
#include "Platform/Linux/AtSpiAccessibility.h"
#include "Platform/Linux/AudioThread.h"
#include "Platform/Linux/DesktopApplications.h"
#include "Platform/Linux/ProcListeningPrograms.h"
#include "Platform/Linux/QtAudioInput.h"
#include "Platform/Linux/QtAudioOutput.h"
#include "Platform/Linux/SettingsPreferences.h"
#include "Platform/Linux/WindowPing.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/XTestInputEvents.h"
#include "Services/Assistant/AssistantActionRunner.h"
#include "Services/Assistant/OpenAIAssistantProvider.h"
#include "Services/Assistant/Realtime/OpenAIRealtimeVoiceService.h"
#include "Services/Automation/UIAutomationService.h"
#include "Services/Lightroom/LightroomConnectionWatch.h"
#include "Services/Lightroom/LightroomService.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Services/Speech/SilentVoice.h"
#include "Stores/AppModel.h"

#include <cstdio>
#include <memory>

namespace KelvaLR {

/// The one place where ports, services and the model meet. Members are made from the system outward, so they
/// are destroyed from the model inward. Making it installs the Lightroom plug-in.
class KelvaLRApp
{
public:
    /// Whether the program listens for the wake phrase and reads aloud: at a window, but not in a terminal.
    enum class Speech { off, on };

    /// @param diagnostics where a failed installation is reported
    KelvaLRApp(std::FILE *diagnostics, Speech speech);

    [[nodiscard]] AppModel &model() { return m_model; }

    [[nodiscard]] Preferences &preferences() { return m_preferences; }

    [[nodiscard]] ComputerControlConsent &consent() { return m_consent; }

    [[nodiscard]] LightroomService &lightroomService() { return m_lightroomService; }

private:
    [[nodiscard]] WakePhraseListener &wakePhraseListener();
    [[nodiscard]] SpokenFeedback &spokenFeedback();

    SettingsPreferences m_preferences;
    X11Connection m_x11;
    ComputerControlConsent m_consent{m_preferences, m_x11};
    DesktopApplications m_applications{m_x11};
    ProcListeningPrograms m_listeningPrograms;
    AccessibilityBus m_accessibilityBus;
    AtSpiAccessibility m_accessibility;
    WindowPing m_windowPing;
    XTestInputEvents m_inputEvents;
    AccessibleLightroomMenus m_lightroomMenus{m_applications, m_accessibility};
    AudioThread m_audioThread;
    QtAudioInput m_audioInput{m_audioThread};
    QtAudioOutput m_audioOutput{m_audioThread};

    UIAutomationService m_automation;
    LightroomService m_lightroomService;
    LightroomConnectionWatch m_lightroomConnection{m_lightroomService, m_applications, m_listeningPrograms};
    MacComputerUseService m_computerUseService;

    OpenAIAccess m_openAIAccess;
    OpenAIAssistantProvider m_assistantProvider;
    OpenAIRealtimeVoiceService m_realtimeVoiceService;
    AssistantActionRunner m_assistantActions;
    DeafWakePhraseListener m_deafness;
    SilentSpokenFeedback m_silence;
    std::unique_ptr<LocalSpeech> m_speech; ///< none in a terminal

    AppModel m_model;
};

} // namespace KelvaLR
