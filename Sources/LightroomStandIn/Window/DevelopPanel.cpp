#include "Window/DevelopPanel.h"

#include "Catalog/Catalog.h"
#include "Window/DevelopSlider.h"
#include "Window/PhotoActions.h"
#include "Window/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace StandIn {

DevelopPanel::DevelopPanel(const Catalog &catalog, PhotoActions &actions)
    : m_catalog(catalog)
    , m_actions(actions)
{
    auto *content = new QWidget;
    content->setObjectName(u"panel"_s);
    auto *rows = new QVBoxLayout(content);
    rows->setContentsMargins(Theme::medium, Theme::small, Theme::medium, Theme::medium);
    rows->setSpacing(0);
    QLatin1StringView group;
    for (const DevelopSetting &setting : developSettings()) {
        if (setting.group != group) {
            group = setting.group;
            addHeading(*rows, group);
        }
        addRow(*rows, setting);
    }
    rows->addStretch();

    setObjectName(u"panel"_s);
    setAccessibleName(u"Develop settings"_s);
    setWidget(content);
    setWidgetResizable(true);
    setFixedWidth(Theme::panelWidth);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    connect(&catalog.changes(), &CatalogChanges::selectionChanged, this, &DevelopPanel::present);
    connect(&catalog.changes(), &CatalogChanges::photosChanged, this, &DevelopPanel::present);
    present();
}

void DevelopPanel::addHeading(QVBoxLayout &rows, const QString &text)
{
    auto *heading = new QLabel(text);
    heading->setObjectName(u"heading"_s);
    heading->setFont(Theme::headingFont());
    heading->setContentsMargins(0, Theme::medium, 0, Theme::unit);
    rows.addWidget(heading);
}

/// The label, its slider and its value are siblings, so that the slider is found beside its label.
void DevelopPanel::addRow(QVBoxLayout &rows, const DevelopSetting &setting)
{
    auto *row = new QWidget;
    auto *slider = new DevelopSlider(setting);
    auto *label = new QLabel(setting.label);
    auto *value = new QLabel;
    label->setFont(Theme::smallFont());
    label->setObjectName(u"secondary"_s);
    label->setFixedWidth(28 * Theme::unit);
    value->setFont(Theme::smallFont());
    value->setFixedWidth(10 * Theme::unit);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::small);
    layout->addWidget(label);
    layout->addWidget(slider, 1);
    layout->addWidget(value);
    row->setFixedHeight(7 * Theme::unit);
    rows.addWidget(row);
    connect(slider, &DevelopSlider::settingChosen, this,
            [this, &setting](double chosen) { m_actions.setDevelop(setting, chosen); });
    m_rows.push_back({slider, value});
}

void DevelopPanel::present()
{
    const auto state = m_catalog.state(m_catalog.activePhoto().value_or(0));
    widget()->setEnabled(state.has_value());
    const CameraRawSettings settings = state ? state->develop : CameraRawSettings();
    for (const Row &row : m_rows) {
        const DevelopSetting &setting = row.slider->setting();
        row.slider->present(setting.valueIn(settings));
        row.value->setText(setting.text(row.slider->settingValue()));
    }
}

} // namespace StandIn
