#include "Services/Assistant/AssistantReplyDecoder.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(ChatTextOutput, isTheTrimmedContentOfTheFirstChoice)
{
    EXPECT_EQ(chatTextOutput(
                  R"({"choices":[{"message":{"content":" \n hi\u00a0\n"}},{"message":{"content":"x"}}]})"),
              u"hi"_s);
    EXPECT_EQ(chatTextOutput(R"({"choices":[{"message":{"content":""}}]})"), u""_s);
    for (const QByteArray &body :
         {""_ba, "<html>"_ba, "[]"_ba, R"({"choices":[{"message":{"content":"cut)"_ba, R"({"choices":[]})"_ba,
          R"({"choices":{"0":{"message":{"content":"hi"}}}})"_ba,
          R"({"choices":[{"message":{"content":"hi"}},5]})"_ba, R"({"choices":["hi"]})"_ba,
          R"({"choices":[{"message":"hi"}]})"_ba, R"({"choices":[{"message":{"content":null}}]})"_ba,
          QByteArray(1'000'000, '[')}) {
        EXPECT_EQ(chatTextOutput(body), std::unexpected(OpenAIProviderError::emptyOutput()))
            << body.left(80).toStdString();
    }
}

TEST(DecodeAssistantReply, aTextThatIsNoObjectIsTheMessageWordForWord)
{
    for (const QString &text :
         {u"Just ```prose```"_s, u"```"_s, u"````\n{}\n````"_s, u"```JSON\n{\"message\":\"hi\"}\n```"_s,
          u"[1]"_s, u""_s, u"{\"message\":\"cut"_s, u"```json\nnull\n```"_s, u"{\"message\":1e999}"_s,
          QString(1'000'000, u'{')}) {
        const AssistantResponse response = decodeAssistantReply(text);
        ConversationMessage message = response.message;
        message.content = text;
        message.role = ConversationRole::assistant;
        message.mode = InputMode::quiet;
        EXPECT_EQ(response, (AssistantResponse{message, {}, {}})) << text.left(80).toStdString();
    }
}

TEST(DecodeAssistantReply, findsTheMessageOfAnObjectInFences)
{
    const std::pair<QString, QString> cases[] = {
        {u" {\"message\":\"hi\"} \n"_s, u"hi"_s},
        {u"```json\n{\"message\":\"hi\"}\n```"_s, u"hi"_s},
        {u"```\n{\"message\":\"hi\"}\n```\n"_s, u"hi"_s},
        {u"{\"message\":\"hi\"}\n```"_s, u"hi"_s},
        {u"```json{\"message\":\"hi\"}"_s, u"hi"_s},
        {u"{\"message\":5}"_s, u""_s},
        {u"{\"message\":\"a\",\"message\":\"b\"}"_s, u"b"_s},
    };
    for (const auto &[text, message] : cases) {
        EXPECT_EQ(decodeAssistantReply(text).message.content, message) << text.toStdString();
    }
}

TEST(DecodeAssistantReply, readsACompleteCardOnly)
{
    const auto cards = [](const QByteArray &json) {
        return decodeAssistantReply(u"{\"message\":\"m\",\"artifact\":%1}"_s.arg(QString::fromUtf8(json)))
            .artifacts;
    };
    for (const auto &[raw, kind] :
         {std::pair("markdown", ArtifactKind::markdown), std::pair("progress", ArtifactKind::progress),
          std::pair("Markdown", ArtifactKind::note)}) {
        const auto read =
            cards(R"({"kind":"%1","title":" T ","body":"a\\nb\nc\\\\nd"})"_ba.replace("%1", raw));
        ASSERT_EQ(read.size(), 1) << raw;
        const Artifact card{read[0].id, kind, u" T "_s, {}, read[0].createdAt, u"a\nb\nc\\\nd"_s};
        EXPECT_EQ(read[0], card) << raw;
    }
    for (const char *incomplete :
         {"null", "[]", "{}", R"({"kind":"note","title":"T"})", R"({"kind":"note","body":"b"})",
          R"({"title":"T","body":"b"})", R"({"kind":"note","title":"T","body":5})"}) {
        EXPECT_TRUE(cards(incomplete).isEmpty()) << incomplete;
    }
}

TEST(DecodeAssistantReply, readsAnActionWithATypeAndItsFieldsOfTheRightType)
{
    const std::pair<QByteArray, std::optional<AssistantAction>> cases[] = {
        {R"({"type":"lr_x","script_code":"s","slider":"Exposure","value":5,"relative":false,
             "text":"t","preset_name":"p","folder_path":"/f"})",
         {{u"lr_x"_s, u"s"_s, u"Exposure"_s, 5.0, false, u"t"_s, u"p"_s, u"/f"_s}}},
        {R"({"type":"","script_code":1,"slider":null,"value":"0.3","relative":"true","text":{},
             "preset_name":[],"folder_path":2})",
         AssistantAction{}},
        {R"({"type":"t","value":true,"relative":1})", {{.type = u"t"_s}}},
        {"null", {}},
        {"[]", {}},
        {R"({"slider":"Exposure"})", {}},
        {R"({"type":5})", {}},
    };
    for (const auto &[json, action] : cases) {
        const QString reply = u"{\"action\":%1,\"artifact\":{}}"_s.arg(QString::fromUtf8(json));
        EXPECT_EQ(decodeAssistantReply(reply).action, action) << json.toStdString();
    }
}
