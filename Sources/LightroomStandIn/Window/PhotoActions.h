#pragma once

#include <QObject>

namespace StandIn {

class Catalog;
struct DevelopSetting;
struct PhotoChanges;

/// What a user of the window does to the active photo. Main thread.
class PhotoActions : public QObject
{
    Q_OBJECT

public:
    /// The catalog must outlive this.
    explicit PhotoActions(Catalog &catalog);

    void setPickStatus(int pickStatus);
    void setRating(int stars);
    void setDevelop(const DevelopSetting &setting, double value);

    /// Words between commas; what the photo has already stays.
    void addKeywords(const QString &words);

    /// The photo so many places further in the catalog, or the last one on the way, becomes the only
    /// selected.
    void step(int places);

    void selectOnly(int id);

    /// Takes the photo into the selection or out of it; the last one stays.
    void toggleSelected(int id);

Q_SIGNALS:
    void answered(const QString &sentence); ///< what was done
    void failed(const QString &sentence);   ///< why it was not

private:
    void change(const PhotoChanges &changes, const QString &answer);

    Catalog &m_catalog;
};

} // namespace StandIn
