#include "Services/Assistant/Realtime/RealtimeToolCall.h"

#include "Services/Assistant/Realtime/RealtimeServerEvent.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(RealtimeServerEvent, isAnObjectWithAType)
{
    const auto event = RealtimeServerEvent::parse(R"({"type":"x","delta":"é","number":1})");
    ASSERT_TRUE(event);
    EXPECT_EQ(event->type, u"x"_s);
    EXPECT_EQ(event->text("delta"_L1), u"é"_s);
    EXPECT_EQ(event->text("number"_L1), std::nullopt);
    EXPECT_EQ(event->text("absent"_L1), std::nullopt);
    const QByteArray padding(RealtimeServerEvent::largestFrame, ' ');
    const QByteArray frames[] = {
        "",
        "text",
        "null",
        R"(["type"])",
        R"({"type":1})",
        R"({"Type":"x"})",
        R"({"type":"x"} {})",
        R"({"type":"x")",
        "{\"type\":\"\xC3\x28\"}",
        R"({"type":"x","a":)" + QByteArray(100'000, '['),
        R"({"type":"x","a":)" + QByteArray(5000, '[') + QByteArray(5000, ']') + '}',
        R"({"type":"x"})" + padding,
    };
    for (const QByteArray &frame : frames) {
        EXPECT_FALSE(RealtimeServerEvent::parse(frame)) << frame.left(60).toStdString();
    }
}

TEST(RealtimeToolCall, readsEveryArgumentOfItsType)
{
    const QString every =
        uR"({"action":" Type ","app_name":"a","target_name":"t","text":"x","key":"k","prompt":"p",)"
        uR"("script_code":"s","slider":"l","value":-1.5,"relative":false,"preset_name":"n","folder_path":"/f"})"_s;
    const QString wrong =
        uR"({"action":"x","text":1,"slider":null,"value":"2","relative":1,"folder_path":[],"key":{}})"_s;
    const RealtimeToolCall whole{u"c"_s, u" Type "_s, every,  u"a"_s, u"t"_s, u"x"_s, u"k"_s,
                                 u"p"_s, u"s"_s,      u"l"_s, -1.5,   false,  u"n"_s, u"/f"_s};
    for (const auto &call : {whole, {.callID = u"c"_s, .action = u"x"_s, .arguments = wrong}}) {
        const QJsonObject members{
            {u"name"_s, u"computer_use"_s}, {u"call_id"_s, call.callID}, {u"arguments"_s, call.arguments}};
        EXPECT_EQ(RealtimeToolCall::parse({{}, members}), call);
    }
    EXPECT_EQ(targetRequest(whole, u"words"_s),
              (RealtimeImportedPhotoTargetRequest{u" Type "_s, u"x"_s, u"t"_s, u"p"_s, u"n"_s, u"words"_s}));
}

TEST(RealtimeToolCall, passesOverAnotherToolAndSaysWhatCannotBeRead)
{
    const auto ours = [](const QByteArray &arguments) -> QByteArray {
        return R"({"type":"x","name":"computer_use","call_id":"c","arguments":)" + arguments + '}';
    };
    const QString unreadable = u"Failed to parse tool call arguments: "_s;
    const std::pair<QByteArray, QString> cases[] = {
        {R"({"type":"x"})", {}},
        {R"({"type":"x","name":"computer_use"})", {}},
        {R"({"type":"x","name":"computer_use","call_id":7})", {}},
        {R"({"type":"x","name":"Computer_Use","call_id":"c"})", {}},
        {R"({"type":"x","call_id":"c","arguments":"{\"action\":\"click\"}"})", {}},
        {ours(R"("")"), unreadable},
        {ours(R"("{")"), unreadable + u'{'},
        {ours(R"("[\"action\"]")"), unreadable + u"[\"action\"]"},
        {ours(R"("{\"action\":1}")"), unreadable + u"{\"action\":1}"},
        {ours(R"("{\"Action\":\"click\"}")"), unreadable + u"{\"Action\":\"click\"}"},
        {ours(R"({"action":"click"})"), unreadable + u"{}"}, // an object where a text is expected
        {ours("null"), unreadable + u"{}"},
    };
    for (const auto &[frame, sentence] : cases) {
        EXPECT_EQ(RealtimeToolCall::parse(RealtimeServerEvent::parse(frame).value()),
                  std::unexpected(sentence))
            << frame.toStdString();
    }
}
