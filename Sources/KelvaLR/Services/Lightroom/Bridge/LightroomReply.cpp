#include "Services/Lightroom/Bridge/LightroomReply.h"

#include "Services/Lightroom/Bridge/BridgeKeys.h"
#include "Support/DecimalNumber.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView successStatus("success");
constexpr QLatin1StringView errorStatus("error");
constexpr QLatin1StringView speaker("Lightroom Classic: ");

struct DisplayNameRow
{
    QLatin1StringView developKey;
    QLatin1StringView displayName;
};

constexpr std::array<DisplayNameRow, 6> displayNames{{
    {QLatin1StringView("Exposure2012"), QLatin1StringView("Exposure")},
    {QLatin1StringView("Contrast2012"), QLatin1StringView("Contrast")},
    {QLatin1StringView("Highlights2012"), QLatin1StringView("Highlights")},
    {QLatin1StringView("Shadows2012"), QLatin1StringView("Shadows")},
    {QLatin1StringView("Whites2012"), QLatin1StringView("Whites")},
    {QLatin1StringView("Blacks2012"), QLatin1StringView("Blacks")},
}};

std::optional<QJsonObject> replyObject(const QString &reply)
{
    const QJsonDocument document = QJsonDocument::fromJson(reply.toUtf8());
    if (!document.isObject()) {
        return std::nullopt;
    }
    return document.object();
}

std::optional<QString> textMember(const QJsonObject &object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

/// 0 for a value that is no whole number.
qint64 wholeNumberMember(const QJsonObject &object, QLatin1StringView key)
{
    const double value = object.value(key).toDouble();
    return std::trunc(value) == value ? truncatedInteger(value).value_or(0) : 0;
}

/// The nearest decimal, and of two that are equally near the even one: 0.125 is 0.12.
QString fixed(double value, int decimals)
{
    constexpr int longest = std::numeric_limits<double>::max_exponent10 + 8;
    std::array<char, longest> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, decimals);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

QString withDisplayNames(QString message)
{
    for (const DisplayNameRow &row : displayNames) {
        message.replace(row.developKey, row.displayName);
    }
    return message;
}

} // namespace

QString formattedPluginResponse(const QString &reply)
{
    const std::optional<QJsonObject> object = replyObject(reply);
    if (!object) {
        return reply;
    }
    const std::optional<QString> message = textMember(*object, BridgeKeys::message);
    if (textMember(*object, BridgeKeys::status) == errorStatus) {
        return speaker + message.value_or(u"Command failed."_s);
    }
    if (message) {
        const QString text = withDisplayNames(*message);
        return speaker + formattedAdjustedSliderMessage(text).value_or(text);
    }
    return formatStatusPayload(*object).value_or(speaker + "Command completed."_L1);
}

bool pluginResponseSucceeded(const QString &reply)
{
    const std::optional<QJsonObject> object = replyObject(reply);
    return object && textMember(*object, BridgeKeys::status) == successStatus;
}

std::optional<QString> formatStatusPayload(const QJsonObject &reply)
{
    if (textMember(reply, BridgeKeys::status) != successStatus) {
        return std::nullopt;
    }
    return speaker + textMember(reply, BridgeKeys::filename).value_or(u"selected photo"_s) +
           " selected. Exposure "_L1 + fixed(reply.value(BridgeKeys::exposure).toDouble(), 2) +
           " EV, rating "_L1 + QString::number(wholeNumberMember(reply, BridgeKeys::rating)) + u'.';
}

std::optional<QString> formattedAdjustedSliderMessage(const QString &message)
{
    static const QRegularExpression pattern(u"^Adjusted ([A-Za-z ]+) to (-?\\d+(?:\\.\\d+)?)$"_s);
    const QRegularExpressionMatch match = pattern.match(message);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const std::optional<double> value = decimalNumber(match.capturedView(2));
    if (!value) {
        return std::nullopt;
    }
    const QString name = match.captured(1);
    if (name == "Exposure"_L1) {
        return "Adjusted "_L1 + name + " to "_L1 + fixed(*value, 2) + " EV."_L1;
    }
    const int decimals = std::trunc(*value) == *value ? 0 : 2;
    return "Adjusted "_L1 + name + " to "_L1 + fixed(*value, decimals) + u'.';
}

} // namespace KelvaLR
