#include "Platform/Linux/DesktopApplications.h"

#include "Support/WaitForTask.h"

#include <QGuiApplication>
#include <QProcess>
#include <QRasterWindow>

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Testing::waitUntil;

TEST(DesktopWindows, comeToTheFrontDeminimisedAndOnlyIfVisible)
{
    QRasterWindow window;
    QRasterWindow hidden;
    hidden.create();
    window.show();
    ASSERT_TRUE(waitUntil([&] { return window.isActive(); }));

    QProcess other;
    other.start(u"xev"_s, {u"-event"_s, u"focus"_s});
    ASSERT_TRUE(waitUntil([&] { return !window.isActive(); }))
        << "the other program did not come to the front";
    const X11Connection x11;
    DesktopApplications applications(x11);
    applications.bringOwnWindowsToFront();
    EXPECT_TRUE(waitUntil([&] { return window.isActive(); }));

    window.showMinimized();
    ASSERT_TRUE(waitUntil([&] { return !window.isExposed() && !window.isActive(); }));
    applications.bringOwnWindowsToFront();
    EXPECT_TRUE(waitUntil([&] { return window.isExposed() && window.isActive(); }));
    EXPECT_FALSE(window.windowStates() & Qt::WindowMinimized);
    EXPECT_FALSE(hidden.isVisible());

    other.kill();
    EXPECT_TRUE(waitUntil([&] { return other.state() == QProcess::NotRunning; }));
}

} // namespace

} // namespace KelvaLR

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
