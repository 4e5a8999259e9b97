#pragma once

#include "Window/PhotoActions.h"
#include "Window/SidecarWatch.h"

#include <QMainWindow>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QLabel;
class QVBoxLayout;
QT_END_NAMESPACE

namespace StandIn {

class DevelopPanel;
class MessageBar;
class PluginHost;
class PluginManagerDialog;
class Preview;
struct DialogMessage;

/// A small Lightroom: one catalog, the modules Library and Develop, and the plug-in's menu items. It shows
/// what the catalog and the host say, and asks them for changes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Both must outlive the window.
    MainWindow(Catalog &catalog, PluginHost &host);
    ~MainWindow() override;

    void showMessage(const DialogMessage &message);
    void showFailure(const QString &sentence);

Q_SIGNALS:
    void shown(); ///< on the display, for the first time

protected:
    void paintEvent(QPaintEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void addMenus();
    void addContent();
    [[nodiscard]] QWidget *makeStage();
    void presentModule();
    void showPluginManager();

    Catalog &m_catalog;
    PluginHost &m_host;
    PhotoActions m_actions;
    SidecarWatch m_sidecarWatch;
    MessageBar *m_messages;
    Preview *m_preview;
    DevelopPanel *m_developPanel;
    QLabel *m_status;
    QPointer<PluginManagerDialog> m_pluginManager;
    bool m_wasShown = false;
};

} // namespace StandIn
