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
    , m_appearance(sources.appearance)
{
    m_engine.addImportPath(u":/qt/qml"_s);
    m_engine.addImageProvider(u"icon"_s, new IconProvider);
    m_engine.addImageProvider(thumbnailProviderId, new ThumbnailProvider);
    m_engine.setInitialProperties({
        {u"conversation"_s, QVariant::fromValue(&m_conversation)},
        {u"artifact"_s, QVariant::fromValue(&m_artifact)},
        {u"settings"_s, QVariant::fromValue(&m_settings)},
        {u"appearance"_s, QVariant::fromValue(&m_appearance)},
    });
    m_engine.load(QUrl(u"qrc:/qt/qml/KelvaLR/MainWindow.qml"_s));
}

QQuickWindow *MainWindowHost::window() const
{
    return m_engine.rootObjects().isEmpty()
               ? nullptr
               : qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
}

} // namespace KelvaLR
