#pragma once

#include "Window/LatestRendering.h"

#include <QHash>
#include <QList>

namespace StandIn {

/// Small pictures of photos, made one after the other off the main thread when they are first asked for.
class Thumbnails : public QObject
{
    Q_OBJECT

public:
    explicit Thumbnails(QSize largest);

    /// The photo's picture; an older one of it, or a null one, until ready() tells that it is made.
    [[nodiscard]] QImage picture(const RenderRequest &wanted);

Q_SIGNALS:
    void ready(const QString &path);

private:
    struct Entry
    {
        RenderRequest request;
        QImage picture;
    };

    void startNext();
    void keep(const QString &path, const QImage &picture);

    LatestRendering m_rendering;
    QHash<QString, Entry> m_entries; ///< by path
    QList<QString> m_waiting;        ///< the first is being rendered
};

} // namespace StandIn
