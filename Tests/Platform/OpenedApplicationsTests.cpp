#include "Platform/RunningApplicationsFixture.h"

#include "Services/Lightroom/LightroomApplicationResolver.h"
#include "Support/PrintQt.h"

#include <QScopeGuard>

#include <csignal>

#include <unistd.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using OpenedApplicationsTest = Testing::RunningApplicationsFixture;

/// Ends what was opened, which would outlive us.
auto endOf(const RunningApplication &opened)
{
    return qScopeGuard([process = static_cast<pid_t>(opened.processId)] {
        if (process > 0) {
            ::kill(process, SIGKILL);
        }
    });
}

TEST_F(OpenedApplicationsTest, areWaitedForOnceAndOutliveUs)
{
    const QByteArray program = KELVALR_WINDOW_PROGRAM;
    install(u"lightroom-help"_s, "Name=Lightroom Help\nNoDisplay=true\nExec=x");
    install(u"com.adobe.lightroomclassiccc7"_s,
            "Name=Adobe Lightroom Classic\nStartupWMClass=Lr\nPath=/tmp\nExec=\"" + program +
                "\" Lr \"DESKTOP $DISPLAY\" %U");
    qputenv("DESKTOP_STARTUP_ID", "ours");

    const auto lightroom = LightroomApplicationResolver(m_applications).resolve(u"lightroom"_s);
    ASSERT_TRUE(lightroom);
    EXPECT_EQ(lightroom->displayName, u"Adobe Lightroom Classic");
    EXPECT_EQ(m_applications.installedApplications().size(), 1);
    EXPECT_TRUE(waitForTask(m_applications.open(lightroom->url)));

    const RunningApplication opened = newest();
    const auto end = endOf(opened);
    EXPECT_EQ(opened.name, u"Adobe Lightroom Classic");
    ASSERT_GT(opened.processId, 0);
    const QString process = "/proc/"_L1 + QString::number(opened.processId);
    EXPECT_EQ(QFile::symLinkTarget(process + "/cwd"_L1), u"/tmp");
    EXPECT_EQ(QFile::symLinkTarget(process + "/fd/1"_L1), u"/dev/null");
    QFile environment(process + "/environ"_L1);
    ASSERT_TRUE(environment.open(QFile::ReadOnly));
    EXPECT_FALSE(environment.readAll().contains("DESKTOP_STARTUP_ID"));
    EXPECT_EQ(getsid(static_cast<pid_t>(opened.processId)), opened.processId);

    const WindowProgram other(u"Other"_s, u"other"_s);
    ASSERT_TRUE(waitUntil([&] { return isFrontmost(other); }));
    EXPECT_TRUE(waitForTask(m_applications.open(lightroom->url)));
    EXPECT_TRUE(waitUntil([&] { return m_applications.frontmostApplication() == opened; }));
    EXPECT_EQ(m_applications.runningApplications().size(), 2);
}

TEST_F(OpenedApplicationsTest, mayBeScriptsWhoseWindowsAreNamedOtherwise)
{
    const QUrl entry =
        install(u"script"_s, "Name=Script\nExec=sh -c \"" KELVALR_WINDOW_PROGRAM " Unknown title; true\"");
    DesktopApplications patient(m_x11, &QDBusConnection::sessionBus, 5s, 5min);
    EXPECT_TRUE(waitForTask(patient.open(entry)));
    const auto end = endOf(newest());
    EXPECT_EQ(newest().name, u"Unknown");
}

TEST_F(OpenedApplicationsTest, sayWhyTheyHaveNotStarted)
{
    const std::pair<QByteArray, QString> rows[] = {
        {"Exec=/none/lightroom %f", u"The program /none/lightroom is missing."_s},
        {"Exec=sh -c \"exit 3\"", u"It ended at once with status 3."_s},
        {"Exec=\"sh", u"The command of its desktop entry cannot be read."_s},
        {"DBusActivatable=true", u"The command of its desktop entry cannot be read."_s},
        {"Exec=true\nTerminal=true", u"Shell runs in a terminal only."_s},
        {"Exec=true\nPath=/none", u"chdir: No such file or directory."_s},
        {"Exec=true", u"none"_s},
        {"Exec=sleep 3", u"none"_s},
    };
    for (const auto &[lines, problem] : rows) {
        const QUrl entry = install(u"shell"_s, "Name=Shell\n" + lines);
        const auto opened = waitForTask(m_applications.open(entry));
        EXPECT_EQ(opened ? u"none"_s : opened.error(), problem) << lines.toStdString();
    }
    for (const QUrl &gone :
         {QUrl(u"file:///none/gone.desktop"_s), QUrl(u"https://a.invalid/x.desktop"_s), QUrl()}) {
        const auto opened = waitForTask(m_applications.open(gone));
        EXPECT_TRUE(!opened && opened.error().startsWith("Its desktop entry "_L1));
    }
}

TEST_F(OpenedApplicationsTest, areNotWaitedForOnceTheAdapterHasGone)
{
    const QUrl entry = install(u"slow"_s, "Name=Slow\nExec=sleep 5");
    auto applications = std::make_unique<DesktopApplications>(m_x11, &QDBusConnection::sessionBus, 5s, 5min);
    auto opening = applications->open(entry);
    applications.reset();
    EXPECT_TRUE(waitForTask(std::move(opening)));
}

} // namespace
