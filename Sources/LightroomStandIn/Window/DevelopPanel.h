#pragma once

#include <QScrollArea>

#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QVBoxLayout;
QT_END_NAMESPACE

namespace StandIn {

class Catalog;
class DevelopSlider;
class PhotoActions;
struct DevelopSetting;

/// The sliders of the Develop module, for the active photo.
class DevelopPanel : public QScrollArea
{
    Q_OBJECT

public:
    DevelopPanel(const Catalog &catalog, PhotoActions &actions);

private:
    struct Row
    {
        DevelopSlider *slider;
        QLabel *value;
    };

    void addHeading(QVBoxLayout &rows, const QString &text);
    void addRow(QVBoxLayout &rows, const DevelopSetting &setting);
    void present();

    const Catalog &m_catalog;
    PhotoActions &m_actions;
    std::vector<Row> m_rows;
};

} // namespace StandIn
