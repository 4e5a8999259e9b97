#pragma once

#include "App/SystemActionService.h"
#include "AppIntents/KelvaLREntities.h"

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusMessage>
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

public Q_SLOTS:
    void OpenKelvaLRSection(const QString &section, const QDBusMessage &call);
    QString CreateKelvaLRNote(const QString &text, const QDBusMessage &call);
    QList<KelvaLR::ShortcutOnBus> Shortcuts();

    QList<KelvaLR::KelvaLRSessionEntity> SuggestedSessions();
    QList<KelvaLR::KelvaLRSessionEntity> Sessions(const QStringList &identifiers);
    QList<KelvaLR::KelvaLRArtifactEntity> SuggestedArtifacts();
    QList<KelvaLR::KelvaLRArtifactEntity> Artifacts(const QStringList &identifiers);

private:
    void refuse(const QDBusMessage &call, const QString &name, const QString &sentence);

    SystemActionService &m_service;
    QDBusConnection m_bus;
};

/// What a desktop calls instead of starting the program once more.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(SystemActionService &service);

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    /// The program opens no files; its window comes to the front.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    /// An action of the desktop entry; its parameter is a section, or the text of a note.
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData);

private:
    SystemActionService &m_service;
};

QDBusArgument &operator<<(QDBusArgument &argument, const ShortcutOnBus &shortcut);
const QDBusArgument &operator>>(const QDBusArgument &argument, ShortcutOnBus &shortcut);
QDBusArgument &operator<<(QDBusArgument &argument, const KelvaLRSessionEntity &session);
const QDBusArgument &operator>>(const QDBusArgument &argument, KelvaLRSessionEntity &session);
QDBusArgument &operator<<(QDBusArgument &argument, const KelvaLRArtifactEntity &artifact);
const QDBusArgument &operator>>(const QDBusArgument &argument, KelvaLRArtifactEntity &artifact);

} // namespace KelvaLR
