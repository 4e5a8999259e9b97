#include "Window/SidecarWatch.h"

#include "Catalog/Catalog.h"

#include <QFileInfo>

namespace StandIn {

namespace {

constexpr std::chrono::milliseconds settlingTime{100};

} // namespace

SidecarWatch::SidecarWatch(const Catalog &catalog)
    : m_catalog(catalog)
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(settlingTime);
    const auto settle = qOverload<>(&QTimer::start);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settled, settle);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_settled, settle);
    connect(&m_settled, &QTimer::timeout, this, [this] {
        watch();
        m_catalog.announceSidecars();
    });
    connect(&catalog.changes(), &CatalogChanges::photosAdded, this, &SidecarWatch::watch);
    watch();
}

/// A sidecar that is replaced shows in its folder, one that is written in place shows only in itself.
void SidecarWatch::watch()
{
    QSet<QString> paths;
    for (const Photo &photo : m_catalog.photos()) {
        paths.insert(QFileInfo(photo.path).path());
        if (QFileInfo::exists(photo.sidecarPath)) {
            paths.insert(photo.sidecarPath);
        }
    }
    for (const QString &watched : m_watcher.files() + m_watcher.directories()) {
        paths.remove(watched);
    }
    if (!paths.isEmpty()) {
        m_watcher.addPaths(paths.values());
    }
}

} // namespace StandIn
