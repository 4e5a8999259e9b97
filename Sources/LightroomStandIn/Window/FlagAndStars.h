#pragma once

#include <QWidget>

namespace StandIn {

/// The flag and the rating of a photo.
class FlagAndStars : public QWidget
{
    Q_OBJECT

public:
    FlagAndStars();

    void present(int pickStatus, int stars);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_pickStatus = 0;
    int m_stars = 0;
};

} // namespace StandIn
