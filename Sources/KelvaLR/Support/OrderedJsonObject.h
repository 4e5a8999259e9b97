#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QLatin1StringView>
#include <QList>

namespace KelvaLR {

/// Writes a compact JSON object whose members keep the order in which they were added, which QJsonObject does
/// not. The text holds no line break of any kind, so one object is one line for every reader; lone surrogates
/// are written as escapes. Numbers do not depend on the locale and have the shortest exact form.
class OrderedJsonObject
{
public:
    /// Keys must not repeat; they are ASCII and need no escaping.
    OrderedJsonObject &add(QLatin1StringView key, const QJsonValue &value);
    OrderedJsonObject &add(QLatin1StringView key, const OrderedJsonObject &object);
    OrderedJsonObject &add(QLatin1StringView key, const QList<OrderedJsonObject> &array);

    /// The object as UTF-8, without a line feed at its end.
    [[nodiscard]] QByteArray toJson() const;

private:
    void addRaw(QLatin1StringView key, const QByteArray &json);

    QByteArray m_members; ///< what stands between the braces
};

} // namespace KelvaLR
