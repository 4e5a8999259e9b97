#pragma once

#include "Window/FilmstripModel.h"

#include <QListView>

namespace StandIn {

class PhotoActions;

/// The row of photos below the preview. What is selected is the catalog's; the view only shows it.
class Filmstrip : public QListView
{
    Q_OBJECT

public:
    Filmstrip(const Catalog &catalog, PhotoActions &actions);

private:
    void choose(const QModelIndex &index);

    PhotoActions &m_actions;
    FilmstripModel m_model;
};

} // namespace StandIn
