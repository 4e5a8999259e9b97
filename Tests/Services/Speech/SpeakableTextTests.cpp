#include "Services/Speech/SpeakableText.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(SpeakableText, saysTheWordsAndNotTheMarkdown)
{
    const std::pair<QString, QString> cases[] = {
        {u""_s, u""_s},
        {u" \n\n"_s, u""_s},
        {u"Try **+0.5** or *-10*, at __5500__ K."_s, u"Try +0.5 or -10, at 5500 K."_s},
        {u"# A look\nWarm\nand soft"_s, u"A look. Warm and soft."_s},
        {u"Do this:\n- raise **Exposure**\n* lower `Contrast`\n+ [x] done!\n\nThen wait"_s,
         u"Do this: raise Exposure. lower Contrast. done! Then wait."_s},
        {u"1. Open it\n2) Close it."_s, u"1, Open it. 2, Close it."_s},
        {u"2024 was good\n-10 is cold"_s, u"2024 was good -10 is cold."_s},
        {u"Before\n```lua\nlocal x = 1\n# y\n```\nafter"_s, u"Before. after."_s},
        {u"Cut off\n~~~\n```\nx"_s, u"Cut off."_s},
        {u"| Slider | Value |\n|:---|---:|\n| Exposure | +0.5 |\nDone"_s,
         u"Slider, Value. Exposure, +0.5. Done."_s},
        {u"See [the guide](https://a.b/c_d?e=f) and ![a dune](x.png), or [this][1].\n\n[1]: https://a.b"_s,
         u"See the guide and a dune, or this."_s},
        {u"At https://www.example.com/a/b.html. Or <http://example.org/>"_s,
         u"At example.com. Or example.org."_s},
        {u"> Quoted\n> twice\n\n---\n\nTitle\n====="_s, u"Quoted twice. Title."_s},
        {u"Keep IMG_0001.CR2 and _this_; photo #3, \\*not\\* C#, ~~old~~"_s,
         u"Keep IMG_0001.CR2 and this; photo number 3, not C, old."_s},
        {u"a<br>b &lt; c &amp;&nbsp;d"_s, u"a b < c & d."_s},
        {u"`unfinished **and [broken](link"_s, u"unfinished and [broken](link."_s},
        {u"Größe 日本語 😀 →"_s, u"Größe 日本語 😀 →."_s},
    };
    for (const auto &[markdown, spoken] : cases) {
        EXPECT_EQ(speakableText(markdown), spoken) << markdown.toStdString();
    }
}

TEST(SpeakableText, endsALongTextAfterTheSentenceWithWhichItGetsLong)
{
    const QString sentence = u"It is twenty-nine characters. "_s;
    const QString spoken = speakableText(sentence.repeated(100));
    EXPECT_EQ(spoken, sentence.repeated(20).trimmed());
    EXPECT_EQ(speakableText(sentence.repeated(19) + u"Short."_s), sentence.repeated(19) + u"Short."_s);

    // Neither a sentence without an end nor a line that is no prose takes long to say or to read.
    const QString endless = speakableText(u"word "_s.repeated(20'000));
    EXPECT_LE(endless.size(), 900);
    EXPECT_TRUE(endless.endsWith(u" word"_s));
    for (const QString &odd : {u"["_s, u"<a"_s, u"_"_s, u"x"_s, u"> "_s, u"|-"_s, u"[]("_s, u"\n"_s}) {
        EXPECT_LE(speakableText(odd.repeated(50'000)).size(), 900) << odd.toStdString();
    }
}
