#pragma once

#include <QQuickImageProvider>

namespace KelvaLR {

/// Renders the window's symbols. Registered as "icon", it answers `image://icon/<name>/<colour>`; the colour
/// is rrggbb or aarrggbb, behind a percent-encoded # or without one. Any thread.
class IconProvider final : public QQuickImageProvider
{
public:
    IconProvider();

    /// As many device pixels as are asked for, the symbol in their middle; a square where only one side is
    /// given. An unknown name is a fault of the caller and gives a transparent image.
    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace KelvaLR
