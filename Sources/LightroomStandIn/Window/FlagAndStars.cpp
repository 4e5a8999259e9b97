#include "Window/FlagAndStars.h"

#include "Window/Symbols.h"
#include "Window/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

constexpr int symbolHeight = 4 * Theme::unit;
constexpr int starsWidth = 5 * (symbolHeight + 1);

} // namespace

FlagAndStars::FlagAndStars()
{
    setFixedSize(starsWidth + Theme::medium + symbolHeight, symbolHeight);
    present(0, 0);
}

void FlagAndStars::present(int pickStatus, int stars)
{
    m_pickStatus = pickStatus;
    m_stars = stars;
    const QString flag = pickStatus == 0 ? u"not flagged"_s : pickStatus > 0 ? u"picked"_s : u"rejected"_s;
    setAccessibleName(u"Rating %1, %2"_s.arg(QString::number(stars), flag));
    update();
}

void FlagAndStars::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintFlag(painter, QRectF(0, 0, symbolHeight, symbolHeight), m_pickStatus);
    paintStars(painter, QRectF(symbolHeight + Theme::medium, 0, starsWidth, symbolHeight), m_stars);
}

} // namespace StandIn
