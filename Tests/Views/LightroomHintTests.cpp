#include "Views/MainWindowFixture.h"
#include "Views/ViewModels/LightroomHint.h"

#include <QDir>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

const PortListener nobody{.presence = PortListener::Presence::none, .programs = {}};
const PortListener lightroomListens{.presence = PortListener::Presence::present,
                                    .programs = {{u"Lightroom.exe"_s, 42}}};
const PortListener rogueListens{.presence = PortListener::Presence::present, .programs = {{u"nc"_s, 7}}};
const QList<RunningApplication> runningLightroom{{u"Adobe Lightroom Classic"_s, {}, 42}};
const QString notRunning = u"Lightroom Classic is not running."_s;
const QString notLoaded = u"Lightroom is running, but the KelvaLR plug-in is not loaded."_s;
const QString dismiss = u"Dismiss"_s;
const QString test = u"Test Lightroom Connection"_s;
const QString manager = u"Open Lightroom Plug-in Manager"_s;
const QString reveal = u"Reveal Installed Plugin"_s;
const QString install = u"Install Lightroom Classic Plugin"_s;
const QString open = u"Open Lightroom"_s;

class LightroomHintTest : public MainWindowTest
{
protected:
    /// What the window finds out from now on.
    void setCase(bool isRunning, const PortListener &listener)
    {
        lightroom.applications.running = isRunning ? runningLightroom : QList<RunningApplication>();
        lightroom.listening.listener = listener;
        model->lookAtLightroom();
    }

    void removePlugin() { QDir(lightroom.modules.filePath(u"KelvaLR.lrplugin"_s)).removeRecursively(); }

    /// Clicks a button of a hint that has just come.
    void clickOnceLaidOut(const QString &name)
    {
        window().grabWindow();
        click(name);
    }

    [[nodiscard]] bool willHide() const
    {
        return waitUntil([&] { return control(dismiss) == nullptr; });
    }
};

TEST_F(LightroomHintTest, saysWhatIsTheCaseAndOffersWhatHelps)
{
    const QStringList allButtons{open, install, manager, reveal, test};
    const QString portNeeded =
        u"Port %1, which the KelvaLR plug-in needs, is used by nc."_s.arg(lightroom.plugin.endpoint().port);

    const struct
    {
        std::function<void()> prepare;
        QString finding;
        QString advice;
        QStringList buttons;
    } rows[] = {
        {[&] { setCase(false, nobody); },
         notRunning,
         u"Start it on this computer, then send your request."_s,
         {}},
        {[&] { lightroom.applications.installed = {{u"Lightroom"_s, u"lightroom.desktop"_s, {}}}; },
         notRunning,
         u"Open it, then send your request."_s,
         {open}},
        {[&] { setCase(true, nobody); },
         notLoaded,
         u"Add or enable it in the Plug-in Manager, then restart Lightroom."_s,
         {manager, reveal}},
        {[&] { removePlugin(); },
         u"Lightroom is running, but the KelvaLR plug-in is not installed."_s,
         u"Install it, then add it in the Plug-in Manager."_s,
         {install, manager}},
        {[&] { setCase(true, rogueListens); },
         portNeeded,
         u"Quit that program, then restart Lightroom."_s,
         {test}},
    };

    EXPECT_EQ(control(dismiss), nullptr);
    for (const auto &row : rows) {
        row.prepare();
        model->lookAtLightroom();
        EXPECT_TRUE(willShow(row.advice)) << row.advice.toStdString();
        EXPECT_TRUE(shows(row.finding)) << row.finding.toStdString();
        ASSERT_NE(control(row.finding), nullptr);
        EXPECT_EQ(control(row.finding)->text(QAccessible::Description), row.advice);
        for (const QString &button : allButtons) {
            EXPECT_EQ(control(button) != nullptr, row.buttons.contains(button)) << button.toStdString();
        }
    }
    setCase(true, lightroomListens);
    EXPECT_TRUE(willHide());
}

TEST_F(LightroomHintTest, blamesADialogForACommandThatWasTakenAndNotAnswered)
{
    EXPECT_EQ(
        lightroomHint(Connection::NoAnswer()),
        (LightroomHint{
            u"Lightroom is running, but does not answer."_s,
            u"Close the dialog that Lightroom shows. It may then do what you asked, so look before you repeat it."_s,
            {u"testConnection"_s}}));
    EXPECT_EQ(lightroomHint(Connection::PortTaken{.port = 54321, .program = {}}).finding,
              u"A program that KelvaLR cannot identify uses port 54321 and does not answer."_s);
}

TEST_F(LightroomHintTest, itsButtonsDoWhatTheSettingsDo)
{
    setCase(true, nobody);
    ASSERT_TRUE(willShow(notLoaded));
    clickOnceLaidOut(manager);
    EXPECT_TRUE(waitUntil([&] { return lightroom.journal.contains(u"plug-in manager"_s); }));
    clickOnceLaidOut(reveal);
    EXPECT_TRUE(lightroom.journal.constLast().startsWith(u"reveal "_s));
    removePlugin();
    model->lookAtLightroom();
    ASSERT_TRUE(waitUntil([&] { return control(install) != nullptr; }));
    clickOnceLaidOut(install);
    EXPECT_TRUE(willShow(notLoaded));
    EXPECT_TRUE(lightroom.plugin.lines().isEmpty());
}

TEST_F(LightroomHintTest, staysAwayOnceDismissedUntilItIsAnotherOne)
{
    const QRect microphone = place(u"Start Computer Use Voice"_s);
    const QRect composer = place(u"Prompt"_s);
    setCase(false, nobody);
    ASSERT_TRUE(willShow(notRunning));
    EXPECT_LT(place(u"Start Computer Use Voice"_s).top(), microphone.top());
    EXPECT_EQ(place(u"Prompt"_s), composer);
    for (int i = 0; i < 8 && !control(dismiss)->state().focused; ++i) {
        press(Qt::Key_Tab);
    }
    press(Qt::Key_Space);
    EXPECT_TRUE(willHide());
    EXPECT_TRUE(control(u"Ask KelvaLR"_s)->state().focused);
    EXPECT_EQ(place(u"Start Computer Use Voice"_s), microphone);
    const int questions = lightroom.listening.questions;
    model->lookAtLightroom();
    EXPECT_TRUE(waitUntil([&] { return lightroom.listening.questions >= questions + 2; }));
    EXPECT_EQ(control(dismiss), nullptr);
    setCase(true, nobody);
    EXPECT_TRUE(willShow(notLoaded));
}

TEST_F(LightroomHintTest, isFoundOutOnceTheWindowIsUpAndWhenItComesToTheFront)
{
    lightroom.listening.listener = nobody;
    reopen();
    EXPECT_TRUE(willShow(notRunning));
    model->dismissLightroomHint();
    lightroom.applications.running = runningLightroom;
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    window().requestActivate();
    EXPECT_TRUE(willShow(notLoaded));
}

} // namespace
