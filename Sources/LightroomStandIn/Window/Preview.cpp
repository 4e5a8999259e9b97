#include "Window/Preview.h"

#include "Catalog/Catalog.h"
#include "Window/Theme.h"

#include <QFileInfo>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

/// In pixels; enough for a large window, and rendered while a slider moves.
constexpr QSize largestPreview(1600, 1200);

} // namespace

Preview::Preview(const Catalog &catalog)
    : m_catalog(catalog)
    , m_rendering(largestPreview)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(&m_rendering, &LatestRendering::rendered, this, &Preview::showPicture);
    connect(&catalog.changes(), &CatalogChanges::selectionChanged, this, &Preview::refresh);
    connect(&catalog.changes(), &CatalogChanges::photosChanged, this, &Preview::refresh);
    refresh();
}

QSize Preview::minimumSizeHint() const
{
    return {40 * Theme::unit, 30 * Theme::unit};
}

void Preview::refresh()
{
    const Photo *photo = m_catalog.photo(m_catalog.activePhoto().value_or(0));
    if (!photo) {
        m_wanted = {};
        showText(m_catalog.photos().empty() ? u"This folder holds no photos yet."_s
                                            : u"Select a photo in the filmstrip."_s);
        return;
    }
    const auto state = m_catalog.state(photo->id);
    const RenderRequest wanted{photo->path, DevelopLook::from(state ? state->develop : CameraRawSettings())};
    if (wanted != m_wanted) {
        m_wanted = wanted;
        m_rendering.request(wanted);
    }
}

void Preview::showPicture(const QString &path, const QImage &picture)
{
    if (path != m_wanted.path) {
        return;
    }
    const QFileInfo file(path);
    if (picture.isNull()) {
        showText(u"No preview of %1"_s.arg(file.fileName()));
        return;
    }
    m_picture = picture;
    m_text.clear();
    setAccessibleName(u"Preview of %1"_s.arg(file.fileName()));
    update();
}

void Preview::showText(const QString &text)
{
    m_picture = QImage();
    m_text = text;
    setAccessibleName(text);
    update();
}

void Preview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(Theme::surround));
    if (m_picture.isNull()) {
        painter.setPen(QColor(Theme::secondaryText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_text);
        return;
    }
    const int margin = width() < 150 * Theme::unit ? Theme::small : Theme::large;
    const QSize room = size() - QSize(2 * margin, 2 * margin);
    QRect place({}, m_picture.size().scaled(room, Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_picture);
}

} // namespace StandIn
