#include "Window/Filmstrip.h"

#include "Window/FilmstripDelegate.h"
#include "Window/PhotoActions.h"
#include "Window/Theme.h"

#include <QGuiApplication>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace StandIn {

Filmstrip::Filmstrip(const Catalog &catalog, PhotoActions &actions)
    : m_actions(actions)
    , m_model(catalog)
{
    setAccessibleName(u"Filmstrip"_s);
    setItemDelegate(new FilmstripDelegate(this));
    setModel(&m_model);
    setFlow(QListView::LeftToRight);
    setHorizontalScrollMode(QListView::ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QListView::NoSelection);
    setUniformItemSizes(true);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setViewportMargins(Theme::medium - Theme::unit, 0, Theme::medium - Theme::unit, 0);
    setFixedHeight(Theme::cellHeight + horizontalScrollBar()->sizeHint().height());
    connect(this, &QListView::pressed, this, &Filmstrip::choose);
    connect(&catalog.changes(), &CatalogChanges::selectionChanged, this,
            [this] { scrollTo(m_model.activeIndex()); });
}

void Filmstrip::choose(const QModelIndex &index)
{
    const int id = index.data(FilmstripModel::idRole).toInt();
    if (QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier)) {
        m_actions.toggleSelected(id);
    } else {
        m_actions.selectOnly(id);
    }
}

} // namespace StandIn
