#pragma once

#include <QMenuBar>

namespace StandIn {

class PhotoActions;
class PluginHost;

/// The menus with their keys. A key acts alone: with Control, Alt or Super it is another one. So the menus
/// have no mnemonics either.
class MenuBar : public QMenuBar
{
    Q_OBJECT

public:
    MenuBar(PluginHost &host, PhotoActions &actions);

Q_SIGNALS:
    void pluginManagerRequested();
    void failed(const QString &sentence);

private:
    void addFileMenu();
    void addLibraryMenu();
    void addPhotoMenu();
    void addViewMenu();
    void listPluginExtras(QMenu &extras);

    PluginHost &m_host;
    PhotoActions &m_actions;
};

} // namespace StandIn
