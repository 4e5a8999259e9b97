#include "Views/ViewModels/ConversationViewModel.h"

#include "AppIntents/AppIntentRouter.h"
#include "Stores/AppModel.h"
#include "Stores/PhotoFolder.h"
#include "Support/DetachedTask.h"
#include "Views/ViewModels/VoiceStatus.h"

#include <QPointer>
#include <QStandardPaths>

namespace KelvaLR {

namespace {

QCoro::Task<> importInTurn(QPointer<AppModel> model, QList<QUrl> folders)
{
    for (const QUrl &folder : std::as_const(folders)) {
        if (!model) {
            co_return;
        }
        co_await model->importPhotos(folder);
    }
}

} // namespace

ConversationViewModel::ConversationViewModel(AppModel &model, AppIntentRouter &router, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_router(router)
{
    using Self = ConversationViewModel;
    connect(&model, &AppModel::promptTextChanged, this, &Self::promptTextChanged);
    connect(&model, &AppModel::isRespondingChanged, this, &Self::isRespondingChanged);
    connect(&model, &AppModel::realtimeVoiceStateChanged, this, &Self::voiceStatusChanged);
    connect(&model, &AppModel::isWakeWordListeningChanged, this, &Self::voiceStatusChanged);
    connect(&model, &AppModel::shouldFocusPromptChanged, this, &Self::promptFocusRequested);
}

QString ConversationViewModel::promptText() const
{
    return m_model.promptText();
}

void ConversationViewModel::setPromptText(const QString &text)
{
    m_model.setPromptText(text);
}

bool ConversationViewModel::isResponding() const
{
    return m_model.isResponding();
}

QString ConversationViewModel::voiceState() const
{
    return rawValue(m_model.realtimeVoiceState());
}

QString ConversationViewModel::statusTitle() const
{
    return KelvaLR::statusTitle(m_model.realtimeVoiceState());
}

QString ConversationViewModel::statusSubtitle() const
{
    return KelvaLR::statusSubtitle(m_model.realtimeVoiceState(), m_model.isWakeWordListening());
}

QString ConversationViewModel::microphoneHelp() const
{
    return KelvaLR::microphoneHelp(m_model.realtimeVoiceState());
}

QUrl ConversationViewModel::picturesFolder() const
{
    return QUrl::fromLocalFile(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
}

void ConversationViewModel::appear()
{
    connect(&m_router, &AppIntentRouter::pendingRouteChanged, this, &ConversationViewModel::applyPendingRoute,
            Qt::UniqueConnection);
    applyPendingRoute();
}

void ConversationViewModel::applyPendingRoute()
{
    if (const auto &route = m_router.pendingRoute()) {
        m_model.applyIntentRoute(*route);
    }
}

void ConversationViewModel::submitPrompt()
{
    m_model.submitPrompt();
}

void ConversationViewModel::startNewSession()
{
    m_model.startNewSession();
}

void ConversationViewModel::focusPrompt()
{
    m_model.requestPromptFocus();
}

void ConversationViewModel::enableVoice()
{
    m_model.setMode(InputMode::voice);
}

void ConversationViewModel::enableQuiet()
{
    m_model.setMode(InputMode::quiet);
}

void ConversationViewModel::startComputerUseVoiceMode()
{
    m_model.startComputerUseVoiceMode();
}

void ConversationViewModel::importFolders(const QList<QUrl> &places)
{
    startDetached(importInTurn(&m_model, foldersAmong(places)));
}

} // namespace KelvaLR
