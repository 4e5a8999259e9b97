#pragma once

#include "App/SystemActionService.h"
#include "AppIntents/KelvaLREntities.h"

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QMap>
#include <QVariantMap>

namespace KelvaLR {

/// A shortcut as it goes over the bus.
struct ShortcutOnBus
{
    QString title;
    QStringList phrases;
    QString shortTitle;
    QString systemImage;
};

/// The actions and entities for whoever automates the desktop. A call that cannot be served gets an error
/// reply with a sentence.
class IntentsAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kelvalr.KelvaLR.Intents")

public:
    IntentsAdaptor(SystemActionService &service, const QDBusConnection &bus);

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): read by moc
    void OpenKelvaLRSection(const QString &section, const QDBusMessage &call);
    QString CreateKelvaLRNote(const QString &text, const QDBusMessage &call);
    QList<KelvaLR::ShortcutOnBus> Shortcuts();
    /// What the user sees of actions, their parameters, types and sections.
    QMap<QString, QString> Titles();

    QList<KelvaLR::KelvaLRSessionEntity> SuggestedSessions();
    QList<KelvaLR::KelvaLRSessionEntity> Sessions(const QStringList &identifiers);
    QList<KelvaLR::KelvaLRArtifactEntity> SuggestedArtifacts();
    QList<KelvaLR::KelvaLRArtifactEntity> Artifacts(const QStringList &identifiers);

private:
    SystemActionService &m_service;
    QDBusConnection m_bus;
};

/// What desktops call in a program that already runs; a second start calls it, too.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    ApplicationAdaptor(SystemActionService &service, const QDBusConnection &bus);

public Q_SLOTS: // NOLINT(readability-redundant-access-specifiers): read by moc
    void Activate(const QVariantMap &platformData, const QDBusMessage &call);
    /// The program opens no files; its window comes to the front.
    void Open(const QStringList &uris, const QVariantMap &platformData, const QDBusMessage &call);
    /// An action of the desktop entry; for a note its parameter is the text.
    void ActivateAction(const QString &action, const QVariantList &parameter, const QVariantMap &platformData,
                        const QDBusMessage &call);

private:
    SystemActionService &m_service;
    QDBusConnection m_bus;
};

QDBusArgument &operator<<(QDBusArgument &argument, const ShortcutOnBus &shortcut);
const QDBusArgument &operator>>(const QDBusArgument &argument, ShortcutOnBus &shortcut);
QDBusArgument &operator<<(QDBusArgument &argument, const KelvaLRSessionEntity &session);
const QDBusArgument &operator>>(const QDBusArgument &argument, KelvaLRSessionEntity &session);
QDBusArgument &operator<<(QDBusArgument &argument, const KelvaLRArtifactEntity &artifact);
const QDBusArgument &operator>>(const QDBusArgument &argument, KelvaLRArtifactEntity &artifact);

} // namespace KelvaLR
