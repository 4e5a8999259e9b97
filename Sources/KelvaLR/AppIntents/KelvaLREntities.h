#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace KelvaLR {

/// A conversation session as the system sees it; shown by its title.
struct KelvaLRSessionEntity
{
    static constexpr QLatin1StringView typeTitle{"KelvaLR Session"};

    QString id;
    QString title;

    bool operator==(const KelvaLRSessionEntity &) const = default;
};

/// An artifact as the system sees it; shown by its title, with its kind below.
struct KelvaLRArtifactEntity
{
    static constexpr QLatin1StringView typeTitle{"KelvaLR Artifact"};

    QString id;
    QString title;
    QString kind;

    bool operator==(const KelvaLRArtifactEntity &) const = default;
};

/// What the system may offer and look up. It is one example of each; the live conversation is not read.
struct KelvaLRSessionQuery
{
    [[nodiscard]] static QList<KelvaLRSessionEntity> suggestedEntities();
    [[nodiscard]] static QList<KelvaLRSessionEntity> entities(const QStringList &identifiers);
};

struct KelvaLRArtifactQuery
{
    [[nodiscard]] static QList<KelvaLRArtifactEntity> suggestedEntities();
    [[nodiscard]] static QList<KelvaLRArtifactEntity> entities(const QStringList &identifiers);
};

} // namespace KelvaLR
