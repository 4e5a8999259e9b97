#pragma once

#include "Window/LatestRendering.h"

#include <QWidget>

namespace StandIn {

class Catalog;

/// The active photo, large, as it is developed.
class Preview : public QWidget
{
    Q_OBJECT

public:
    explicit Preview(const Catalog &catalog);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void refresh();
    void showPicture(const QString &path, const QImage &picture);
    void showText(const QString &text);

    const Catalog &m_catalog;
    LatestRendering m_rendering;
    RenderRequest m_wanted;
    QImage m_picture;
    QString m_text; ///< in the place of a picture
};

} // namespace StandIn
