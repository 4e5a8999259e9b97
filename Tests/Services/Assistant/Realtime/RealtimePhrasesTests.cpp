#include "Services/Assistant/Realtime/RealtimePhrases.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(RealtimePhrases, hearTheWakePhrase)
{
    for (const QString &transcript : {u"Hey, Kelva, darker"_s, u"HEY KELWA"_s, u"oh hey Kelvie!"_s,
                                      u"hey  kelvy"_s, u"Hey Elva."_s, u"they elvie"_s, u"hey kelvas"_s}) {
        EXPECT_TRUE(containsWakePhrase(transcript)) << transcript.toStdString();
    }
    for (const QString &transcript :
         {QString(), u"kelva"_s, u"hey, you. Kelva"_s, u"hey kel"_s, u"heykelva"_s, u"hey kelvá"_s}) {
        EXPECT_FALSE(containsWakePhrase(transcript)) << transcript.toStdString();
    }
}

TEST(RealtimePhrases, hearWhenTheSessionShallEnd)
{
    for (const QString &transcript :
         {u"Stop."_s, u"Done!"_s, u"all done"_s, u"That's it."_s, u"That is it"_s, u"CANCEL"_s,
          u"nevermind"_s, u"Never mind."_s, u"end"_s, u"End session."_s, u"stop listening"_s,
          u"Close connection."_s, u"Okay, stop!"_s, u"please cancel that, will you"_s}) {
        EXPECT_TRUE(isVoiceSessionStopCommand(transcript)) << transcript.toStdString();
    }
    for (const QString &transcript : {QString(), u"..."_s, u"stopping"_s, u"cancelled"_s, u"I am done"_s,
                                      u"the end"_s, u"that's it then"_s, u"never mind the noise"_s}) {
        EXPECT_FALSE(isVoiceSessionStopCommand(transcript)) << transcript.toStdString();
    }
}
