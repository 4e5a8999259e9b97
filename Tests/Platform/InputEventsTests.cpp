#include "Platform/Linux/XTestInputEvents.h"

#include "Platform/KeyboardWitness.h"
#include "Support/WaitForTask.h"

#include <QCoroTimer>
#include <QProcess>

#include <gmock/gmock.h>

#include <X11/keysym.h>

#include <csignal>
#include <memory>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using ::testing::ElementsAre;

namespace {

constexpr quint16 keyA = 0;
constexpr quint16 keyReturn = 36;
constexpr auto shift = quint8(XCB_MOD_MASK_SHIFT);
constexpr auto lock = quint8(XCB_MOD_MASK_LOCK);
constexpr auto control = quint8(XCB_MOD_MASK_CONTROL);
constexpr auto alt = quint8(XCB_MOD_MASK_1);

QCoro::Task<> settledAtOnce()
{
    co_return;
}

/// Not before the event loop turns.
QCoro::Task<> settledSoon()
{
    co_await QCoro::sleepFor(1ms);
}

class InputEventsOnWitness : public testing::Test
{
protected:
    /// The state of every press of this key that has come.
    QList<int> statesOfPresses(xcb_keysym_t keysym)
    {
        QList<int> states;
        for (const auto &[type, keycode, state] : m_witness.takeEvents()) {
            if (type == XCB_KEY_PRESS && keycode == m_witness.keycode(keysym)) {
                states.append(state);
            }
        }
        return states;
    }

    KeyboardWitness m_witness;
    X11Connection m_connection;
    XTestInputEvents m_input{m_connection, settledAtOnce};
};

TEST_F(InputEventsOnWitness, keysCarryExactlyTheGivenModifiersWhateverTheUserHolds)
{
    const std::pair<KeyModifiers, int> cases[] = {
        {{}, 0},
        {KeyModifier::maskShift, shift},
        {KeyModifier::maskCommand, control},
        {KeyModifier::maskControl | KeyModifier::maskCommand, control},
        {KeyModifier::maskAlternate | KeyModifier::maskShift, alt | shift},
    };
    m_witness.lock(lock);
    for (const xcb_keysym_t held : {XK_Shift_L, XK_Control_R, XK_Alt_L}) {
        m_witness.fake(XCB_KEY_PRESS, m_witness.keycode(held));
        const auto keysDown = m_witness.keysDown();
        (void)m_witness.takeEvents();
        for (const auto &[modifiers, state] : cases) {
            waitForTask(m_input.postKey(keyA, modifiers));
            EXPECT_THAT(statesOfPresses(XK_a), ElementsAre(state)) << held;
            EXPECT_EQ(m_witness.keysDown(), keysDown);
            EXPECT_EQ(m_witness.locked().first, lock);
        }
        m_witness.fake(XCB_KEY_RELEASE, m_witness.keycode(held));
    }
    m_witness.lock(0);
}

TEST_F(InputEventsOnWitness, aKeyIsFoundInEveryLayout)
{
    constexpr quint16 digit1 = 18;
    constexpr int topLeft = 24;  // the Q of a US keyboard
    constexpr int homeLeft = 38; // the A of a US keyboard
    constexpr int firstOfDigits = 10;

    const struct
    {
        QString layouts; ///< of setxkbmap
        quint8 group;    ///< the one the user has switched to
        quint16 virtualKeyCode;
        int keycode;
        int state; ///< the group in use is in bits 13 and 14
    } cases[] = {
        {u"us,ru"_s, 1, keyA, homeLeft, control},
        {u"us,fr"_s, 1, keyA, topLeft, control | 1 << 13},
        {u"fr"_s, 0, digit1, firstOfDigits, control},
    };

    for (const auto &[layouts, group, virtualKeyCode, keycode, state] : cases) {
        ASSERT_EQ(QProcess::execute(u"setxkbmap"_s, {layouts}), 0);
        m_witness.lock(0, group);
        (void)m_witness.takeEvents();
        waitForTask(m_input.postKey(virtualKeyCode, KeyModifier::maskCommand));
        EXPECT_TRUE(m_witness.takeEvents().contains({XCB_KEY_PRESS, keycode, state}))
            << layouts.toStdString();
        EXPECT_EQ(m_witness.locked().second, group);
    }
    ASSERT_EQ(QProcess::execute(u"setxkbmap"_s, {u"us"_s}), 0);
    m_witness.lock(0);
}

TEST_F(InputEventsOnWitness, aKeyThatIsAlreadyDownIsPressedAgain)
{
    m_witness.fake(XCB_KEY_PRESS, m_witness.keycode(XK_a));
    (void)m_witness.takeEvents();
    waitForTask(m_input.postKey(keyA, {}));
    EXPECT_THAT(statesOfPresses(XK_a), ElementsAre(0));
}

TEST_F(InputEventsOnWitness, unknownKeysAndControlCharactersAreSkipped)
{
    waitForTask(m_input.postKey(0xffff, {}));
    waitForTask(m_input.postText(u"\u0007\u001b"_s));
    EXPECT_THAT(m_witness.takeEvents(), ElementsAre());
}

TEST_F(InputEventsOnWitness, aProgramThatMustNotReceiveThemGetsNone)
{
    XTestInputEvents input(m_connection, settledAtOnce, [] { return false; });
    EXPECT_FALSE(waitForTask(input.postKey(keyA, {})));
    EXPECT_FALSE(waitForTask(input.postText(u"a"_s)));
    EXPECT_FALSE(waitForTask(input.postClick({250, 160})));
    EXPECT_THAT(m_witness.takeEvents(), ElementsAre());
}

TEST_F(InputEventsOnWitness, aTextEndsWhenAnotherProgramComesToTheFront)
{
    const auto map = m_witness.map();
    int allowed = 2; // the first look, and the first letters
    XTestInputEvents input(m_connection, settledAtOnce, [&allowed] { return allowed-- > 0; });
    EXPECT_FALSE(waitForTask(input.postText(u"a中"_s.repeated(1'000))));
    const auto events = m_witness.takeEvents();
    EXPECT_FALSE(events.isEmpty());
    EXPECT_LT(events.size(), 1'000);
    EXPECT_EQ(m_witness.map(), map);
}

TEST_F(InputEventsOnWitness, postingsFollowEachOther)
{
    auto text = m_input.postText(u"b中b"_s);
    auto key = m_input.postKey(keyA, {});
    waitForTask(std::move(key));
    waitForTask(std::move(text));
    QList<int> keycodes;
    for (const auto &[type, keycode, state] : m_witness.takeEvents()) {
        if (type == XCB_KEY_PRESS) {
            keycodes.append(keycode);
        }
    }
    const int b = m_witness.keycode(XK_b);
    EXPECT_THAT(keycodes, ElementsAre(b, testing::_, b, int(m_witness.keycode(XK_a))));
}

TEST_F(InputEventsOnWitness, aClickMovesThePointerFirst)
{
    waitForTask(m_input.postClick({250.4, 160}));
    EXPECT_THAT(m_witness.takeEvents(),
                ElementsAre(std::tuple(XCB_MOTION_NOTIFY, 0, 250), std::tuple(XCB_BUTTON_PRESS, 1, 0),
                            std::tuple(XCB_BUTTON_RELEASE, 1, XCB_BUTTON_MASK_1)));
    waitForTask(m_input.postClick({std::nan(""), 0}));
    EXPECT_THAT(m_witness.takeEvents(), ElementsAre());
}

TEST_F(InputEventsOnWitness, anEndInTheMiddleOfATypingPutsTheMapBack)
{
    const auto map = m_witness.map();
    auto input = std::make_unique<XTestInputEvents>(m_connection, settledSoon);
    auto typing = input->postText(u"中a"_s);
    EXPECT_NE(m_witness.map(), map);
    input.reset();
    EXPECT_EQ(m_witness.map(), map);
    waitForTask(std::move(typing));
    EXPECT_THAT(m_witness.takeEvents(), ElementsAre());
}

TEST_F(InputEventsOnWitness, twoProcessesBorrowDifferentKeycodes)
{
    constexpr xcb_keysym_t ideograph = 0x01004e2d; // U+4E2D
    const auto map = m_witness.map();
    const auto borrowedKeysyms = [&] { return m_witness.map().count(ideograph); };
    const X11Connection otherConnection;
    const auto other = std::make_unique<XTestInputEvents>(otherConnection, settledSoon);
    {
        const auto input = std::make_unique<XTestInputEvents>(m_connection, settledSoon);
        [[maybe_unused]] const auto typing = input->postText(u"中"_s);
        const auto ofOne = borrowedKeysyms();
        [[maybe_unused]] const auto otherTyping = other->postText(u"中"_s);
        EXPECT_EQ(borrowedKeysyms(), 2 * ofOne);
    }
    EXPECT_GT(borrowedKeysyms(), 0);
    EXPECT_TRUE(waitUntil([&] { return m_witness.map() == map; }));
}

TEST_F(InputEventsOnWitness, aProgramThatASignalEndsLeavesTheMapAsItWas)
{
    const auto map = m_witness.map();
    for (const int signal : {SIGTERM, SIGINT, SIGKILL}) {
        SCOPED_TRACE(signal);
        QProcess program;
        program.start(QStringLiteral(KELVALR_TYPING_PROGRAM), QStringList());
        ASSERT_TRUE(waitUntil([&] { return program.readAllStandardOutput().contains("typing"); }));
        EXPECT_NE(m_witness.map(), map);
        ::kill(static_cast<pid_t>(program.processId()), signal);
        ASSERT_TRUE(waitUntil([&] { return program.state() == QProcess::NotRunning; }));
        if (signal == SIGKILL) {
            EXPECT_NE(m_witness.map(), map);
            const auto next = std::make_unique<XTestInputEvents>(m_connection, settledAtOnce);
        }
        EXPECT_EQ(m_witness.map(), map);
        EXPECT_FALSE(m_connection.items(m_connection.root(), "_KELVALR_BORROWED_KEYCODES"));
        EXPECT_EQ(m_witness.keysDown(), QList<quint8>(32, 0));
    }
}

TEST(InputEventsWithoutServer, endQuietly)
{
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":no-such-display");
    const X11Connection none;
    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
    ASSERT_TRUE(waitUntil([&] { return server.canReadLine(); }));
    qputenv("DISPLAY", ':' + server.readLine().trimmed());
    const X11Connection connection;
    qputenv("DISPLAY", display);

    const auto nowhere = std::make_unique<XTestInputEvents>(none, settledAtOnce);
    EXPECT_FALSE(waitForTask(nowhere->postKey(keyReturn, {})));
    EXPECT_FALSE(waitForTask(nowhere->postText(u"中"_s)));
    EXPECT_FALSE(waitForTask(nowhere->postClick({1, 1})));

    ASSERT_TRUE(connection.isOpen());
    const auto input = std::make_unique<XTestInputEvents>(connection, settledSoon);
    auto typing = input->postText(u"中"_s.repeated(1'000'000));
    server.kill();
    ASSERT_TRUE(waitUntil([&] { return server.state() == QProcess::NotRunning; }));
    waitForTask(std::move(typing));
    waitForTask(input->postKey(keyReturn, {}));
}

} // namespace
