#include "Window/MainWindow.h"

#include "Catalog/Catalog.h"
#include "Plugin/PluginHost.h"
#include "Window/DevelopPanel.h"
#include "Window/Filmstrip.h"
#include "Window/MenuBar.h"
#include "Window/MessageBar.h"
#include "Window/ModulePicker.h"
#include "Window/PhotoBar.h"
#include "Window/PluginManagerDialog.h"
#include "Window/Preview.h"
#include "Window/Theme.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

constexpr QSize firstSize(1240, 900);

QWidget *makeHairline()
{
    auto *line = new QWidget; // a QFrame would be a window to assistive technology
    line->setAttribute(Qt::WA_StyledBackground);
    line->setObjectName(u"hairline"_s);
    line->setFixedHeight(1);
    return line;
}

QLabel *makeStatusLine()
{
    auto *status = new QLabel;
    status->setObjectName(u"secondary"_s);
    status->setFont(Theme::smallFont());
    status->setContentsMargins(Theme::medium, 0, Theme::medium, 0);
    status->setFixedHeight(7 * Theme::unit);
    return status;
}

} // namespace

MainWindow::MainWindow(Catalog &catalog, PluginHost &host)
    : m_catalog(catalog)
    , m_host(host)
    , m_actions(catalog)
    , m_sidecarWatch(catalog)
    , m_messages(new MessageBar)
    , m_preview(new Preview(catalog))
    , m_developPanel(new DevelopPanel(catalog, m_actions))
    , m_status(makeStatusLine())
{
    setWindowTitle(QCoreApplication::applicationName());
    resize(firstSize.boundedTo(screen()->availableSize() * 0.9));
    addMenus();
    addContent();
    connect(&m_actions, &PhotoActions::answered, m_status, &QLabel::setText);
    connect(&catalog.changes(), &CatalogChanges::selectionChanged, m_status, &QLabel::clear);
    connect(&m_actions, &PhotoActions::failed, this, &MainWindow::showFailure);
    connect(&host, &PluginHost::messageShown, this, &MainWindow::showMessage);
    connect(&host.currentModule(), &CurrentModule::switched, this, &MainWindow::presentModule);
    presentModule();
    m_preview->setFocus();
}

MainWindow::~MainWindow() = default;

void MainWindow::addMenus()
{
    auto *menus = new MenuBar(m_host, m_actions);
    setMenuBar(menus);
    connect(menus, &MenuBar::pluginManagerRequested, this, &MainWindow::showPluginManager);
    connect(menus, &MenuBar::failed, this, &MainWindow::showFailure);
}

void MainWindow::addContent()
{
    auto *photoBar = new PhotoBar(m_catalog, m_actions);
    connect(photoBar, &PhotoBar::keywordFieldLeft, m_preview, qOverload<>(&QWidget::setFocus));
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new ModulePicker(m_host.currentModule()));
    layout->addWidget(makeHairline());
    layout->addWidget(m_messages);
    layout->addWidget(makeStage(), 1);
    layout->addWidget(makeHairline());
    layout->addWidget(photoBar);
    layout->addWidget(new Filmstrip(m_catalog, m_actions));
    layout->addWidget(m_status);
    setCentralWidget(content);
}

QWidget *MainWindow::makeStage()
{
    auto *stage = new QWidget;
    auto *layout = new QHBoxLayout(stage);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_preview, 1);
    layout->addWidget(m_developPanel);
    return stage;
}

void MainWindow::presentModule()
{
    m_developPanel->setVisible(m_host.currentModule().name() == developModule);
}

void MainWindow::showMessage(const DialogMessage &message)
{
    m_messages->present(message);
}

void MainWindow::showFailure(const QString &sentence)
{
    showMessage({.title = windowTitle(), .text = sentence, .kind = u"critical"_s});
}

void MainWindow::showPluginManager()
{
    if (!m_pluginManager) {
        m_pluginManager = new PluginManagerDialog(m_host, this);
        connect(m_pluginManager, &PluginManagerDialog::failed, this, &MainWindow::showFailure);
    }
    m_pluginManager->show();
    m_pluginManager->raise();
    m_pluginManager->activateWindow();
}

/// The window system has the first paint made when it has put the window up.
void MainWindow::paintEvent(QPaintEvent *event)
{
    QMainWindow::paintEvent(event);
    if (!std::exchange(m_wasShown, true)) {
        Q_EMIT shown();
    }
}

/// The window is the program: an open Plug-in Manager does not keep it running.
void MainWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    QCoreApplication::quit();
}

} // namespace StandIn
