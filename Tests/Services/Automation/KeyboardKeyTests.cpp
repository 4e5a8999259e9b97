#include "Services/Automation/KeyboardKey.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(KeyboardKey, readsDescriptionsWithAMainKey)
{
    using enum KeyModifier;
    const std::pair<QString, std::optional<KeyboardKey>> cases[] = {
        {u"Shift Cmd Z"_s, {{u"Command-Shift-Z"_s, 6, maskCommand | maskShift}}},
        {u"Escape key"_s, {{u"Escape"_s, 53, {}}}},
        {u"ctrl alt left"_s, {{u"Option-Control-Left"_s, 123, maskControl | maskAlternate}}},
        {u"Option Control Command Shift Up"_s,
         {{u"Command-Shift-Option-Control-Up"_s, 126,
           maskCommand | maskShift | maskAlternate | maskControl}}},
        {u"cmd command cmd c"_s, {{u"Command-C"_s, 8, maskCommand}}},
        {u"z shift"_s, {{u"Shift-Z"_s, 6, maskShift}}},
        {u" \n return key \t"_s, {{u"Return"_s, 36, {}}}},
        {u"keys"_s, {{u"S"_s, 1, {}}}},
        {u"`"_s, {{u"`"_s, 50, {}}}},
        {u"\\"_s, {{u"\\"_s, 42, {}}}},
        {u"PAGE   down"_s, {{u"Page Down"_s, {}, {}}}},
        {u"cmd+z"_s, {{u"Cmd+Z"_s, {}, {}}}},
        {u"cmd\tz"_s, {{u"Cmd\tZ"_s, {}, {}}}},
        {u"p in lightroom"_s, {{u"P In Lightroom"_s, {}, {}}}},
        {u"don't it\u2019s 'o"_s, {{u"Don't It\u2019s 'O"_s, {}, {}}}},
        {u"kekeyy"_s, {{u"Key"_s, {}, {}}}},
        {u"cmd \u00E9cran"_s, {{u"Command-\u00C9cran"_s, {}, maskCommand}}},
        {u"e\u0301x \U00010428"_s, {{u"E\u0301x \U00010400"_s, {}, {}}}},
        {QString(), std::nullopt},
        {u"  "_s, std::nullopt},
        {u"cmd"_s, std::nullopt},
        {u"shift key"_s, std::nullopt},
        {u"Key"_s, std::nullopt},
        {u"alt option ctrl"_s, std::nullopt},
    };
    for (const auto &[description, key] : cases) {
        EXPECT_EQ(KeyboardKey::parse(description), key) << description.toStdString();
    }
}

// The letters and digits of the US layout in the order of their codes; the gaps are other keys.
TEST(KeyboardKey, knowsTheCodesOfTheLayout)
{
    const QString layout = u"asdfhgzxcv\0bqweryt123465=97-80]ou[ip\0lj'k;\\,/nm."_s;
    for (qsizetype code = 0; code < layout.size(); ++code) {
        if (layout.at(code) != QChar(0)) {
            EXPECT_EQ(KeyboardKey::keyCodeFor(QStringView(layout).sliced(code, 1)), code);
        }
    }
    const std::pair<QStringView, std::optional<quint16>> named[] = {
        {u"enter", 36}, {u"tab", 48},    {u"space", 49}, {u"delete", 51}, {u"backspace", 51},
        {u"esc", 53},   {u"right", 124}, {u"down", 125}, {u"f1", {}},     {u"home", {}},
        {u"A", {}},     {u"", {}},       {u"spac", {}},
    };
    for (const auto &[name, code] : named) {
        EXPECT_EQ(KeyboardKey::keyCodeFor(name), code) << name.toString().toStdString();
    }
}
