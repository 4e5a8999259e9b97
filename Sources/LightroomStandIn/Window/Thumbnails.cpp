#include "Window/Thumbnails.h"

namespace StandIn {

Thumbnails::Thumbnails(QSize largest)
    : m_rendering(largest)
{
    connect(&m_rendering, &LatestRendering::rendered, this, &Thumbnails::keep);
}

QImage Thumbnails::picture(const RenderRequest &wanted)
{
    Entry &entry = m_entries[wanted.path];
    if (entry.request != wanted) {
        entry.request = wanted;
        if (m_waiting.lastIndexOf(wanted.path) < 1) { // else it is yet to be rendered, and as wanted now
            m_waiting.append(wanted.path);
        }
        if (m_waiting.size() == 1) {
            startNext();
        }
    }
    return entry.picture;
}

void Thumbnails::startNext()
{
    if (!m_waiting.isEmpty()) {
        m_rendering.request(m_entries.value(m_waiting.constFirst()).request);
    }
}

void Thumbnails::keep(const QString &path, const QImage &picture)
{
    m_entries[path].picture = picture;
    m_waiting.removeFirst();
    startNext();
    Q_EMIT ready(path);
}

} // namespace StandIn
