#include "Services/Automation/UIAutomationService.h"

#include "Support/AccessibilityTreeBuilder.h"
#include "Support/PrintQt.h"
#include "Support/RecordingPorts.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

namespace KelvaLR {

void PrintTo(const UIAutomationResult &result, std::ostream *out)
{
    *out << result.sentence(QLatin1StringView("(accessibility denied)")).toStdString();
}

} // namespace KelvaLR

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

const auto success = &UIAutomationResult::success;
const auto failure = &UIAutomationResult::failure;

/// An operation's result, and what was done to the other program.
using Outcome = std::pair<UIAutomationResult, QStringList>;

/// In front is an application with a button that has a centre (1), one without (2) and a search field (3).
class UIAutomation : public testing::Test
{
protected:
    UIAutomation()
    {
        AccessibilityTree &tree = accessibility.elements = applicationTree();
        AccessibilityElement button{.role = u"AXButton"_s, .title = u"Export"_s, .actions = {u"AXPress"_s}};
        appendElement(tree, 0, button);
        tree.last().center = QPointF(10, 20);
        button.title = u"Develop"_s;
        appendElement(tree, 0, button);
        appendElement(tree, 0,
                      {.role = u"AXTextField"_s, .placeholder = u"Search"_s, .center = QPointF(30.5, 40)});
    }

    Outcome outcome(QCoro::Task<UIAutomationResult> operation)
    {
        const UIAutomationResult result = waitForTask(std::move(operation));
        return {result, std::exchange(journal, {})};
    }

    Outcome press(const QString &key) { return outcome(service.pressKey(KeyboardKey::parse(key).value())); }

    QStringList journal;
    FakeAccessibility accessibility{journal};
    RecordingInputEvents inputEvents{journal};
    FixedFrontmostApplication frontmost{FixedFrontmostApplication::lightroomClassic()};
    UIAutomationService service{accessibility, inputEvents, frontmost};
};

} // namespace

TEST_F(UIAutomation, actsAndSaysWhatItDid)
{
    EXPECT_EQ(outcome(service.clickVisibleElement(u" Export\n"_s)),
              Outcome(success(u"Clicked Export."_s), {u"press 1"_s}));
    EXPECT_EQ(accessibility.lastProcessId, FixedFrontmostApplication::lightroomClassic().processId);
    EXPECT_EQ(accessibility.lastPrompt, TrustPrompt::shown);
    EXPECT_EQ(outcome(service.clickVisibleElement(u" \n"_s)),
              Outcome(failure(u"No click target provided."_s), {}));
    EXPECT_EQ(outcome(service.clickVisibleElement(u"Print"_s)),
              Outcome(failure(u"Could not find Print on screen."_s), {}));

    const QString focused = u"focus 3"_s;
    const QString clicked = u"click 30.5,40"_s;
    EXPECT_EQ(outcome(service.focusField(u"search"_s)),
              Outcome(success(u"Focused search."_s), {focused, clicked}));
    EXPECT_EQ(outcome(service.focusField(QString())), Outcome(failure(u"No field target provided."_s), {}));
    EXPECT_EQ(outcome(service.focusField(u"Export"_s)),
              Outcome(failure(u"Could not find Export field on screen."_s), {}));
    EXPECT_EQ(outcome(service.typeTextIntoField(u"  cats "_s, u" Search "_s)),
              Outcome(success(u"Typed text into Search."_s), {focused, clicked, u"text   cats "_s}));
    EXPECT_EQ(outcome(service.typeTextIntoField(QString(), u"Search"_s)),
              Outcome(success(u"Typed text into Search."_s), {focused, clicked, u"text "_s}));
    EXPECT_EQ(outcome(service.typeTextIntoField(u"cats"_s, u"Name"_s)),
              Outcome(failure(u"Could not find Name field on screen."_s), {}));

    EXPECT_EQ(outcome(service.typeText(u"  hello  "_s)),
              Outcome(success(u"Typed text."_s), {u"text hello"_s}));
    EXPECT_EQ(outcome(service.typeText(u" \t "_s)), Outcome(failure(u"No text provided."_s), {}));
    EXPECT_EQ(press(u"shift cmd z"_s),
              Outcome(success(u"Pressed Command-Shift-Z."_s), {u"key 6 0x120000"_s}));
    EXPECT_EQ(press(u"escape"_s), Outcome(success(u"Pressed Escape."_s), {u"key 53 0x0"_s}));
    EXPECT_EQ(press(u"page down"_s), Outcome(failure(u"Could not press Page Down."_s), {}));
}

TEST_F(UIAutomation, clicksWithTheMouseWhereAPressFails)
{
    accessibility.pressSucceeds = false;
    EXPECT_EQ(outcome(service.clickVisibleElement(u"Export"_s)),
              Outcome(success(u"Clicked Export."_s), {u"press 1"_s, u"click 10,20"_s}));
    EXPECT_EQ(outcome(service.clickVisibleElement(u"Develop"_s)),
              Outcome(failure(u"Could not click Develop."_s), {u"press 2"_s}));
}

TEST_F(UIAutomation, doesNothingWithoutAccessibility)
{
    accessibility.trusted = false;
    const Outcome denied(UIAutomationResult::accessibilityDenied(), {});
    EXPECT_EQ(outcome(service.clickVisibleElement(u"Export"_s)), denied);
    EXPECT_EQ(outcome(service.focusField(u"Search"_s)), denied);
    EXPECT_EQ(outcome(service.typeTextIntoField(u"a"_s, u"Search"_s)), denied);
    EXPECT_EQ(outcome(service.typeText(u"a"_s)), denied);
    EXPECT_EQ(press(u"page down"_s), denied);
    EXPECT_TRUE(waitForTask(service.getVisibleElements()).isEmpty());
    // Arguments are looked at first.
    EXPECT_EQ(outcome(service.typeText(u" "_s)), Outcome(failure(u"No text provided."_s), {}));
}

TEST_F(UIAutomation, searchesOnlyAFrontmostApplication)
{
    EXPECT_EQ(waitForTask(service.getVisibleElements()).size(), 2);
    frontmost.application.reset();
    const Outcome nothingInFront(failure(u"No frontmost app is available."_s), {});
    EXPECT_EQ(outcome(service.clickVisibleElement(u"Export"_s)), nothingInFront);
    EXPECT_EQ(outcome(service.typeTextIntoField(u"a"_s, u"Search"_s)), nothingInFront);
    EXPECT_TRUE(waitForTask(service.getVisibleElements()).isEmpty());
    EXPECT_EQ(outcome(service.typeText(u"a"_s)), Outcome(success(u"Typed text."_s), {u"text a"_s}));
}

TEST_F(UIAutomation, aTaskOutlivesItsService)
{
    auto shortLived = std::make_unique<UIAutomationService>(accessibility, inputEvents, frontmost);
    auto task = shortLived->typeTextIntoField(u"cats"_s, u"Search"_s);
    shortLived.reset();
    EXPECT_TRUE(waitForTask(std::move(task)).isSuccess());
    EXPECT_EQ(journal.last(), u"text cats"_s);
}

TEST_F(UIAutomation, saysSoWhenNobodyReceivesTheEvents)
{
    accessibility.pressSucceeds = false;
    inputEvents.isReceived = false;
    EXPECT_EQ(outcome(service.clickVisibleElement(u"Export"_s)),
              Outcome(failure(u"Could not click Export."_s), {u"press 1"_s}));
    EXPECT_EQ(outcome(service.typeTextIntoField(u"cats"_s, u"Search"_s)),
              Outcome(failure(u"Could not focus Search."_s), {u"focus 3"_s}));
    EXPECT_EQ(outcome(service.typeText(u"cats"_s)),
              Outcome(failure(u"Could not type all of the text."_s), {}));
    EXPECT_EQ(press(u"z"_s), Outcome(failure(u"Could not press Z."_s), {}));
}
