#include "Views/MainWindowFixture.h"

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

class ComposerTest : public MainWindowTest
{
protected:
    void SetUp() override { ASSERT_TRUE(control(field)->state().focused); }

    const QString field = u"Ask KelvaLR"_s;
};

TEST_F(ComposerTest, returnControlReturnAndTheSendButtonSubmitWhatIsTyped)
{
    int submitted = 0;
    const std::function<void()> ways[] = {
        [&] { press(Qt::Key_Return); },
        [&] { press(Qt::Key_Enter); },
        [&] { press(Qt::Key_Return, Qt::ControlModifier); },
        [&] { click(u"Send"_s); },
    };
    for (const auto &submitNow : ways) {
        click(field);
        type(u"set exposure to 1"_s);
        EXPECT_EQ(model->promptText(), u"set exposure to 1"_s);
        submitNow();
        EXPECT_EQ(model->promptText(), QString());
        EXPECT_NE(control(u"Working on the request"_s), nullptr);
        ASSERT_TRUE(waitUntil([&] { return !model->isResponding(); }));
        EXPECT_EQ(control(u"Working on the request"_s), nullptr);
        EXPECT_EQ(answers().size(), ++submitted);
        EXPECT_TRUE(willShow(u"Lightroom Classic: Done"_s));
    }
}

TEST_F(ComposerTest, growsToFiveLinesAndSendsAllOfThem)
{
    const QString bar = u"Prompt"_s;
    QList<int> heights{place(bar).height()};
    for (int line = 2; line <= 8; ++line) {
        type(u"x"_s);
        press(Qt::Key_Return, Qt::ShiftModifier);
        QTest::qWait(0);
        heights.append(place(bar).height());
    }
    EXPECT_TRUE(heights[1] < heights[2] && heights[2] < heights[3] && heights[3] < heights[4]);
    EXPECT_TRUE(heights[5] == heights[4] && heights[7] == heights[4]);
    press(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_FALSE(model->messages().isEmpty());
    EXPECT_EQ(model->messages().constFirst().content, u"x\nx\nx\nx\nx\nx\nx"_s);
    ASSERT_TRUE(waitUntil([&] { return !model->isResponding(); }));
}

TEST_F(ComposerTest, takesFocusForEveryRequest)
{
    for (int request = 0; request < 2; ++request) {
        press(Qt::Key_Tab);
        ASSERT_FALSE(control(field)->state().focused);
        press(Qt::Key_L, Qt::ControlModifier);
        EXPECT_TRUE(control(field)->state().focused);
    }
}

TEST_F(ComposerTest, everyControlIsReachedByTheTabKey)
{
    QStringList reached;
    for (int i = 0; i < 6; ++i) {
        press(Qt::Key_Tab);
        if (QAccessibleInterface *focused = QAccessible::queryAccessibleInterface(window().focusObject())) {
            reached.append(focused->text(QAccessible::Name));
        }
    }
    for (const QString &name :
         {u"Send"_s, u"Import Photos"_s, u"Start Computer Use Voice"_s, u"Collapse Artifact"_s}) {
        EXPECT_TRUE(reached.contains(name)) << name.toStdString() << reached.join(u", "_s).toStdString();
    }
}

} // namespace
