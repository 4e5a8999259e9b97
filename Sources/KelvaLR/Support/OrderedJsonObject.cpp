#include "Support/OrderedJsonObject.h"

#include <QByteArrayList>
#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <utility>

namespace KelvaLR {

namespace {

/// Characters that JSON allows unescaped but that some readers split a line at (NEL, LS, PS) or swallow (the
/// byte order mark), in UTF-8.
constexpr std::array<std::pair<QByteArrayView, QByteArrayView>, 4> escapedCharacters{{
    {"\xC2\x85", "\\u0085"},
    {"\xE2\x80\xA8", "\\u2028"},
    {"\xE2\x80\xA9", "\\u2029"},
    {"\xEF\xBB\xBF", "\\ufeff"},
}};

QByteArray jsonText(const QJsonValue &value)
{
    // Only arrays and objects can be documents of their own: write [value] and take the brackets off.
    QByteArray json = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).sliced(1);
    json.chop(1);
    for (const auto &[bytes, escape] : escapedCharacters) {
        json.replace(bytes, escape);
    }
    return json;
}

} // namespace

OrderedJsonObject &OrderedJsonObject::add(QLatin1StringView key, const QJsonValue &value)
{
    addRaw(key, jsonText(value));
    return *this;
}

OrderedJsonObject &OrderedJsonObject::add(QLatin1StringView key, const OrderedJsonObject &object)
{
    addRaw(key, object.toJson());
    return *this;
}

OrderedJsonObject &OrderedJsonObject::add(QLatin1StringView key, const QList<OrderedJsonObject> &array)
{
    QByteArrayList elements;
    for (const OrderedJsonObject &element : array) {
        elements.append(element.toJson());
    }
    addRaw(key, '[' + elements.join(',') + ']');
    return *this;
}

QByteArray OrderedJsonObject::toJson() const
{
    return '{' + m_members + '}';
}

void OrderedJsonObject::addRaw(QLatin1StringView key, const QByteArray &json)
{
    if (!m_members.isEmpty()) {
        m_members += ',';
    }
    m_members += '"' + QByteArrayView(key.data(), key.size()).toByteArray() + "\":" + json;
}

} // namespace KelvaLR
