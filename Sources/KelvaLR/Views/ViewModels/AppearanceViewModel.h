#pragma once

#include "Platform/Appearance.h"

#include <QtQml/qqmlregistration.h>

namespace KelvaLR {

/// How the desktop wants the window to look. The port outlives it.
class AppearanceViewModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application.")
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(bool isMotionReduced READ isMotionReduced NOTIFY changed)

public:
    explicit AppearanceViewModel(const Appearance &appearance, QObject *parent = nullptr)
        : QObject(parent)
        , m_appearance(appearance)
    {
        connect(&appearance, &Appearance::changed, this, &AppearanceViewModel::changed);
    }

    [[nodiscard]] bool isDark() const { return m_appearance.isDark(); }

    [[nodiscard]] bool isMotionReduced() const { return m_appearance.isMotionReduced(); }

Q_SIGNALS:
    void changed();

private:
    const Appearance &m_appearance;
};

} // namespace KelvaLR
