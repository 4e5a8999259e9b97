#include "Platform/RunningApplicationsFixture.h"

#include "Support/PrintQt.h"

#include <QSysInfo>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Testing::waitForTask;
using Testing::waitUntil;
using Testing::WindowProgram;

using RunningApplicationsTest = Testing::RunningApplicationsFixture;

TEST_F(RunningApplicationsTest, areNamedByTheirEntryTheirClassOrTheirTitle)
{
    install(u"org.kelvalr.Editor"_s, "Name=An Editor\nExec=x");

    struct Row
    {
        QString className;
        RunningApplication named;
    };

    const std::vector<Row> rows{
        {u"Lightroom Stand-in"_s, {u"Lightroom Stand-in"_s, u"Lightroom Stand-in"_s}},
        {u"editor"_s, {u"An Editor"_s, u"org.kelvalr.Editor"_s}},
        {u"lightroom.exe"_s, {u"Catalog – Lightroom"_s, u"lightroom.exe"_s}},
    };
    std::vector<std::unique_ptr<WindowProgram>> programs;
    QList<RunningApplication> expected;
    EXPECT_FALSE(m_applications.frontmostApplication());
    for (const Row &row : rows) {
        programs.push_back(std::make_unique<WindowProgram>(row.className, u"Catalog – Lightroom"_s));
        expected.append({row.named.name, row.named.identifier, programs.back()->id()});
        ASSERT_TRUE(waitUntil([&] { return m_applications.frontmostApplication() == expected.last(); }));
    }
    EXPECT_EQ(m_applications.runningApplications(), expected);

    programs.pop_back();
    EXPECT_TRUE(waitUntil([&] { return isFrontmost(*programs.back()); }));
    EXPECT_EQ(m_applications.runningApplications(), expected.first(2));
}

TEST_F(RunningApplicationsTest, comeBackToTheFrontAlsoFromBeingMinimised)
{
    const WindowProgram first(u"First"_s, u"first"_s);
    ASSERT_TRUE(waitUntil([&] { return isFrontmost(first); }));
    const RunningApplication application = *m_applications.frontmostApplication();
    const WindowProgram second(u"Second"_s, u"second"_s);
    ASSERT_TRUE(waitUntil([&] { return isFrontmost(second); }));

    EXPECT_TRUE(m_applications.activate(application));
    EXPECT_TRUE(waitUntil([&] { return isFrontmost(first); }));

    QProcess::execute(u"xdotool"_s, {u"windowminimize"_s, QString::number(windowOf(first))});
    ASSERT_TRUE(waitUntil([&] { return isMinimised(first) && !isFrontmost(first); }));
    EXPECT_TRUE(m_applications.activate(application));
    EXPECT_TRUE(waitUntil([&] { return isFrontmost(first) && !isMinimised(first); }));

    EXPECT_FALSE(m_applications.activate({u"Third"_s, u"Third"_s, 0}));
    EXPECT_FALSE(m_applications.activate({u"First"_s, u"First"_s, 1}));
}

TEST_F(RunningApplicationsTest, areTheProcessesOfThisComputerThatOwnTheirWindows)
{
    const WindowProgram first(u"First"_s, u"first"_s);
    ASSERT_TRUE(waitUntil([&] { return isFrontmost(first); }));
    const WindowProgram second(u"Second"_s, u"second"_s);
    ASSERT_TRUE(waitUntil([&] { return isFrontmost(second); }));
    const QString window = QString::number(windowOf(second));
    const auto changeSecond = [&window](const QStringList &change) {
        return QProcess::execute(u"xprop"_s, QStringList{u"-id"_s, window} + change) == 0;
    };
    const auto process = [this] { return m_applications.frontmostApplication()->processId; };

    EXPECT_TRUE(changeSecond({u"-f"_s, u"WM_CLIENT_MACHINE"_s, u"8s"_s, u"-set"_s, u"WM_CLIENT_MACHINE"_s,
                              QSysInfo::machineHostName() + u".example.org"_s}));
    EXPECT_EQ(process(), second.id());
    EXPECT_TRUE(changeSecond(
        {u"-f"_s, u"WM_CLIENT_MACHINE"_s, u"8s"_s, u"-set"_s, u"WM_CLIENT_MACHINE"_s, u"elsewhere"_s}));
    EXPECT_EQ(process(), 0);
    EXPECT_TRUE(m_applications.activate(newest()));

    EXPECT_TRUE(changeSecond({u"-remove"_s, u"_NET_WM_PID"_s}));
    EXPECT_TRUE(changeSecond({u"-f"_s, u"WM_TRANSIENT_FOR"_s, u"32x"_s, u"-set"_s, u"WM_TRANSIENT_FOR"_s,
                              QString::number(windowOf(first))}));
    EXPECT_EQ(process(), first.id());
    EXPECT_EQ(m_applications.runningApplications().size(), 1);
}

TEST_F(RunningApplicationsTest, areNoneWithoutAnXServerAndOnceItHasGone)
{
    const QByteArray display = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    const X11Connection none;
    qputenv("DISPLAY", display);

    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s});
    ASSERT_TRUE(waitUntil([&] { return server.canReadLine(); }));
    qputenv("DISPLAY", ':' + server.readLine().trimmed());
    const X11Connection gone;
    qputenv("DISPLAY", display);
    ASSERT_TRUE(gone.isOpen());
    EXPECT_FALSE(DesktopApplications(gone).frontmostApplication()) << "a server without a window manager";
    server.terminate();
    ASSERT_TRUE(waitUntil([&] { return server.state() == QProcess::NotRunning; }));

    const QUrl entry = install(u"failing"_s, "Name=Failing\nExec=false");
    for (const X11Connection *x11 : {&none, &gone}) {
        DesktopApplications applications(*x11);
        EXPECT_FALSE(applications.frontmostApplication());
        EXPECT_TRUE(applications.runningApplications().isEmpty());
        EXPECT_FALSE(applications.activate({u"First"_s, u"First"_s, 1}));
        EXPECT_EQ(applications.installedApplications().size(), 1);
        EXPECT_FALSE(waitForTask(applications.open(entry)));
    }
}

} // namespace

} // namespace KelvaLR
