#include "Services/Lightroom/Bridge/LightroomPluginCommand.h"

#include "Services/Lightroom/Bridge/BridgeKeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <cmath>

namespace KelvaLR {

namespace {

/// Collects the members that are present and remembers whether one of them cannot be written.
class CommandEncoder
{
public:
    void add(QLatin1StringView key, const QString &text)
    {
        m_isEncodable = m_isEncodable && text.isValidUtf16();
        m_object.insert(key, text);
    }

    void add(QLatin1StringView key, double number)
    {
        m_isEncodable = m_isEncodable && std::isfinite(number);
        m_object.insert(key, number);
    }

    void add(QLatin1StringView key, bool truth) { m_object.insert(key, truth); }

    void add(QLatin1StringView key, const QStringList &texts)
    {
        for (const QString &text : texts) {
            m_isEncodable = m_isEncodable && text.isValidUtf16();
        }
        m_object.insert(key, QJsonArray::fromStringList(texts));
    }

    template <typename T>
    void add(QLatin1StringView key, const std::optional<T> &field)
    {
        if (field) {
            add(key, *field);
        }
    }

    [[nodiscard]] std::optional<QString> text() const
    {
        if (!m_isEncodable) {
            return std::nullopt;
        }
        return QString::fromUtf8(QJsonDocument(m_object).toJson(QJsonDocument::Compact));
    }

private:
    QJsonObject m_object;
    bool m_isEncodable = true;
};

} // namespace

QString LightroomPluginCommand::freshRequestID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QString> LightroomPluginCommand::jsonText() const
{
    CommandEncoder encoder;
    encoder.add(BridgeKeys::requestID, requestID);
    encoder.add(BridgeKeys::action, rawValue(action));
    encoder.add(BridgeKeys::slider, slider);
    encoder.add(BridgeKeys::value, value);
    encoder.add(BridgeKeys::relative, relative);
    encoder.add(BridgeKeys::type, type);
    encoder.add(BridgeKeys::adjustments, adjustments);
    encoder.add(BridgeKeys::presetName, presetName);
    encoder.add(BridgeKeys::folderPath, folderPath);
    if (!targetPaths.isEmpty()) {
        encoder.add(BridgeKeys::targetPaths, targetPaths);
    }
    return encoder.text();
}

} // namespace KelvaLR
