#include "Views/MainWindowHost.h"

#include "Views/Icons/IconProvider.h"
#include "Views/Thumbnails/ThumbnailProvider.h"

#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(KelvaLRPlugin)

namespace KelvaLR {

using namespace Qt::StringLiterals;

MainWindowHost::MainWindowHost(const MainWindowSources &sources)
    : m_conversation(sources.model, sources.router)
    , m_artifact(sources.model)
    , m_settings(sources.preferences, sources.lightroomService)
    , m_lightroomHint(sources.model)
    , m_appearance(sources.appearance)
{
    m_engine.addImportPath(u":/qt/qml"_s);
    m_engine.addImageProvider(u"icon"_s, new IconProvider);
    m_engine.addImageProvider(thumbnailProviderId, new ThumbnailProvider);
    m_engine.setInitialProperties({
        {u"conversation"_s, QVariant::fromValue(&m_conversation)},
        {u"artifact"_s, QVariant::fromValue(&m_artifact)},
        {u"settings"_s, QVariant::fromValue(&m_settings)},
        {u"lightroomHint"_s, QVariant::fromValue(&m_lightroomHint)},
        {u"appearance"_s, QVariant::fromValue(&m_appearance)},
    });
    m_engine.load(QUrl(u"qrc:/qt/qml/KelvaLR/MainWindow.qml"_s));
    if (window()) {
        watchLightroom();
    }
}

QQuickWindow *MainWindowHost::window() const
{
    return m_engine.rootObjects().isEmpty()
               ? nullptr
               : qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
}

/// The window does not wait for the first look. Later ones follow what the user may have done elsewhere.
void MainWindowHost::watchLightroom()
{
    QObject::connect(&m_settings, &SettingsViewModel::pluginTended, &m_lightroomHint,
                     &LightroomHintViewModel::look);
    QQuickWindow *const shown = window();
    const auto begin = [this, shown] {
        m_lightroomHint.look();
        QObject::connect(shown, &QWindow::activeChanged, &m_lightroomHint, [this, shown] {
            if (shown->isActive()) {
                m_lightroomHint.look();
            }
        });
    };
    QObject::connect(shown, &QQuickWindow::frameSwapped, &m_lightroomHint, begin, Qt::SingleShotConnection);
}

} // namespace KelvaLR
