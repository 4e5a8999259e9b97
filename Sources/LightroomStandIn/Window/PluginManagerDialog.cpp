#include "Window/PluginManagerDialog.h"

#include "Plugin/PluginHost.h"
#include "Window/Theme.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

QString statusText(PluginState state)
{
    switch (state) {
    case PluginState::absent:
        return u"Not installed"_s;
    case PluginState::loaded:
        return u"Installed, not running yet"_s;
    case PluginState::running:
        return u"Installed and running"_s;
    }
    return {};
}

} // namespace

PluginManagerDialog::PluginManagerDialog(PluginHost &host, QWidget *parent)
    : QDialog(parent)
    , m_host(host)
{
    setWindowTitle(u"Lightroom Plug-in Manager"_s);
    setMinimumWidth(140 * Theme::unit);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Theme::large, Theme::large, Theme::large, Theme::large);
    layout->setSpacing(Theme::large);
    auto *facts = new QFormLayout;
    facts->setHorizontalSpacing(Theme::medium);
    facts->setVerticalSpacing(Theme::small);
    m_name = addFact(*facts, u"Plug-in"_s);
    m_path = addFact(*facts, u"Path"_s);
    m_status = addFact(*facts, u"Status"_s);
    layout->addLayout(facts);
    auto *reload = new QPushButton(u"Reload Plug-in"_s);
    auto *done = new QPushButton(u"Done"_s);
    done->setDefault(true);
    done->setFocus();
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(reload);
    buttons->addWidget(done);
    layout->addLayout(buttons);
    connect(reload, &QPushButton::clicked, this, &PluginManagerDialog::reload);
    connect(done, &QPushButton::clicked, this, &QDialog::close);
    connect(&host, &PluginHost::stateChanged, this, &PluginManagerDialog::present);
    present();
}

QLabel *PluginManagerDialog::addFact(QFormLayout &facts, const QString &title)
{
    auto *name = new QLabel(title);
    name->setObjectName(u"secondary"_s);
    auto *value = new QLabel;
    value->setWordWrap(true);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    facts.addRow(name, value);
    return value;
}

void PluginManagerDialog::reload()
{
    if (const auto loaded = m_host.load(); !loaded) {
        Q_EMIT failed(loaded.error());
    }
}

void PluginManagerDialog::present()
{
    const QString name = m_host.manifest().name;
    m_name->setText(name.isEmpty() ? u"None"_s : name);
    m_path->setText(QFileInfo(m_host.folder()).absoluteFilePath());
    m_status->setText(statusText(m_host.state()));
}

} // namespace StandIn
