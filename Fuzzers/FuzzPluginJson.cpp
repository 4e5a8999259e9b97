// Bytes go through the JSON reader of the Lightroom plug-in and, when it takes them, back through its writer.
// Qt's own JSON must then read the same from both texts.

#include "Services/Lightroom/Plugin/PluginJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <lua.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

using KelvaLR::Testing::PluginJson;

/// libFuzzer reads these like the counters of compiled code. Here they count the steps from one line of the
/// Lua file to another, so that it sees where an input leads.
[[gnu::section("__libfuzzer_extra_counters")]] std::array<std::uint8_t, 1 << 14> lineSteps;

void countLineStep(lua_State *, lua_Debug *record)
{
    static std::size_t previousLine = 0;
    const auto line = static_cast<std::size_t>(record->currentline);
    ++lineSteps[(previousLine * 31 + line) % lineSteps.size()];
    previousLine = line;
}

PluginJson &json()
{
    static PluginJson plugin;
    static const bool isHooked = lua_sethook(plugin.state(), countLineStep, LUA_MASKLINE, 0) != 0;
    Q_UNUSED(isHooked)
    return plugin;
}

void require(bool condition, const char *what)
{
    if (!condition) {
        qCritical("%s", what);
        std::abort();
    }
}

/// Qt takes only arrays and objects at the top. Nothing when Qt refuses the text for a number that is too
/// small to be told from zero.
std::optional<QJsonArray> readByQt(const QByteArray &text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson('[' + text + ']', &error);
    if (error.error == QJsonParseError::IllegalNumber) {
        return std::nullopt;
    }
    require(error.error == QJsonParseError::NoError, "Qt refuses what the plug-in takes or writes");
    return document.array();
}

/// Qt keeps half a surrogate pair; the plug-in puts U+FFFD in its place.
bool isWellFormed(const QString &text)
{
    return QString::fromUtf8(text.toUtf8()) == text;
}

bool isWellFormed(const QJsonValue &value)
{
    if (value.isArray()) {
        const QJsonArray array = value.toArray();
        return std::ranges::all_of(array, [](const QJsonValue &item) { return isWellFormed(item); });
    }
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        const auto keys = object.keys();
        return std::ranges::all_of(
            keys, [&](const QString &key) { return isWellFormed(key) && isWellFormed(object.value(key)); });
    }
    return isWellFormed(value.toString());
}

/// Numbers are compared as the doubles that Lua has; Qt keeps large whole numbers more exactly.
bool isSame(const QJsonValue &left, const QJsonValue &right)
{
    if (left.type() != right.type()) {
        return false;
    }
    if (left.isDouble()) {
        return left.toDouble() == right.toDouble();
    }
    if (left.isArray()) {
        const QJsonArray a = left.toArray();
        const QJsonArray b = right.toArray();
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](const QJsonValue &x, const QJsonValue &y) { return isSame(x, y); });
    }
    if (left.isObject()) {
        const QJsonObject a = left.toObject();
        const QJsonObject b = right.toObject();
        const auto keys = a.keys();
        return keys == b.keys() && std::ranges::all_of(keys, [&](const QString &key) {
                   return isSame(a.value(key), b.value(key));
               });
    }
    return left == right;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));

    const auto string = readByQt(json().write(text));
    require(string && string->size() == 1 && string->at(0).isString(), "the writer does not write a string");

    const auto written = json().readAndWrite(text);
    if (!written) {
        return 0;
    }
    const auto writtenAgain = json().readAndWrite(*written);
    require(writtenAgain && *writtenAgain == *written, "what was written does not read back as the same");

    const auto original = readByQt(text);
    const auto copy = readByQt(*written);
    if (original && copy && isWellFormed(QJsonValue(*original))) {
        require(isSame(QJsonValue(*original), QJsonValue(*copy)), "Qt reads another value from the text");
    }
    return 0;
}
