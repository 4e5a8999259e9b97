#include "App/KelvaLRApp.h"

#include "Services/Lightroom/Language/LightroomFrontmost.h"
#include "Support/ProductConfiguration.h"

namespace KelvaLR {

KelvaLRApp::KelvaLRApp(std::FILE *diagnostics, Speech speech)
    : m_accessibility(m_accessibilityBus, [this](TrustPrompt prompt) { return m_consent.isGiven(prompt); })
    , m_inputEvents(
          m_x11, [this] { return m_windowPing.answered(); },
          // All input is meant for Lightroom, and another program would take it for its own.
          [this] { return isLightroomFrontmost(m_applications); })
    , m_automation(m_accessibility, m_inputEvents, m_applications)
    , m_lightroomService(m_applications, m_accessibility, m_lightroomMenus, m_automation,
                         LightroomPluginInstaller(), DebugLog(), {}, {}, diagnostics)
    , m_computerUseService(m_lightroomService, m_automation, m_applications)
    , m_openAIAccess(ProductConfiguration::current().openAIEnvironmentKeyName,
                     qEnvironmentVariable("OPENAI_BASE_URL"))
    , m_assistantProvider(m_openAIAccess)
    , m_realtimeVoiceService(m_openAIAccess, m_audioInput, m_audioOutput,
                             RealtimeToolRunner(m_lightroomService, m_computerUseService), DebugLog())
    , m_assistantActions(m_lightroomService, m_computerUseService)
    , m_speech(speech == Speech::on ? std::make_unique<LocalSpeech>(m_audioThread) : nullptr)
    , m_model({m_assistantProvider, m_computerUseService, m_realtimeVoiceService, wakePhraseListener(),
               spokenFeedback(), m_lightroomService, m_lightroomConnection, m_assistantActions,
               m_applications, m_preferences})
{
}

WakePhraseListener &KelvaLRApp::wakePhraseListener()
{
    if (m_speech) {
        return m_speech->listener;
    }
    return m_deafness;
}

SpokenFeedback &KelvaLRApp::spokenFeedback()
{
    if (m_speech) {
        return m_speech->feedback;
    }
    return m_silence;
}

} // namespace KelvaLR
