#include "Window/FilmstripModel.h"

#include "Window/Theme.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace StandIn {

FilmstripModel::FilmstripModel(const Catalog &catalog)
    : m_catalog(catalog)
    , m_rows(static_cast<int>(catalog.photos().size()))
    , m_thumbnails({2 * Theme::cellWidth, 2 * Theme::cellHeight})
{
    connect(&catalog.changes(), &CatalogChanges::selectionChanged, this, &FilmstripModel::announceAll);
    connect(&catalog.changes(), &CatalogChanges::photosAdded, this, &FilmstripModel::addPhotos);
    connect(&catalog.changes(), &CatalogChanges::photosChanged, this, &FilmstripModel::forget);
    connect(&m_thumbnails, &Thumbnails::ready, this, &FilmstripModel::announceAll);
}

int FilmstripModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

QVariant FilmstripModel::data(const QModelIndex &index, int role) const
{
    const Photo *photo = index.isValid() ? m_catalog.photo(index.row() + 1) : nullptr;
    if (!photo) {
        return {};
    }
    switch (role) {
    case cellRole:
        return QVariant::fromValue(cell(*photo));
    case idRole:
        return photo->id;
    case Qt::ToolTipRole:
        return QFileInfo(photo->path).fileName();
    case Qt::AccessibleTextRole:
        return description(*photo);
    default:
        return {};
    }
}

QModelIndex FilmstripModel::activeIndex() const
{
    return index(m_catalog.activePhoto().value_or(0) - 1);
}

FilmstripCell FilmstripModel::cell(const Photo &photo) const
{
    const PhotoState &known = state(photo.id);
    const auto &selected = m_catalog.selectedPhotos();
    return {.picture = m_thumbnails.picture({photo.path, DevelopLook::from(known.develop)}),
            .pickStatus = known.pickStatus,
            .stars = known.rating.value_or(0),
            .isSelected = std::ranges::find(selected, photo.id) != selected.end(),
            .isActive = m_catalog.activePhoto() == photo.id};
}

QString FilmstripModel::description(const Photo &photo) const
{
    const FilmstripCell shown = cell(photo);
    QStringList words{QFileInfo(photo.path).fileName()};
    if (shown.pickStatus != 0) {
        words.append(shown.pickStatus > 0 ? u"picked"_s : u"rejected"_s);
    }
    if (shown.stars > 0) {
        words.append(u"rating %1"_s.arg(QString::number(shown.stars)));
    }
    if (shown.isSelected) {
        words.append(shown.isActive ? u"active"_s : u"selected"_s);
    }
    return words.join(u", "_s);
}

const PhotoState &FilmstripModel::state(int id) const
{
    const auto known = m_states.constFind(id);
    return known != m_states.cend() ? *known
                                    : *m_states.insert(id, m_catalog.state(id).value_or(PhotoState()));
}

void FilmstripModel::forget(const std::vector<int> &ids)
{
    for (const int id : ids) {
        m_states.remove(id);
    }
    announceAll();
}

void FilmstripModel::addPhotos()
{
    const int rows = static_cast<int>(m_catalog.photos().size());
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    }
}

void FilmstripModel::announceAll()
{
    if (m_rows > 0) {
        Q_EMIT dataChanged(index(0), index(m_rows - 1));
    }
}

} // namespace StandIn
