#include "SamplePhotos/SamplePhotos.h"

namespace StandIn {

std::expected<void, QString> paintSamplePhotos(const QString &)
{
    return {};
}

} // namespace StandIn
