#include "Platform/RunningApplicationsFixture.h"

#include "Support/PrintQt.h"

#include <QRasterWindow>
#include <QSysInfo>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using RunningApplicationsTest = Testing::RunningApplicationsFixture;

TEST_F(RunningApplicationsTest, areNamedByTheirEntryTheirClassOrTheirTitle)
{
    install(u"org.kelvalr.Editor"_s, "Name=An Editor\nExec=x");
    std::vector<std::unique_ptr<WindowProgram>> programs;
    QList<RunningApplication> expected;
    EXPECT_FALSE(m_applications.frontmostApplication());
    for (const auto &[className, name, identifier] :
         {std::tuple{u"Lightroom Stand-in"_s, u"Lightroom Stand-in"_s, u"Lightroom Stand-in"_s},
          {u"editor"_s, u"An Editor"_s, u"org.kelvalr.Editor"_s},
          {u"lightroom.exe"_s, u"Catalog – Lightroom"_s, u"lightroom.exe"_s}}) {
        programs.push_back(std::make_unique<WindowProgram>(className, u"Catalog – Lightroom"_s));
        expected.append({name, identifier, programs.back()->id()});
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

TEST_F(RunningApplicationsTest, bringOwnWindowsToTheFrontDeminimisedAndOnlyIfVisible)
{
    QRasterWindow window;
    QRasterWindow hidden;
    hidden.create();
    window.show();
    ASSERT_TRUE(waitUntil([&] { return window.isActive(); }));
    const WindowProgram other(u"Other"_s, u"other"_s);
    ASSERT_TRUE(waitUntil([&] { return !window.isActive(); }));
    m_applications.bringOwnWindowsToFront();
    EXPECT_TRUE(waitUntil([&] { return window.isActive(); }));

    window.showMinimized();
    ASSERT_TRUE(waitUntil([&] { return !window.isExposed() && !window.isActive(); }));
    m_applications.bringOwnWindowsToFront();
    EXPECT_TRUE(waitUntil([&] { return window.isExposed() && window.isActive(); }));
    EXPECT_FALSE(window.windowStates() & Qt::WindowMinimized);
    EXPECT_FALSE(hidden.isVisible());
}

TEST_F(RunningApplicationsTest, areTheProcessesOfThisComputerThatOwnTheirWindows)
{
    const WindowProgram first(u"First"_s, u"first"_s);
    ASSERT_TRUE(waitUntil([&] { return isFrontmost(first); }));
    const WindowProgram second(u"Second"_s, u"second"_s);
    ASSERT_TRUE(waitUntil([&] { return isFrontmost(second); }));
    const QString window = QString::number(windowOf(second));
    const auto setOnSecond = [&](const QString &property, const QString &format, const QString &value) {
        EXPECT_EQ(QProcess::execute(
                      u"xprop"_s, {u"-id"_s, window, u"-f"_s, property, format, u"-set"_s, property, value}),
                  0);
    };
    const auto process = [this] { return m_applications.frontmostApplication()->processId; };

    setOnSecond(u"WM_CLIENT_MACHINE"_s, u"8s"_s, QSysInfo::machineHostName() + u".example.org"_s);
    EXPECT_EQ(process(), second.id());
    setOnSecond(u"WM_CLIENT_MACHINE"_s, u"8s"_s, u"elsewhere"_s);
    EXPECT_EQ(process(), 0);
    EXPECT_TRUE(m_applications.activate(newest()));

    EXPECT_EQ(QProcess::execute(u"xprop"_s, {u"-id"_s, window, u"-remove"_s, u"_NET_WM_PID"_s}), 0);
    setOnSecond(u"WM_TRANSIENT_FOR"_s, u"32x"_s, QString::number(windowOf(first)));
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
