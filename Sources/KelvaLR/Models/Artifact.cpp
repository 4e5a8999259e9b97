#include "Models/Artifact.h"

#include <QHashFunctions>

namespace KelvaLR {

Artifact Artifact::make(ArtifactKind kind, const QString &title, ArtifactStatus status, const QString &body)
{
    return {QUuid::createUuid(), kind, title, status, QDateTime::currentDateTime(), body};
}

size_t qHash(const Artifact &artifact, size_t seed) noexcept
{
    return qHashMulti(seed, artifact.id, static_cast<int>(artifact.kind), artifact.title,
                      static_cast<int>(artifact.status), artifact.createdAt, artifact.body);
}

} // namespace KelvaLR
