#pragma once

#include "Catalog/DevelopSettingTable.h"

#include <QSlider>

namespace StandIn {

/// The slider of one develop setting. Assistive technology reads and sets the setting's own values and
/// bounds, not the positions in between which the slider steps.
class DevelopSlider : public QSlider
{
    Q_OBJECT

public:
    explicit DevelopSlider(const DevelopSetting &setting, QWidget *parent = nullptr);

    [[nodiscard]] const DevelopSetting &setting() const { return m_setting; }

    [[nodiscard]] double settingValue() const { return m_value; }

    /// Shows what the photo has.
    void present(double value);

    /// The same as moving it there by hand.
    void choose(double value);

Q_SIGNALS:
    void settingChosen(double value); ///< by hand, by key or by assistive technology

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] QRect handle(int position) const;

    const DevelopSetting &m_setting;
    double m_value;
};

} // namespace StandIn
