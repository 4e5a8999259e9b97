#include "AppIntents/KelvaLREntities.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

template <typename Entity>
QList<Entity> withIdentifiers(QList<Entity> entities, const QStringList &identifiers)
{
    entities.removeIf([&](const Entity &entity) { return !identifiers.contains(entity.id); });
    return entities;
}

} // namespace

QList<KelvaLRSessionEntity> KelvaLRSessionQuery::suggestedEntities()
{
    return {{.id = u"chat"_s, .title = u"Lightroom"_s}};
}

QList<KelvaLRSessionEntity> KelvaLRSessionQuery::entities(const QStringList &identifiers)
{
    return withIdentifiers(suggestedEntities(), identifiers);
}

QList<KelvaLRArtifactEntity> KelvaLRArtifactQuery::suggestedEntities()
{
    return {{.id = u"lightroom-status"_s, .title = u"Lightroom Status"_s, .kind = u"Markdown"_s}};
}

QList<KelvaLRArtifactEntity> KelvaLRArtifactQuery::entities(const QStringList &identifiers)
{
    return withIdentifiers(suggestedEntities(), identifiers);
}

} // namespace KelvaLR
