#include "App/SystemActionAdaptors.h"

#include "App/SystemActionNames.h"
#include "AppIntents/KelvaLRSectionIntentValue.h"
#include "AppIntents/KelvaLRShortcuts.h"

#include <QDBusError>
#include <QDBusMetaType>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

void refuse(const QDBusConnection &bus, const QDBusMessage &call, QDBusError::ErrorType error,
            const QString &sentence)
{
    call.setDelayedReply(true); // so that no other one is sent
    bus.send(call.createErrorReply(error, sentence));
}

} // namespace

IntentsAdaptor::IntentsAdaptor(SystemActionService &service, const QDBusConnection &bus)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
    , m_bus(bus)
{
    qDBusRegisterMetaType<ShortcutOnBus>();
    qDBusRegisterMetaType<QMap<QString, QString>>();
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
        return refuse(m_bus, call, QDBusError::InvalidArgs, known.error());
    }
    if (const auto done = m_service.run(OpenKelvaLRSectionIntent{*known}); !done) {
        refuse(m_bus, call, QDBusError::Failed, done.error());
    }
}

QString IntentsAdaptor::CreateKelvaLRNote(const QString &text, const QDBusMessage &call)
{
    const auto done = m_service.run(CreateKelvaLRNoteIntent{text});
    if (!done) {
        refuse(m_bus, call, QDBusError::Failed, done.error());
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

QMap<QString, QString> IntentsAdaptor::Titles()
{
    QMap<QString, QString> titles{
        {SystemActionName::openSection, OpenKelvaLRSectionIntent::title},
        {SystemActionName::openSection + ".section"_L1, OpenKelvaLRSectionIntent::sectionTitle},
        {SystemActionName::createNote, CreateKelvaLRNoteIntent::title},
        {SystemActionName::createNote + ".text"_L1, CreateKelvaLRNoteIntent::textTitle},
        {u"section"_s, sectionTypeTitle},
        {u"session"_s, KelvaLRSessionEntity::typeTitle},
        {u"artifact"_s, KelvaLRArtifactEntity::typeTitle},
    };
    for (const auto &row : rawValueTable<KelvaLRSectionIntentValue>) {
        titles.insert("section."_L1 + row.raw, displayName(row.value));
    }
    return titles;
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

ApplicationAdaptor::ApplicationAdaptor(SystemActionService &service, const QDBusConnection &bus)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
    , m_bus(bus)
{
}

void ApplicationAdaptor::Activate(const QVariantMap & /*platformData*/, const QDBusMessage &call)
{
    if (const auto done = m_service.activate(); !done) {
        refuse(m_bus, call, QDBusError::Failed, done.error());
    }
}

void ApplicationAdaptor::Open(const QStringList & /*uris*/, const QVariantMap &platformData,
                              const QDBusMessage &call)
{
    Activate(platformData, call);
}

void ApplicationAdaptor::ActivateAction(const QString &action, const QVariantList &parameter,
                                        const QVariantMap &platformData, const QDBusMessage &call)
{
    KelvaLRIntent intent;
    if (action == SystemActionName::createNoteAction) {
        intent = CreateKelvaLRNoteIntent{parameter.value(0).toString()};
    } else if (action != SystemActionName::openSectionAction) {
        return Activate(platformData, call);
    }
    if (const auto done = m_service.run(intent); !done) {
        refuse(m_bus, call, QDBusError::Failed, done.error());
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
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as QtDBus wants it
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
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as QtDBus wants it
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
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as QtDBus wants it
}

} // namespace KelvaLR
