#pragma once

#include "Models/RawValue.h"

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QUuid>

namespace KelvaLR {

/// What an artifact holds.
enum class ArtifactKind { markdown, note, progress };

template <>
inline constexpr std::array<RawValueRow<ArtifactKind>, 3> rawValueTable<ArtifactKind>{{
    {ArtifactKind::markdown, QLatin1StringView("markdown")},
    {ArtifactKind::note, QLatin1StringView("note")},
    {ArtifactKind::progress, QLatin1StringView("progress")},
}};

/// Where the work recorded by an artifact stands.
enum class ArtifactStatus { ready, running, needsReview };

template <>
inline constexpr std::array<RawValueRow<ArtifactStatus>, 3> rawValueTable<ArtifactStatus>{{
    {ArtifactStatus::ready, QLatin1StringView("ready")},
    {ArtifactStatus::running, QLatin1StringView("running")},
    {ArtifactStatus::needsReview, QLatin1StringView("needs review")},
}};

/// One card of the artifact area; `body` is rendered as Markdown.
struct Artifact
{
    QUuid id;
    ArtifactKind kind = ArtifactKind::markdown;
    QString title;
    ArtifactStatus status = ArtifactStatus::ready;
    QDateTime createdAt;
    QString body;

    /// An artifact with a fresh random id, created now.
    [[nodiscard]] static Artifact make(ArtifactKind kind, const QString &title, ArtifactStatus status,
                                       const QString &body);

    bool operator==(const Artifact &) const = default;
};

[[nodiscard]] size_t qHash(const Artifact &artifact, size_t seed = 0) noexcept;

} // namespace KelvaLR

Q_DECLARE_METATYPE(KelvaLR::Artifact)
