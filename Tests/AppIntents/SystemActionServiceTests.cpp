#include "App/SystemActionNames.h"
#include "App/SystemActionService.h"
#include "AppIntents/AppIntentRouter.h"
#include "Support/PrintQt.h"
#include "Support/PrivateSessionBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingReply>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

/// A published program without a window, and somebody who calls it over a real bus.
class SystemActionServiceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(bus.isUp());
        ASSERT_EQ(service.publish(bus.connect(u"program"_s)), SystemActionService::Publication::published);
        QObject::connect(&router, &AppIntentRouter::pendingRouteChanged, &service, [this] {
            journal.append("route "_L1 +
                           router.pendingRoute()->prefilledPrompt.value_or(u"without a note"_s));
        });
    }

    /// What is answered, and what was done.
    using Outcome = std::pair<QString, QStringList>;

    Outcome call(QLatin1StringView interface, const QString &method, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(SystemActionName::service,
                                                              SystemActionName::path, interface, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = caller.asyncCall(message);
        EXPECT_TRUE(waitUntil([&] { return pending.isFinished(); }));
        const QDBusMessage reply = pending.reply();
        const QString answer = reply.type() == QDBusMessage::ReplyMessage
                                   ? reply.arguments().value(0).toString()
                                   : u"error: "_s + reply.errorMessage();
        return {answer, std::exchange(journal, {})};
    }

    PrivateSessionBus bus;
    QDBusConnection caller = bus.connect(u"caller"_s);
    QStringList journal; ///< "present" and "route NOTE", in order
    bool opens = true;
    AppIntentRouter router;
    SystemActionService service{router, [this] {
                                    journal.append(u"present"_s);
                                    return opens;
                                }};
};

TEST_F(SystemActionServiceTest, bringsTheWindowToTheFrontBeforeItActs)
{
    const auto &intents = SystemActionName::intentsInterface;
    const auto &application = SystemActionName::applicationInterface;
    const QString action = u"ActivateAction"_s;
    const QVariantMap platformData{{u"desktop-startup-id"_s, u"x_TIME1"_s}};
    const Outcome onlyPresented(QString(), {u"present"_s});
    const Outcome opened(QString(), {u"present"_s, u"route without a note"_s});

    EXPECT_EQ(call(intents, u"OpenKelvaLRSection"_s, {u"chat"_s}), opened);
    EXPECT_EQ(call(intents, u"OpenKelvaLRSection"_s, {u"settings"_s}),
              Outcome(u"error: There is no section 'settings'; there is: chat."_s, {}));
    EXPECT_EQ(call(intents, u"CreateKelvaLRNote"_s, {u" Buy film\n"_s}),
              Outcome(u"Opened KelvaLR."_s, {u"present"_s, u"route  Buy film\n"_s}));
    EXPECT_EQ(call(application, u"Activate"_s, {platformData}), onlyPresented);
    EXPECT_EQ(call(application, u"Open"_s, {QStringList(u"file:///a.jpg"_s), platformData}), onlyPresented);
    EXPECT_EQ(call(application, action, {u"OpenSection"_s, QVariantList(), platformData}), opened);
    EXPECT_EQ(call(application, action, {u"CreateNote"_s, QVariantList{u"Buy film"_s}, platformData}),
              Outcome(QString(), {u"present"_s, u"route Buy film"_s}));
    EXPECT_EQ(call(application, action, {u"Nonsense"_s, QVariantList(), platformData}), onlyPresented);
    opens = false;
    EXPECT_EQ(call(intents, u"CreateKelvaLRNote"_s, {u"a"_s}),
              Outcome(u"error: KelvaLR could not open its window."_s, {u"present"_s}));
}

TEST_F(SystemActionServiceTest, isThereOnce)
{
    SystemActionService second(router, [] { return true; });
    EXPECT_EQ(second.publish(bus.connect(u"second"_s)), SystemActionService::Publication::anotherRuns);
    EXPECT_EQ(second.publish(QDBusConnection(u"nowhere"_s)), SystemActionService::Publication::noBus);
    EXPECT_EQ(handOver(QDBusConnection(u"nowhere"_s), std::nullopt),
              std::unexpected(u"KelvaLR already runs, but does not answer."_s));
}

} // namespace
} // namespace KelvaLR::Testing
