#include "Window/AccessibleDevelopSlider.h"

#include "Window/DevelopSlider.h"

#include <QAccessibleWidget>

#include <cmath>

namespace StandIn {

namespace {

class AccessibleDevelopSlider : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleDevelopSlider(DevelopSlider &slider)
        : QAccessibleWidget(&slider, QAccessible::Slider)
        , m_slider(slider)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? m_slider.setting().text(m_slider.settingValue())
                                          : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return m_slider.settingValue(); }

    QVariant minimumValue() const override { return m_slider.setting().lowest; }

    QVariant maximumValue() const override { return m_slider.setting().highest; }

    QVariant minimumStepSize() const override { return std::pow(10.0, -m_slider.setting().decimals); }

    void setCurrentValue(const QVariant &value) override
    {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (isNumber && std::isfinite(number) && m_slider.isEnabled()) {
            m_slider.choose(number);
        }
    }

private:
    DevelopSlider &m_slider; ///< its interface goes before it
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *slider = qobject_cast<DevelopSlider *>(object);
    return slider ? new AccessibleDevelopSlider(*slider) : nullptr;
}

} // namespace

void installAccessibleDevelopSliders()
{
    QAccessible::installFactory(makeInterface); // one that is there already is not added again
}

} // namespace StandIn
