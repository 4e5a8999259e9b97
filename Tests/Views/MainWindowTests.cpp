#include "Views/MainWindowFixture.h"

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

TEST_F(MainWindowTest, saysWhereTheVoiceSessionStands)
{
    using enum RealtimeVoiceState;

    const struct
    {
        RealtimeVoiceState state;
        bool isListening;
        QString title;
        QString subtitle;
        QString help;
    } rows[] = {
        {connecting, false, u"Connecting"_s, u"Starting GPT Realtime 2."_s, u"Stop"_s},
        {recording, false, u"Listening"_s, u"Speak naturally. KelvaLR is listening."_s, u"Stop"_s},
        {speaking, false, u"Responding"_s, u"Response is playing and updating the artifact."_s, u"Stop"_s},
        {failed, false, u"Voice Failed"_s, u"Check configuration and try again."_s, u"Stop"_s},
        {idle, true, u"Ready"_s, u"Say \"Hey Kelva\" or type a prompt."_s, u"Start"_s},
        {idle, false, u"Ready"_s, u"Use voice or type a prompt."_s, u"Start"_s},
    };

    for (const auto &row : rows) {
        realtime.onStateChange(row.state);
        wakePhrase.onListeningStateChange(row.isListening);
        EXPECT_TRUE(willShow(row.subtitle)) << row.subtitle.toStdString();
        EXPECT_TRUE(shows(row.title));
        EXPECT_NE(control(row.help + u" Computer Use Voice"_s), nullptr);
    }
}

TEST_F(MainWindowTest, theMicrophoneStartsASessionInItsCircleOnly)
{
    const QRect circle = place(u"Start Computer Use Voice"_s);
    EXPECT_EQ(circle.width(), 310);
    QTest::mouseClick(&window(), Qt::LeftButton, {}, circle.topLeft() + QPoint(8, 8));
    EXPECT_TRUE(realtime.calls.isEmpty());
    QTest::mouseClick(&window(), Qt::LeftButton, {}, circle.center());
    EXPECT_EQ(realtime.calls, QStringList{u"start voice"_s});
    EXPECT_EQ(model->inputMode(), InputMode::voice);
}

TEST_F(MainWindowTest, collapsesAndExpandsTheArtifactArea)
{
    const QString area = u"Lightroom Output"_s;
    const QRect composer = place(u"Prompt"_s);
    ASSERT_TRUE(place(area).isValid());
    click(u"Collapse Artifact"_s);
    EXPECT_TRUE(waitUntil([&] { return control(area) == nullptr; }));
    EXPECT_GT(place(u"Prompt"_s).left(), composer.left());
    click(u"Expand Artifact"_s);
    EXPECT_TRUE(waitUntil([&] { return place(area).isValid(); }));
    EXPECT_EQ(place(u"Prompt"_s), composer);
}

TEST_F(MainWindowTest, cannotBeMadeSmallerThanItsContent)
{
    EXPECT_EQ(window().minimumWidth(), 1120);
    EXPECT_GE(window().minimumHeight(), 720);
    EXPECT_EQ(window().title(), u"KelvaLR"_s);
}

TEST_F(MainWindowTest, theMenusShortcutsWork)
{
    submit(u"hello"_s);
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(model->messages().isEmpty());
    EXPECT_EQ(QGuiApplication::topLevelWindows().size(), 1);
    press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(model->inputMode(), InputMode::voice);
    press(Qt::Key_Q, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(model->inputMode(), InputMode::quiet);
}

TEST_F(MainWindowTest, theMenusShowWhatTheyDo)
{
    click(u"Assistant"_s);
    EXPECT_TRUE(willShow(u"Focus Prompt"_s));
    for (const QString &text :
         {u"Enable Voice"_s, u"Enable Quiet"_s, u"Ctrl+L"_s, u"Ctrl+Shift+V"_s, u"Ctrl+Shift+Q"_s}) {
        EXPECT_TRUE(shows(text)) << text.toStdString();
    }
    click(u"Enable Voice"_s);
    EXPECT_EQ(model->inputMode(), InputMode::voice);
}

TEST_F(MainWindowTest, appliesTheRouteThatWaitedAndEachNewOne)
{
    host.reset();
    router.setPendingRoute({.prefilledPrompt = u"Buy film"_s});
    EXPECT_EQ(model->promptText(), QString());
    reopen();
    EXPECT_EQ(model->promptText(), u"Buy film"_s);
    EXPECT_TRUE(control(u"Ask KelvaLR"_s)->state().focused);
    EXPECT_TRUE(shows(u"Buy film"_s));

    press(Qt::Key_Tab);
    router.setPendingRoute({.prefilledPrompt = QString()});
    EXPECT_EQ(model->promptText(), u"Buy film"_s);
    EXPECT_FALSE(control(u"Ask KelvaLR"_s)->state().focused);
    model->setPromptText({});
    router.setPendingRoute({.prefilledPrompt = u"Buy film"_s});
    EXPECT_EQ(model->promptText(), u"Buy film"_s);
    EXPECT_TRUE(model->messages().isEmpty());
}

TEST_F(MainWindowTest, followsTheDesktopIntoTheDark)
{
    const QColor light = window().color();
    appearance.dark = true;
    Q_EMIT appearance.changed();
    EXPECT_GT(light.lightnessF(), 0.9F);
    EXPECT_LT(window().color().lightnessF(), 0.2F);
}

} // namespace
