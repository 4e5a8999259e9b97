#pragma once

#include "Views/ViewModels/LightroomHint.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace KelvaLR {

class AppModel;

/// The strip that says why requests cannot reach Lightroom, as the window binds it. Main thread. The model
/// outlives it.
class LightroomHintViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application.")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    // These keep what was shown last, for as long as it takes to fade.
    Q_PROPERTY(QString finding READ finding NOTIFY changed)
    Q_PROPERTY(QString advice READ advice NOTIFY changed)
    Q_PROPERTY(QStringList actions READ actions NOTIFY changed)

public:
    explicit LightroomHintViewModel(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] bool isShown() const { return m_isShown; }

    [[nodiscard]] const QString &finding() const { return m_hint.finding; }

    [[nodiscard]] const QString &advice() const { return m_hint.advice; }

    [[nodiscard]] const QStringList &actions() const { return m_hint.actions; }

    /// Something may have changed between us and Lightroom.
    void look();

    Q_INVOKABLE void dismiss();
    Q_INVOKABLE void openLightroom();

Q_SIGNALS:
    void changed();

private:
    void update();

    AppModel &m_model;
    LightroomHint m_hint;
    bool m_isShown = false;
};

} // namespace KelvaLR
