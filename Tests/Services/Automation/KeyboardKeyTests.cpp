#include "Services/Automation/KeyboardKey.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

constexpr auto command = KeyModifier::maskCommand;
constexpr auto shift = KeyModifier::maskShift;
constexpr auto option = KeyModifier::maskAlternate;
constexpr auto control = KeyModifier::maskControl;

struct KeyCase
{
    QString description;
    QString displayName;
    std::optional<quint16> keyCode;
    KeyModifiers modifiers;
};

TEST(KeyboardKey, readsDescriptions)
{
    const KeyCase cases[] = {
        {u"Shift Cmd Z"_s, u"Command-Shift-Z"_s, 6, command | shift},
        {u"Escape key"_s, u"Escape"_s, 53, {}},
        {u"ctrl alt left"_s, u"Option-Control-Left"_s, 123, control | option},
        {u"Option Control Command Shift Up"_s, u"Command-Shift-Option-Control-Up"_s, 126,
         command | shift | option | control},
        {u"cmd command cmd c"_s, u"Command-C"_s, 8, command},
        {u"z shift"_s, u"Shift-Z"_s, 6, shift},
        {u" \n return key \t"_s, u"Return"_s, 36, {}},
        {u"keys"_s, u"S"_s, 1, {}},
        {u"`"_s, u"`"_s, 50, {}},
        {u"\\"_s, u"\\"_s, 42, {}},
        {u"PAGE   down"_s, u"Page Down"_s, {}, {}},
        {u"cmd+z"_s, u"Cmd+Z"_s, {}, {}},
        {u"cmd\tz"_s, u"Cmd\tZ"_s, {}, {}},
        {u"p in lightroom"_s, u"P In Lightroom"_s, {}, {}},
        {u"don't it\u2019s 'o"_s, u"Don't It\u2019s 'O"_s, {}, {}},
        {u"kekeyy"_s, u"Key"_s, {}, {}},
        {u"cmd \u00E9cran"_s, u"Command-\u00C9cran"_s, {}, command},
        {u"e\u0301x \U00010428"_s, u"E\u0301x \U00010400"_s, {}, {}},
    };
    for (const KeyCase &c : cases) {
        SCOPED_TRACE(c.description.toStdString());
        const auto key = KeyboardKey::parse(c.description);
        ASSERT_TRUE(key);
        EXPECT_EQ(key->displayName, c.displayName);
        EXPECT_EQ(key->keyCode, c.keyCode);
        EXPECT_EQ(key->modifiers, c.modifiers);
    }
}

TEST(KeyboardKey, needsAMainKey)
{
    for (const QString &description :
         {QString(), u"  "_s, u"cmd"_s, u"shift key"_s, u"Key"_s, u"alt option ctrl"_s}) {
        EXPECT_EQ(KeyboardKey::parse(description), std::nullopt) << description.toStdString();
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
    const std::pair<QStringView, quint16> named[] = {
        {u"enter", 36},     {u"tab", 48}, {u"space", 49},  {u"delete", 51},
        {u"backspace", 51}, {u"esc", 53}, {u"right", 124}, {u"down", 125},
    };
    for (const auto &[name, code] : named) {
        EXPECT_EQ(KeyboardKey::keyCodeFor(name), code) << name.toString().toStdString();
    }
    for (const QStringView name : {u"f1", u"home", u"A", u"", u"spac"}) {
        EXPECT_EQ(KeyboardKey::keyCodeFor(name), std::nullopt);
    }
}

} // namespace

} // namespace KelvaLR
