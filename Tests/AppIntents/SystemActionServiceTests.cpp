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

    QDBusMessage call(QLatin1StringView interface, const QString &method, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(SystemActionName::service,
                                                              SystemActionName::path, interface, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = caller.asyncCall(message);
        EXPECT_TRUE(waitUntil([&] { return pending.isFinished(); }));
        return pending.reply();
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
    struct Case
    {
        QLatin1StringView interface;
        QString method;
        QVariantList arguments;
        QStringList done;
        QVariantList answer;
    };

    const auto &intents = SystemActionName::intentsInterface;
    const auto &application = SystemActionName::applicationInterface;
    const QVariantMap platformData{{u"desktop-startup-id"_s, u"x_TIME1"_s}};
    const QStringList onlyPresented{u"present"_s};
    const QStringList opened{u"present"_s, u"route without a note"_s};
    const QList<Case> cases{
        {intents, u"OpenKelvaLRSection"_s, {u"chat"_s}, opened, {}},
        {intents,
         u"CreateKelvaLRNote"_s,
         {u" Buy film\n"_s},
         {u"present"_s, u"route  Buy film\n"_s},
         {u"Opened KelvaLR."_s}},
        {application, u"Activate"_s, {platformData}, onlyPresented, {}},
        {application, u"Open"_s, {QStringList(u"file:///a.jpg"_s), platformData}, onlyPresented, {}},
        {application, u"ActivateAction"_s, {u"OpenSection"_s, QVariantList(), platformData}, opened, {}},
        {application,
         u"ActivateAction"_s,
         {u"CreateNote"_s, QVariantList{u"Buy film"_s}, platformData},
         {u"present"_s, u"route Buy film"_s},
         {}},
        {application, u"ActivateAction"_s, {u"Nonsense"_s, QVariantList(), platformData}, onlyPresented, {}},
    };
    for (const Case &one : cases) {
        journal.clear();
        const QDBusMessage reply = call(one.interface, one.method, one.arguments);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
        EXPECT_EQ(reply.arguments(), one.answer) << one.method.toStdString();
        EXPECT_EQ(journal, one.done) << one.method.toStdString();
    }
}

TEST_F(SystemActionServiceTest, refusesWithASentence)
{
    const QDBusMessage unknown =
        call(SystemActionName::intentsInterface, SystemActionName::openSection, {u"settings"_s});
    EXPECT_EQ(unknown.errorMessage(), u"There is no section 'settings'; there is: chat."_s);
    EXPECT_EQ(journal, QStringList());

    opens = false;
    const QDBusMessage closed =
        call(SystemActionName::intentsInterface, SystemActionName::createNote, {u"a"_s});
    EXPECT_EQ(closed.errorMessage(), u"KelvaLR could not open its window."_s);
    EXPECT_EQ(journal, QStringList(u"present"_s));
}

TEST_F(SystemActionServiceTest, isThereOnce)
{
    SystemActionService second(router, [] { return true; });
    EXPECT_EQ(second.publish(bus.connect(u"second"_s)), SystemActionService::Publication::anotherRuns);
    EXPECT_EQ(second.publish(QDBusConnection(u"nowhere"_s)), SystemActionService::Publication::noBus);
    const auto nobody = handOver(QDBusConnection(u"nowhere"_s), std::nullopt);
    ASSERT_FALSE(nobody.has_value());
    EXPECT_EQ(nobody.error(), u"KelvaLR already runs, but does not answer."_s);
}

} // namespace
} // namespace KelvaLR::Testing
