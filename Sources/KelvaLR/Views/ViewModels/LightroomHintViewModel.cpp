#include "Views/ViewModels/LightroomHintViewModel.h"

#include "Stores/AppModel.h"

namespace KelvaLR {

LightroomHintViewModel::LightroomHintViewModel(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::lightroomHintChanged, this, &LightroomHintViewModel::update);
    update();
}

void LightroomHintViewModel::look()
{
    m_model.lookAtLightroom();
}

void LightroomHintViewModel::dismiss()
{
    m_model.dismissLightroomHint();
}

void LightroomHintViewModel::openLightroom()
{
    m_model.openLightroom();
}

void LightroomHintViewModel::update()
{
    const std::optional<LightroomConnection> connection = m_model.lightroomHint();
    const LightroomHint hint = connection ? lightroomHint(*connection) : m_hint;
    if (m_isShown != connection.has_value() || m_hint != hint) {
        m_isShown = connection.has_value();
        m_hint = hint;
        Q_EMIT changed();
    }
}

} // namespace KelvaLR
