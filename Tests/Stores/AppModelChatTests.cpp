// Requests in free words, with the real chat backend against a real HTTP server.
#include "Services/Assistant/OpenAIAssistantProvider.h"
#include "Stores/AppModelFixture.h"
#include "Support/ScriptedHttpServer.h"

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

class AppModelChatTest : public AppModelTest
{
protected:
    AppModelChatTest() { makeModel(*provider, realtime, wakePhrase); }

    /// Submits a text that the server does not answer, and waits until it is there.
    void submitUnanswered(const QString &text)
    {
        send(text);
        ASSERT_TRUE(waitUntil([&] { return server.requests.size() == 1; }));
        ASSERT_TRUE(model->isResponding());
    }

    ScriptedHttpServer server;
    std::unique_ptr<OpenAIAssistantProvider> provider =
        std::make_unique<OpenAIAssistantProvider>(OpenAIAccess(
            u"KEY"_s, server.baseUrl(), [](const QString &) { return std::optional(u"test-key"_s); }));
};

} // namespace

TEST_F(AppModelChatTest, aSecondPromptWaitsInTheComposerWhileTheFirstIsUnderWay)
{
    submitUnanswered(u"tell me about light"_s);
    EXPECT_EQ(model->promptText(), QString());
    send(u"and about shadows"_s);
    EXPECT_EQ(model->promptText(), u"and about shadows"_s);

    model->startNewSession(); // what is under way goes on, and answers into the new conversation
    EXPECT_TRUE(model->messages().isEmpty());
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
