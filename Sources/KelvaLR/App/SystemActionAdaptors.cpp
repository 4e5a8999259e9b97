#include "App/SystemActionAdaptors.h"

#include "App/SystemActionNames.h"
#include "AppIntents/KelvaLRSectionIntentValue.h"
#include "AppIntents/KelvaLRShortcuts.h"

#include <QDBusError>
#include <QDBusMetaType>

namespace KelvaLR {

using namespace Qt::StringLiterals;

IntentsAdaptor::IntentsAdaptor(SystemActionService &service, const QDBusConnection &bus)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
    , m_bus(bus)
{
    qDBusRegisterMetaType<ShortcutOnBus>();
    qDBusRegisterMetaType<QList<ShortcutOnBus>>();
    qDBusRegisterMetaType<KelvaLRSessionEntity>();
    qDBusRegisterMetaType<QList<KelvaLRSessionEntity>>();
    qDBusRegisterMetaType<KelvaLRArtifactEntity>();
    qDBusRegisterMetaType<QList<KelvaLRArtifactEntity>>();
}

void IntentsAdaptor::OpenKelvaLRSection(const QString &section, const QDBusMessage &call)
{
    const auto known = sectionNamed(section);
    if (!known) {
        return refuse(call, QDBusError::errorString(QDBusError::InvalidArgs), known.error());
    }
    if (const auto done = m_service.run(OpenKelvaLRSectionIntent{*known}); !done) {
        refuse(call, QDBusError::errorString(QDBusError::Failed), done.error());
    }
}

QString IntentsAdaptor::CreateKelvaLRNote(const QString &text, const QDBusMessage &call)
{
    const auto done = m_service.run(CreateKelvaLRNoteIntent{text});
    if (!done) {
        refuse(call, QDBusError::errorString(QDBusError::Failed), done.error());
        return {};
    }
    return done->value_or(QString());
}

QList<ShortcutOnBus> IntentsAdaptor::Shortcuts()
{
    QList<ShortcutOnBus> shortcuts;
    for (const KelvaLRShortcut &shortcut : KelvaLRShortcuts) {
        shortcuts.append({.title = shortcut.title,
                          .phrases = {shortcut.phrases.begin(), shortcut.phrases.end()},
                          .shortTitle = shortcut.shortTitle,
                          .systemImage = shortcut.systemImage});
    }
    return shortcuts;
}

QList<KelvaLRSessionEntity> IntentsAdaptor::SuggestedSessions()
{
    return KelvaLRSessionQuery::suggestedEntities();
}

QList<KelvaLRSessionEntity> IntentsAdaptor::Sessions(const QStringList &identifiers)
{
    return KelvaLRSessionQuery::entities(identifiers);
}

QList<KelvaLRArtifactEntity> IntentsAdaptor::SuggestedArtifacts()
{
    return KelvaLRArtifactQuery::suggestedEntities();
}

QList<KelvaLRArtifactEntity> IntentsAdaptor::Artifacts(const QStringList &identifiers)
{
    return KelvaLRArtifactQuery::entities(identifiers);
}

void IntentsAdaptor::refuse(const QDBusMessage &call, const QString &name, const QString &sentence)
{
    call.setDelayedReply(true); // so that no other one is sent
    m_bus.send(call.createErrorReply(name, sentence));
}

ApplicationAdaptor::ApplicationAdaptor(SystemActionService &service)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
{
}

void ApplicationAdaptor::Activate(const QVariantMap & /*platformData*/)
{
    (void)m_service.activate(); // a desktop has no use for the reason
}

void ApplicationAdaptor::Open(const QStringList & /*uris*/, const QVariantMap &platformData)
{
    Activate(platformData);
}

void ApplicationAdaptor::ActivateAction(const QString &action, const QVariantList &parameter,
                                        const QVariantMap &platformData)
{
    const QString text = parameter.value(0).toString();
    if (action == SystemActionName::createNoteAction) {
        (void)m_service.run(CreateKelvaLRNoteIntent{text});
    } else if (action == SystemActionName::openSectionAction) {
        (void)m_service.run(
            OpenKelvaLRSectionIntent{sectionNamed(text).value_or(OpenKelvaLRSectionIntent().section)});
    } else {
        Activate(platformData);
    }
}

QDBusArgument &operator<<(QDBusArgument &argument, const ShortcutOnBus &shortcut)
{
    argument.beginStructure();
    argument << shortcut.title << shortcut.phrases << shortcut.shortTitle << shortcut.systemImage;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, ShortcutOnBus &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.title >> shortcut.phrases >> shortcut.shortTitle >> shortcut.systemImage;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const KelvaLRSessionEntity &session)
{
    argument.beginStructure();
    argument << session.id << session.title;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, KelvaLRSessionEntity &session)
{
    argument.beginStructure();
    argument >> session.id >> session.title;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const KelvaLRArtifactEntity &artifact)
{
    argument.beginStructure();
    argument << artifact.id << artifact.title << artifact.kind;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, KelvaLRArtifactEntity &artifact)
{
    argument.beginStructure();
    argument >> artifact.id >> artifact.title >> artifact.kind;
    argument.endStructure();
    return argument;
}

} // namespace KelvaLR
