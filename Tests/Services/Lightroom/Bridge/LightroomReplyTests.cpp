#include "Services/Lightroom/Bridge/LightroomReply.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {
namespace {

using namespace Qt::StringLiterals;

enum class Verdict { succeeded, failed };

struct ReplyCase
{
    QString reply;
    QString text;
    Verdict verdict = Verdict::succeeded;
};

TEST(LightroomReplyTest, wordsEveryKindOfReply)
{
    const QString deep = QString(5000, u'[') + QString(5000, u']');
    const QList<ReplyCase> cases{
        {uR"({"status":"success","message":"pong"})"_s, u"Lightroom Classic: pong"_s},
        {uR"({"status":"error","message":"No target photos found"})"_s,
         u"Lightroom Classic: No target photos found"_s, Verdict::failed},
        {uR"({"status":"error"})"_s, u"Lightroom Classic: Command failed."_s, Verdict::failed},
        {uR"({"status":"error","message":7})"_s, u"Lightroom Classic: Command failed."_s, Verdict::failed},
        {uR"({"status":"success","message":"Adjusted Exposure2012 on 1 photo to 0.5"})"_s,
         u"Lightroom Classic: Adjusted Exposure on 1 photo to 0.5"_s},
        {uR"({"status":"success","message":"Adjusted Exposure2012 to 0.5"})"_s,
         u"Lightroom Classic: Adjusted Exposure to 0.50 EV."_s},
        {uR"({"status":"success","message":"Adjusted Highlights2012 to -20"})"_s,
         u"Lightroom Classic: Adjusted Highlights to -20."_s},
        {uR"({"status":"success","message":"Shadows2012 Whites2012 Blacks2012 Contrast2012"})"_s,
         u"Lightroom Classic: Shadows Whites Blacks Contrast"_s},
        {uR"({"status":"success","filename":"IMG_1.cr3","exposure":-0.255,"rating":4})"_s,
         u"Lightroom Classic: IMG_1.cr3 selected. Exposure -0.26 EV, rating 4."_s},
        {uR"({"status":"success"})"_s,
         u"Lightroom Classic: selected photo selected. Exposure 0.00 EV, rating 0."_s},
        {uR"({"status":"success","filename":1,"exposure":"x","rating":2.5})"_s,
         u"Lightroom Classic: selected photo selected. Exposure 0.00 EV, rating 0."_s},
        {uR"({"status":"success","exposure":0.125})"_s,
         u"Lightroom Classic: selected photo selected. Exposure 0.12 EV, rating 0."_s},
        {uR"({"status":"success","rating":1e300})"_s,
         u"Lightroom Classic: selected photo selected. Exposure 0.00 EV, rating 0."_s},
        {u"{}"_s, u"Lightroom Classic: Command completed."_s, Verdict::failed},
        {uR"({"status":"later","message":"wait"})"_s, u"Lightroom Classic: wait"_s, Verdict::failed},
        {uR"({"status":"error","status":"success","message":"a","message":"b"})"_s,
         u"Lightroom Classic: b"_s},
        {u"[1]"_s, u"[1]"_s, Verdict::failed},
        {u"plain words\n"_s, u"plain words\n"_s, Verdict::failed},
        {uR"({"status":"succ)"_s, uR"({"status":"succ)"_s, Verdict::failed},
        {deep, deep, Verdict::failed},
    };
    for (const ReplyCase &one : cases) {
        EXPECT_EQ(formattedPluginResponse(one.reply), one.text) << one.reply.left(80).toStdString();
        EXPECT_EQ(pluginResponseSucceeded(one.reply), one.verdict == Verdict::succeeded)
            << one.reply.left(80).toStdString();
    }
}

TEST(LightroomReplyTest, tidiesSliderMessages)
{
    EXPECT_EQ(formattedAdjustedSliderMessage(u"Adjusted Exposure to 1"_s),
              u"Adjusted Exposure to 1.00 EV."_s);
    EXPECT_EQ(formattedAdjustedSliderMessage(u"Adjusted Tint to 5"_s), u"Adjusted Tint to 5."_s);
    EXPECT_EQ(formattedAdjustedSliderMessage(u"Adjusted Tint to 5.5"_s), u"Adjusted Tint to 5.50."_s);
    EXPECT_EQ(formattedAdjustedSliderMessage(u"Adjusted Grain Size to 5.0"_s),
              u"Adjusted Grain Size to 5."_s);
    for (const QString &message :
         {u"adjusted Tint to 5"_s, u"Adjusted Tint to +5"_s, u"Adjusted Tint to 5."_s,
          u"Adjusted Tint2 to 5"_s, u"Adjusted Tint on 1 photo to 5 (1 missing)"_s,
          QString("Adjusted Tint to "_L1 + QString(400, u'9'))}) {
        EXPECT_EQ(formattedAdjustedSliderMessage(message), std::nullopt) << message.toStdString();
    }
}

} // namespace
} // namespace KelvaLR
