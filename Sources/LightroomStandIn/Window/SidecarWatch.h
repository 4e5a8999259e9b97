#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

namespace StandIn {

class Catalog;

/// Has the catalog announce its photos when another program may have written their sidecars.
class SidecarWatch : public QObject
{
    Q_OBJECT

public:
    explicit SidecarWatch(const Catalog &catalog);

private:
    void watch();

    const Catalog &m_catalog;
    QFileSystemWatcher m_watcher;
    QTimer m_settled; ///< one write makes several events
};

} // namespace StandIn
