#include "Window/ModulePicker.h"

#include "Plugin/CurrentModule.h"
#include "Window/Theme.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace StandIn {

ModulePicker::ModulePicker(CurrentModule &module)
    : m_module(module)
{
    auto *name = new QLabel(QCoreApplication::applicationName());
    name->setFont(Theme::headingFont());
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Theme::medium, 0, Theme::medium, 0);
    layout->setSpacing(Theme::unit);
    layout->addWidget(name);
    layout->addStretch();
    addModule(*layout, u"Library"_s, libraryModule);
    addModule(*layout, u"Develop"_s, developModule);
    setFixedHeight(Theme::headerHeight);
}

void ModulePicker::addModule(QHBoxLayout &layout, const QString &title, const char *name)
{
    auto *button = new QPushButton(title);
    button->setObjectName(u"module"_s);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(title);
    const auto present = [this, button, name] { button->setChecked(m_module.name() == name); };
    // Assistive technology toggles a button of a group and does not click it.
    connect(button, &QPushButton::toggled, this, [this, name](bool isChosen) {
        if (isChosen) {
            m_module.switchTo(name);
        }
    });
    connect(&m_module, &CurrentModule::switched, button, present);
    present();
    layout.addWidget(button);
}

} // namespace StandIn
