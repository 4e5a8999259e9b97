#pragma once

#include "Catalog/Catalog.h"
#include "Window/Thumbnails.h"

#include <QAbstractListModel>

namespace StandIn {

/// What a cell of the filmstrip shows.
struct FilmstripCell
{
    QImage picture;
    int pickStatus = 0;
    int stars = 0;
    bool isSelected = false;
    bool isActive = false;
};

/// The photos of the catalog, in its order.
class FilmstripModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        cellRole = Qt::UserRole,
        idRole,
    };

    explicit FilmstripModel(const Catalog &catalog);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

    /// The place of the active photo; invalid when there is none.
    [[nodiscard]] QModelIndex activeIndex() const;

private:
    [[nodiscard]] FilmstripCell cell(const Photo &photo) const;
    [[nodiscard]] QString description(const Photo &photo) const;
    [[nodiscard]] const PhotoState &state(int id) const;
    void forget(const std::vector<int> &ids);
    void addPhotos();
    void announceAll();

    const Catalog &m_catalog;
    int m_rows;                              ///< photos that have been announced
    mutable QHash<int, PhotoState> m_states; ///< read when they are first asked for
    mutable Thumbnails m_thumbnails;
};

} // namespace StandIn

Q_DECLARE_METATYPE(StandIn::FilmstripCell)
