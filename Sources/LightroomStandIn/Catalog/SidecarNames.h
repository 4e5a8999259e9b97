#pragma once

#include <QHash>
#include <QString>

namespace StandIn {

/// Decides which sidecar belongs to a photo: "IMG_1.xmp" for "IMG_1.CR3", as Camera Raw has it. Where two
/// photos of a folder would share that name, the second one by name is given "IMG_1.JPG.xmp".
class SidecarNames
{
public:
    /// The path of the sidecar of the photo at this path, whether it exists or not.
    [[nodiscard]] QString pathFor(const QString &photoPath);

private:
    void readFolder(const QString &folder);

    QHash<QString, QString> m_firstPhotos; ///< folder + "/" + base name → the file name that goes first
};

} // namespace StandIn
