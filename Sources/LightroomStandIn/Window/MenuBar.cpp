#include "Window/MenuBar.h"

#include "Plugin/PluginHost.h"
#include "Window/PhotoActions.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace StandIn {

MenuBar::MenuBar(PluginHost &host, PhotoActions &actions)
    : m_host(host)
    , m_actions(actions)
{
    setNativeMenuBar(false);
    addFileMenu();
    addLibraryMenu();
    addPhotoMenu();
    addViewMenu();
}

void MenuBar::addFileMenu()
{
    QMenu *menu = addMenu(u"File"_s);
    menu->addAction(u"Plug-in Manager..."_s, this, &MenuBar::pluginManagerRequested);
    menu->addSeparator();
    menu->addAction(u"Quit"_s, QKeySequence(QKeySequence::Quit), QCoreApplication::instance(),
                    &QCoreApplication::quit);
}

void MenuBar::addLibraryMenu()
{
    QMenu *menu = addMenu(u"Library"_s);
    menu->addAction(u"Previous Photo"_s, QKeySequence(Qt::Key_Left), this, [this] { m_actions.step(-1); });
    menu->addAction(u"Next Photo"_s, QKeySequence(Qt::Key_Right), this, [this] { m_actions.step(1); });
    menu->addSeparator();
    QMenu *extras = menu->addMenu(u"Plug-in Extras"_s);
    const auto list = [this, extras] { listPluginExtras(*extras); };
    connect(&m_host, &PluginHost::stateChanged, extras, list);
    list();
}

void MenuBar::listPluginExtras(QMenu &extras)
{
    const auto &items = m_host.manifest().libraryMenuItems;
    extras.clear();
    extras.setEnabled(!items.empty());
    for (const PluginMenuItem &item : items) {
        const auto choose = [this, title = item.title] {
            if (const auto chosen = m_host.chooseMenuItem(title); !chosen) {
                Q_EMIT failed(chosen.error());
            }
        };
        // The item's script may change the plug-in's state, and with it this list.
        connect(extras.addAction(item.title), &QAction::triggered, this, choose, Qt::QueuedConnection);
    }
}

void MenuBar::addPhotoMenu()
{
    struct Flag
    {
        QString title;
        Qt::Key key;
        int pickStatus;
    };

    QMenu *menu = addMenu(u"Photo"_s);
    for (const Flag &flag : {Flag{u"Flag as Pick"_s, Qt::Key_P, 1}, Flag{u"Unflag"_s, Qt::Key_U, 0},
                             Flag{u"Flag as Reject"_s, Qt::Key_X, -1}}) {
        menu->addAction(flag.title, QKeySequence(flag.key), this,
                        [this, flag] { m_actions.setPickStatus(flag.pickStatus); });
    }
    menu->addSeparator();
    constexpr int highestRating = 5;
    for (int stars = 0; stars <= highestRating; ++stars) {
        const QString title = stars == 0 ? u"No Rating"_s : u"Rating %1"_s.arg(QString::number(stars));
        menu->addAction(title, QKeySequence(Qt::Key_0 + stars), this,
                        [this, stars] { m_actions.setRating(stars); });
    }
}

void MenuBar::addViewMenu()
{
    struct View
    {
        QString title;
        Qt::Key key;
        const char *module;
    };

    QMenu *menu = addMenu(u"View"_s);
    for (const View &view :
         {View{u"Library"_s, Qt::Key_G, libraryModule}, View{u"Loupe"_s, Qt::Key_E, libraryModule},
          View{u"Develop"_s, Qt::Key_D, developModule}}) {
        menu->addAction(view.title, QKeySequence(view.key), this,
                        [this, view] { m_host.currentModule().switchTo(view.module); });
    }
}

} // namespace StandIn
