#include "Services/Assistant/AssistantReplyDecoder.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

TEST(ChatTextOutput, isTheTrimmedContentOfTheFirstChoice)
{
    const auto noOutput = std::unexpected(OpenAIProviderError::emptyOutput());
    const std::pair<QByteArray, std::expected<QString, OpenAIProviderError>> cases[] = {
        {R"({"choices":[{"message":{"content":" \n hi\u00a0\n"}},{"message":{"content":"other"}}]})",
         u"hi"_s},
        {R"({"choices":[{"message":{"content":""}}]})", u""_s},
        {"", noOutput},
        {"<html>", noOutput},
        {"[]", noOutput},
        {R"({"choices":[{"message":{"content":"cut)", noOutput},
        {R"({"choices":[]})", noOutput},
        {R"({"choices":{"0":{"message":{"content":"hi"}}}})", noOutput},
        {R"({"choices":[{"message":{"content":"hi"}},5]})", noOutput},
        {R"({"choices":["hi"]})", noOutput},
        {R"({"choices":[{"message":"hi"}]})", noOutput},
        {R"({"choices":[{"message":{"content":null}}]})", noOutput},
        {QByteArray(1'000'000, '['), noOutput},
    };
    for (const auto &[body, output] : cases) {
        EXPECT_EQ(chatTextOutput(body), output) << body.left(80).toStdString();
    }
}

TEST(CleanJsonString, takesFencesOff)
{
    const std::pair<QString, QString> cases[] = {
        {u" {} \n"_s, u"{}"_s},
        {u"```json\n{}\n```"_s, u"{}"_s},
        {u"```\n{}\n```\n"_s, u"{}"_s},
        {u"{}\n```"_s, u"{}"_s},
        {u"```json{}"_s, u"{}"_s},
        {u"```JSON\n{}\n```"_s, u"JSON\n{}"_s},
        {u"````\n{}\n````"_s, u"`\n{}\n`"_s},
        {u"```"_s, u""_s},
    };
    for (const auto &[text, cleaned] : cases) {
        EXPECT_EQ(cleanJsonString(text), cleaned) << text.toStdString();
    }
}

TEST(DecodeAssistantReply, aTextThatIsNoObjectIsTheMessageWordForWord)
{
    for (const QString &text : {u"Just ```prose```"_s, u"```JSON\n{\"message\":\"hi\"}\n```"_s, u"[1]"_s,
                                u""_s, u"{\"message\":\"cut"_s, u"```json\nnull\n```"_s,
                                u"{\"message\":1e999}"_s, QString(1'000'000, u'{')}) {
        SCOPED_TRACE(text.left(80).toStdString());
        const AssistantResponse response = decodeAssistantReply(text);
        EXPECT_EQ(response.message.content, text);
        EXPECT_EQ(response.message.role, ConversationRole::assistant);
        EXPECT_EQ(response.message.mode, InputMode::quiet);
        EXPECT_TRUE(response.artifacts.isEmpty());
        EXPECT_FALSE(response.action);
    }
}

TEST(DecodeAssistantReply, aMessageThatIsNoTextIsEmpty)
{
    EXPECT_EQ(decodeAssistantReply(u"```json\n{\"message\":\"hi\"}\n```"_s).message.content, u"hi"_s);
    EXPECT_EQ(decodeAssistantReply(u"{\"message\":5}"_s).message.content, u""_s);
    EXPECT_EQ(decodeAssistantReply(u"{\"message\":\"a\",\"message\":\"b\"}"_s).message.content, u"b"_s);
}

TEST(DecodeAssistantReply, readsACompleteCardOnly)
{
    const auto card = [](const QByteArray &json) {
        return decodeAssistantReply(u"{\"message\":\"m\",\"artifact\":%1}"_s.arg(QString::fromUtf8(json)))
            .artifacts;
    };
    const std::pair<const char *, ArtifactKind> kinds[] = {
        {"markdown", ArtifactKind::markdown},
        {"progress", ArtifactKind::progress},
        {"note", ArtifactKind::note},
        {"Markdown", ArtifactKind::note},
        {"", ArtifactKind::note},
    };
    for (const auto &[raw, kind] : kinds) {
        const auto cards =
            card(R"({"kind":"%1","title":" T ","body":"a\\nb\nc\\\\nd"})"_ba.replace("%1", raw));
        ASSERT_EQ(cards.size(), 1) << raw;
        EXPECT_EQ(cards[0].kind, kind) << raw;
        EXPECT_EQ(cards[0].title, u" T "_s);
        EXPECT_EQ(cards[0].body, u"a\nb\nc\\\nd"_s);
        EXPECT_EQ(cards[0].status, ArtifactStatus::ready);
        EXPECT_FALSE(cards[0].id.isNull());
    }
    for (const char *incomplete :
         {"null", "[]", "{}", R"({"kind":"note","title":"T"})", R"({"kind":"note","body":"b"})",
          R"({"title":"T","body":"b"})", R"({"kind":"note","title":"T","body":5})"}) {
        EXPECT_TRUE(card(incomplete).isEmpty()) << incomplete;
    }
}

TEST(DecodeAssistantReply, readsAnActionWithATypeAndItsFieldsOfTheRightType)
{
    const auto action = [](const QByteArray &json) {
        return decodeAssistantReply(u"{\"action\":%1,\"artifact\":{}}"_s.arg(QString::fromUtf8(json))).action;
    };
    EXPECT_EQ(action(R"({"type":"lr_x","script_code":"s","slider":"Exposure","value":5,"relative":false,
                         "text":"t","preset_name":"p","folder_path":"/f"})"),
              (AssistantAction{u"lr_x"_s, u"s"_s, u"Exposure"_s, 5.0, false, u"t"_s, u"p"_s, u"/f"_s}));
    EXPECT_EQ(action(R"({"type":"","script_code":1,"slider":null,"value":"0.3","relative":"true","text":{},
                         "preset_name":[],"folder_path":2})"),
              AssistantAction{});
    EXPECT_EQ(action(R"({"type":"t","value":true,"relative":1})"), (AssistantAction{.type = u"t"_s}));
    for (const char *incomplete : {"null", "[]", R"({"slider":"Exposure"})", R"({"type":5})"}) {
        EXPECT_FALSE(action(incomplete)) << incomplete;
    }
}

} // namespace

} // namespace KelvaLR
