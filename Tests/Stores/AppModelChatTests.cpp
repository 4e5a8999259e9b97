// Requests in free words, with the real chat backend against a real HTTP server.
#include "Services/Assistant/OpenAIAssistantProvider.h"
#include "Stores/AppModelFixture.h"
#include "Support/ScriptedHttpServer.h"

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace Testing;

class AppModelChatTest : public AppModelTest
{
protected:
    AppModelChatTest()
    {
        model = std::make_unique<AppModel>(AppModelServices{*provider, computerUse, realtime, wakePhrase,
                                                            speech, *lightroom.service, connection, actions,
                                                            lightroom.applications, preferences});
    }

    /// Submits a text that the server does not answer, and waits until it is there.
    void submitUnanswered(const QString &text)
    {
        model->setPromptText(text);
        model->submitPrompt();
        ASSERT_TRUE(waitUntil([&] { return server.requests.size() == 1; }));
        ASSERT_TRUE(model->isResponding());
    }

    ScriptedHttpServer server;
    std::unique_ptr<OpenAIAssistantProvider> provider =
        std::make_unique<OpenAIAssistantProvider>(OpenAIAccess(
            u"KEY"_s, server.baseUrl(), [](const QString &) { return std::optional(u"test-key"_s); }));
};

TEST_F(AppModelChatTest, aReplyShowsItsCardAndItsActionReachesThePlugin)
{
    server.answer = [](const auto &) {
        return chatResponse(
            uR"({"message":"Warmer.","action":{"type":"lr_adjust_sliders","text":"Temp:600:1"},
                                 "artifact":{"kind":"markdown","title":"Look","body":"- warm"}})"_s);
    };
    submit(u"give this a warm, faded look"_s);

    EXPECT_EQ(answers(), (QStringList{u"Warmer."_s, u"Lightroom Classic: Done"_s}));
    ASSERT_TRUE(model->selectedArtifact());
    EXPECT_EQ(model->selectedArtifact()->title, u"Look"_s);
    EXPECT_EQ(lastCommand(),
              (QJsonObject{{u"action"_s, u"adjust_sliders"_s}, {u"adjustments"_s, u"Temp:600:1"_s}}));
}

TEST_F(AppModelChatTest, aSecondPromptWaitsInTheComposerWhileTheFirstIsUnderWay)
{
    submitUnanswered(u"tell me about light"_s);
    model->setPromptText(u"and about shadows"_s);
    model->submitPrompt();
    EXPECT_EQ(model->promptText(), u"and about shadows"_s);

    model->startNewSession(); // what is under way goes on, and answers into the new conversation
    EXPECT_TRUE(model->isResponding());
    provider.reset();
    EXPECT_FALSE(model->isResponding());
    EXPECT_EQ(answers(), QStringList{u"OpenAI request failed: Operation canceled"_s});
    EXPECT_EQ(server.requests.size(), 1);
}

TEST_F(AppModelChatTest, quittingWhileARequestIsUnderWayLeavesNothingBehind)
{
    submitUnanswered(u"tell me about light"_s);
    model.reset();
    provider.reset(); // under the address sanitizer, a coroutine that still waited would be a leak
}

} // namespace

} // namespace KelvaLR
