#include "Window/DevelopSlider.h"

#include "Window/AccessibleDevelopSlider.h"
#include "Window/Theme.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <cmath>

namespace StandIn {

namespace {

/// A range of many octaves, as of kelvins, is stepped through by ratios.
bool isByRatio(const DevelopSetting &setting)
{
    return setting.lowest > 0 && setting.highest > 10 * setting.lowest;
}

constexpr double positionsPerE = 1000; ///< of a range that is stepped through by ratios

int positionOf(const DevelopSetting &setting, double value)
{
    const double position =
        isByRatio(setting) ? positionsPerE * std::log(value) : value * std::pow(10.0, setting.decimals);
    return static_cast<int>(std::lround(position));
}

double valueAt(const DevelopSetting &setting, int position)
{
    constexpr double roundNumber = 10;
    const double value = isByRatio(setting)
                             ? std::round(std::exp(position / positionsPerE) / roundNumber) * roundNumber
                             : position / std::pow(10.0, setting.decimals);
    return setting.rounded(value);
}

} // namespace

DevelopSlider::DevelopSlider(const DevelopSetting &setting, QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
    , m_setting(setting)
    , m_value(setting.neutral)
{
    installAccessibleDevelopSliders();
    setAccessibleName(setting.label);
    setAccessibleDescription(setting.key); // some labels are shorter than the setting's name
    setRange(positionOf(setting, setting.lowest), positionOf(setting, setting.highest));
    setValue(positionOf(setting, setting.neutral));
    setSingleStep(std::max(1, (maximum() - minimum()) / 200));
    setPageStep(std::max(1, (maximum() - minimum()) / 20));
    setFocusPolicy(Qt::TabFocus);
    setMinimumHeight(5 * Theme::unit); // room for the focus ring
    connect(this, &QSlider::valueChanged, this, [this](int position) {
        m_value = valueAt(m_setting, position);
        Q_EMIT settingChosen(m_value);
    });
}

void DevelopSlider::present(double value)
{
    const QSignalBlocker quiet(this);
    m_value = m_setting.rounded(value);
    setValue(positionOf(m_setting, m_value));
}

void DevelopSlider::choose(double value)
{
    present(value);
    Q_EMIT settingChosen(m_value);
}

QRect DevelopSlider::handle(int position) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.sliderPosition = position;
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

void DevelopSlider::paintEvent(QPaintEvent *)
{
    constexpr double thickness = 3;
    constexpr double handleRadius = 6;
    constexpr double ringRadius = 9;
    const QPointF now = QRectF(handle(sliderPosition())).center();
    const QPointF neutral = QRectF(handle(positionOf(m_setting, m_setting.neutral))).center();
    const double left = QRectF(handle(minimum())).center().x();
    const double right = QRectF(handle(maximum())).center().x();
    const auto bar = [&](double from, double to) {
        return QRectF(QPointF(std::min(from, to), now.y() - thickness / 2),
                      QSizeF(std::abs(to - from), thickness));
    };

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(Theme::groove));
    painter.drawRoundedRect(bar(left, right), thickness / 2, thickness / 2);
    painter.setBrush(QColor(isEnabled() ? Theme::accent : Theme::groove));
    painter.drawRoundedRect(bar(neutral.x(), now.x()), thickness / 2, thickness / 2);
    painter.setBrush(QColor(isEnabled() ? Theme::text : Theme::groove));
    painter.drawEllipse(now, handleRadius, handleRadius);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(Theme::accent), 2));
        painter.drawEllipse(now, ringRadius, ringRadius);
    }
}

/// A wheel over the panel scrolls it; a photo is not changed in passing.
void DevelopSlider::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void DevelopSlider::mouseDoubleClickEvent(QMouseEvent *)
{
    choose(m_setting.neutral);
}

} // namespace StandIn
