#pragma once

#include "Rendering/DevelopLook.h"

#include <QFutureWatcher>
#include <QImage>
#include <QObject>

#include <optional>

namespace StandIn {

/// A photo as it is to be shown.
struct RenderRequest
{
    QString path;
    DevelopLook look;

    bool operator==(const RenderRequest &) const = default;
};

/// Renders photos off the main thread, one at a time; of what is asked for meanwhile only the latest is done.
/// The photo that was decoded last is kept, so that another look of it comes quickly.
class LatestRendering : public QObject
{
    Q_OBJECT

public:
    explicit LatestRendering(QSize largest);

    void request(const RenderRequest &request);

Q_SIGNALS:
    void rendered(const QString &path, const QImage &picture); ///< null when the photo cannot be read

private:
    struct Result
    {
        RenderRequest request;
        QImage photo;
        QImage picture;
    };

    void start(const RenderRequest &request);
    void finish();

    QSize m_largest;
    QFutureWatcher<Result> m_running;
    std::optional<RenderRequest> m_next;
    QString m_decodedPath;
    QImage m_decoded;
};

} // namespace StandIn
