#include "Services/Lightroom/AdobeFolder.h"

#include <QDir>

namespace KelvaLR {

QString adobeFolder()
{
    return QDir::homePath() + QStringLiteral("/Library/Application Support/Adobe");
}

} // namespace KelvaLR
