#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace StandIn {

class Catalog;
class FlagAndStars;
class PhotoActions;

/// What is known of the active photo, and where it is given keywords.
class PhotoBar : public QWidget
{
    Q_OBJECT

public:
    PhotoBar(const Catalog &catalog, PhotoActions &actions);

Q_SIGNALS:
    void keywordFieldLeft();

private:
    void present();

    const Catalog &m_catalog;
    QLabel *m_name;
    QLabel *m_place;
    FlagAndStars *m_symbols;
    QLabel *m_keywords;
};

} // namespace StandIn
