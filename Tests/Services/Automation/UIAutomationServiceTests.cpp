#include "Services/Automation/UIAutomationService.h"

#include "Support/AccessibilityTreeBuilder.h"
#include "Support/PrintQt.h"
#include "Support/RecordingPorts.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <functional>

namespace KelvaLR {

void PrintTo(const UIAutomationResult &result, std::ostream *out)
{
    *out << result.sentence(QLatin1StringView("(accessibility denied)")).toStdString();
}

namespace {

using namespace Qt::StringLiterals;
using namespace Testing;

/// An application with a button that has a centre (1), one without (2) and a search field (3).
AccessibilityTree sampleTree()
{
    AccessibilityTree tree = applicationTree();
    AccessibilityElement element;
    element.role = u"AXButton"_s;
    element.title = u"Export"_s;
    element.actions << u"AXPress"_s;
    element.center = QPointF(10, 20);
    appendElement(tree, 0, element);
    element.title = u"Develop"_s;
    element.center.reset();
    appendElement(tree, 0, element);
    element = {};
    element.role = u"AXTextField"_s;
    element.placeholder = u"Search"_s;
    element.center = QPointF(30.5, 40);
    appendElement(tree, 0, element);
    return tree;
}

class UIAutomation : public testing::Test
{
protected:
    UIAutomation() { accessibility.elements = sampleTree(); }

    QStringList journal;
    FakeAccessibility accessibility{journal};
    RecordingInputEvents inputEvents{journal};
    FixedFrontmostApplication frontmost{FixedFrontmostApplication::lightroomClassic()};
    UIAutomationService service{accessibility, inputEvents, frontmost};
};

using Operation = std::function<QCoro::Task<UIAutomationResult>(const UIAutomationService &)>;

struct OperationCase
{
    const char *name;
    Operation run;
    UIAutomationResult result;
    QStringList journal;
};

Operation click(const QString &name)
{
    return [=](const UIAutomationService &service) { return service.clickVisibleElement(name); };
}

Operation focus(const QString &name)
{
    return [=](const UIAutomationService &service) { return service.focusField(name); };
}

Operation typeInto(const QString &text, const QString &field)
{
    return [=](const UIAutomationService &service) { return service.typeTextIntoField(text, field); };
}

Operation type(const QString &text)
{
    return [=](const UIAutomationService &service) { return service.typeText(text); };
}

Operation press(const QString &description)
{
    return [=](const UIAutomationService &service) {
        return service.pressKey(KeyboardKey::parse(description).value());
    };
}

TEST_F(UIAutomation, actsAndSaysWhatItDid)
{
    const auto success = &UIAutomationResult::success;
    const auto failure = &UIAutomationResult::failure;
    const OperationCase cases[] = {
        {"click", click(u" Export\n"_s), success(u"Clicked Export."_s), {u"press 1"_s}},
        {"click nothing", click(u" \n"_s), failure(u"No click target provided."_s), {}},
        {"click what is not there", click(u"Print"_s), failure(u"Could not find Print on screen."_s), {}},
        {"focus", focus(u"search"_s), success(u"Focused search."_s), {u"focus 3"_s, u"click 30.5,40"_s}},
        {"focus nothing", focus(QString()), failure(u"No field target provided."_s), {}},
        {"focus a button", focus(u"Export"_s), failure(u"Could not find Export field on screen."_s), {}},
        {"type into a field",
         typeInto(u"  cats "_s, u" Search "_s),
         success(u"Typed text into Search."_s),
         {u"focus 3"_s, u"click 30.5,40"_s, u"text   cats "_s}},
        {"type nothing into a field",
         typeInto(QString(), u"Search"_s),
         success(u"Typed text into Search."_s),
         {u"focus 3"_s, u"click 30.5,40"_s, u"text "_s}},
        {"type into a missing field",
         typeInto(u"cats"_s, u"Name"_s),
         failure(u"Could not find Name field on screen."_s),
         {}},
        {"type", type(u"  hello  "_s), success(u"Typed text."_s), {u"text hello"_s}},
        {"type nothing", type(u" \t "_s), failure(u"No text provided."_s), {}},
        {"press", press(u"shift cmd z"_s), success(u"Pressed Command-Shift-Z."_s), {u"key 6 0x120000"_s}},
        {"press without modifiers", press(u"escape"_s), success(u"Pressed Escape."_s), {u"key 53 0x0"_s}},
        {"press an unknown key", press(u"page down"_s), failure(u"Could not press Page Down."_s), {}},
    };
    for (const OperationCase &c : cases) {
        SCOPED_TRACE(c.name);
        journal.clear();
        EXPECT_EQ(waitForTask(c.run(service)), c.result);
        EXPECT_EQ(journal, c.journal);
    }
    EXPECT_EQ(accessibility.lastProcessId, FixedFrontmostApplication::lightroomClassic().processId);
    EXPECT_EQ(accessibility.lastPrompt, TrustPrompt::shown);
}

TEST_F(UIAutomation, clicksWithTheMouseWhereAPressFails)
{
    accessibility.pressSucceeds = false;
    EXPECT_EQ(waitForTask(service.clickVisibleElement(u"Export"_s)),
              UIAutomationResult::success(u"Clicked Export."_s));
    EXPECT_EQ(journal, (QStringList{u"press 1"_s, u"click 10,20"_s}));
    EXPECT_EQ(waitForTask(service.clickVisibleElement(u"Develop"_s)),
              UIAutomationResult::failure(u"Could not click Develop."_s));
}

TEST_F(UIAutomation, doesNothingWithoutAccessibility)
{
    accessibility.trusted = false;
    for (const Operation &run : {click(u"Export"_s), focus(u"Search"_s), typeInto(u"a"_s, u"Search"_s),
                                 type(u"a"_s), press(u"page down"_s)}) {
        EXPECT_EQ(waitForTask(run(service)), UIAutomationResult::accessibilityDenied());
    }
    EXPECT_TRUE(waitForTask(service.getVisibleElements()).isEmpty());
    // Arguments are looked at first.
    EXPECT_EQ(waitForTask(service.typeText(u" "_s)), UIAutomationResult::failure(u"No text provided."_s));
    EXPECT_EQ(journal, QStringList());
}

TEST_F(UIAutomation, searchesOnlyAFrontmostApplication)
{
    frontmost.application.reset();
    const auto failure = UIAutomationResult::failure(u"No frontmost app is available."_s);
    EXPECT_EQ(waitForTask(service.clickVisibleElement(u"Export"_s)), failure);
    EXPECT_EQ(waitForTask(service.typeTextIntoField(u"a"_s, u"Search"_s)), failure);
    EXPECT_TRUE(waitForTask(service.getVisibleElements()).isEmpty());
    EXPECT_EQ(waitForTask(service.typeText(u"a"_s)), UIAutomationResult::success(u"Typed text."_s));
}

TEST_F(UIAutomation, listsWhatTheFrontmostApplicationShows)
{
    const auto listed = waitForTask(service.getVisibleElements());
    ASSERT_EQ(listed.size(), 2);
    EXPECT_EQ(listed.first().name, u"Export"_s);
}

TEST_F(UIAutomation, aTaskOutlivesItsService)
{
    auto shortLived = std::make_unique<UIAutomationService>(accessibility, inputEvents, frontmost);
    auto task = shortLived->typeTextIntoField(u"cats"_s, u"Search"_s);
    shortLived.reset();
    EXPECT_TRUE(waitForTask(std::move(task)).isSuccess());
    EXPECT_EQ(journal.last(), u"text cats"_s);
}

TEST(UIAutomationResult, givesTheCallersWordsForAMissingPermission)
{
    EXPECT_EQ(UIAutomationResult::success(u"Done."_s).sentence(u"Denied."_s), u"Done."_s);
    EXPECT_EQ(UIAutomationResult::failure(u"No."_s).sentence(u"Denied."_s), u"No."_s);
    EXPECT_EQ(UIAutomationResult::accessibilityDenied().sentence(u"Denied."_s), u"Denied."_s);
}

TEST_F(UIAutomation, saysSoWhenNobodyReceivesTheEvents)
{
    accessibility.pressSucceeds = false;
    inputEvents.isReceived = false;
    std::pair<QString, QCoro::Task<UIAutomationResult>> cases[] = {
        {u"Could not click export."_s, service.clickVisibleElement(u"export"_s)},
        {u"Could not focus search."_s, service.typeTextIntoField(u"hello"_s, u"search"_s)},
        {u"Could not type all of the text."_s, service.typeText(u"hello"_s)},
        {u"Could not press Z."_s, service.pressKey(*KeyboardKey::parse(u"z"_s))},
    };
    for (auto &[sentence, operation] : cases) {
        EXPECT_EQ(waitForTask(std::move(operation)), UIAutomationResult::failure(sentence));
    }
}

} // namespace

} // namespace KelvaLR
