#pragma once

#include "Stores/AppModel.h"

#include <QPointer>

namespace KelvaLR {

/// Keeps `isResponding` true for as long as it lives. The model may die first.
class AppModel::RespondingScope
{
public:
    explicit RespondingScope(AppModel &model)
        : m_model(&model)
    {
        model.setResponding(true);
    }

    ~RespondingScope()
    {
        if (m_model) {
            m_model->setResponding(false);
        }
    }
    Q_DISABLE_COPY_MOVE(RespondingScope)

private:
    QPointer<AppModel> m_model;
};

} // namespace KelvaLR
