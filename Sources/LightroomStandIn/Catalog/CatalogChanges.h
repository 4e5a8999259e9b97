#pragma once

#include <QObject>

#include <vector>

namespace StandIn {

/// Says what has changed in a catalog, after it has; nothing can be changed through it. Main thread.
class CatalogChanges : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void selectionChanged(); ///< the active photo or the selected ones
    void photosAdded();      ///< at the end of the catalog's photos
    void photosChanged(const std::vector<int> &ids);
};

} // namespace StandIn
