#include "Window/LatestRendering.h"

#include "Rendering/PhotoDecoder.h"
#include "Rendering/PhotoRenderer.h"

#include <QtConcurrentRun>

#include <utility>

namespace StandIn {

LatestRendering::LatestRendering(QSize largest)
    : m_largest(largest)
{
    connect(&m_running, &QFutureWatcher<Result>::finished, this, &LatestRendering::finish);
}

void LatestRendering::request(const RenderRequest &request)
{
    if (m_running.isRunning()) {
        m_next = request;
    } else {
        start(request);
    }
}

void LatestRendering::start(const RenderRequest &request)
{
    const QImage known = request.path == m_decodedPath ? m_decoded : QImage();
    m_running.setFuture(QtConcurrent::run([request, known, largest = m_largest]() -> Result {
        const QImage photo = known.isNull() ? decodePhoto(request.path, largest) : known;
        return {request, photo, photo.isNull() ? QImage() : developed(photo, request.look)};
    }));
}

void LatestRendering::finish()
{
    const Result result = m_running.result();
    m_decodedPath = result.request.path;
    m_decoded = result.photo;
    const auto next = std::exchange(m_next, std::nullopt);
    if (next && *next != result.request) {
        start(*next);
    }
    if (!next || next->path == result.request.path) {
        Q_EMIT rendered(result.request.path, result.picture);
    }
}

} // namespace StandIn
