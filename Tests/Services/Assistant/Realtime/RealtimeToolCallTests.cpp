#include "Services/Assistant/Realtime/RealtimeToolCall.h"

#include "Services/Assistant/Realtime/RealtimeServerEvent.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

TEST(RealtimeServerEvent, isAnObjectWithAType)
{
    const auto event = RealtimeServerEvent::parse(R"({"type":"x","delta":"é","number":1})");
    ASSERT_TRUE(event);
    EXPECT_EQ(event->type, u"x"_s);
    EXPECT_EQ(event->text("delta"_L1), u"é"_s);
    EXPECT_EQ(event->text("number"_L1), std::nullopt);
    EXPECT_EQ(event->text("absent"_L1), std::nullopt);
}

TEST(RealtimeServerEvent, anythingElseIsNone)
{
    const QByteArray padding(RealtimeServerEvent::largestFrame, ' ');
    const QByteArray frames[] = {
        {},
        "text",
        "null",
        R"(["type"])",
        R"({"type":1})",
        R"({"Type":"x"})",
        R"({"type":"x"} {})",
        R"({"type":"x")",
        "{\"type\":\"\xC3\x28\"}",
        QByteArray("{\"type\":\"x\",\"a\":") + QByteArray(100'000, '['),
        QByteArray("{\"type\":\"x\",\"a\":") + QByteArray(5000, '[') + QByteArray(5000, ']') + '}',
        "{\"type\":\"x\"}" + padding,
    };
    for (const QByteArray &frame : frames) {
        EXPECT_FALSE(RealtimeServerEvent::parse(frame)) << frame.left(60).toStdString();
    }
}

std::expected<RealtimeToolCall, QString> parsed(const QByteArray &frame)
{
    return RealtimeToolCall::parse(RealtimeServerEvent::parse(frame).value());
}

/// @param arguments a JSON value
QByteArray call(const QByteArray &arguments)
{
    return R"({"type":"response.function_call_arguments.done","name":"computer_use","call_id":"c","arguments":)" +
           arguments + '}';
}

TEST(RealtimeToolCall, readsEveryArgument)
{
    const QString arguments =
        uR"({"action":" Type ","app_name":"a","target_name":"t","text":"x","key":"k","prompt":"p",)"
        uR"("script_code":"s","slider":"l","value":-1.5,"relative":false,"preset_name":"n","folder_path":"/f"})"_s;
    const RealtimeToolCall whole{u"c"_s, u" Type "_s, arguments, u"a"_s, u"t"_s, u"x"_s, u"k"_s,
                                 u"p"_s, u"s"_s,      u"l"_s,    -1.5,   false,  u"n"_s, u"/f"_s};
    EXPECT_EQ(
        RealtimeToolCall::parse(
            {{}, {{u"name"_s, u"computer_use"_s}, {u"call_id"_s, u"c"_s}, {u"arguments"_s, arguments}}}),
        whole);
    EXPECT_EQ(whole.knownAction(), RealtimeToolAction::type);
    EXPECT_EQ(targetRequest(whole, u"words"_s),
              (RealtimeImportedPhotoTargetRequest{u" Type "_s, u"x"_s, u"t"_s, u"p"_s, u"n"_s, u"words"_s}));
}

TEST(RealtimeToolCall, anArgumentOfAnotherTypeIsAbsent)
{
    const QString arguments =
        uR"({"action":"x","text":1,"slider":null,"value":"2","relative":1,"folder_path":[],"key":{}})"_s;
    const auto call = RealtimeToolCall::parse(
        {{}, {{u"name"_s, u"computer_use"_s}, {u"call_id"_s, u"c"_s}, {u"arguments"_s, arguments}}});
    EXPECT_EQ(call, (RealtimeToolCall{.callID = u"c"_s, .action = u"x"_s, .arguments = arguments}));
    EXPECT_EQ(call->knownAction(), std::nullopt);
}

TEST(RealtimeToolCall, oneOfAnotherToolIsPassedOverInSilence)
{
    for (const QByteArray &frame :
         {R"({"type":"x"})"_ba, R"({"type":"x","name":"computer_use"})"_ba,
          R"({"type":"x","name":"computer_use","call_id":7})"_ba,
          R"({"type":"x","name":"Computer_Use","call_id":"c"})"_ba,
          R"({"type":"x","call_id":"c","arguments":"{\"action\":\"click\"}"})"_ba}) {
        EXPECT_EQ(parsed(frame), std::unexpected(QString())) << frame.toStdString();
    }
}

TEST(RealtimeToolCall, whatCannotBeReadIsSaid)
{
    const std::pair<QByteArray, QString> cases[] = {
        {R"("")", QString()},
        {R"("{")", u"{"_s},
        {R"("[\"action\"]")", u"[\"action\"]"_s},
        {R"("{\"action\":1}")", u"{\"action\":1}"_s},
        {R"("{\"Action\":\"click\"}")", u"{\"Action\":\"click\"}"_s},
        {R"({"action":"click"})", u"{}"_s}, // an object where a text is expected
        {"null", u"{}"_s},
    };
    for (const auto &[arguments, shown] : cases) {
        EXPECT_EQ(parsed(call(arguments)),
                  std::unexpected("Failed to parse tool call arguments: "_L1 + shown))
            << arguments.toStdString();
    }
}

} // namespace

} // namespace KelvaLR
