#pragma once

#include "Platform/Linux/DesktopApplications.h"

#include "Support/WaitForTask.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {

/// A program with a window, ended with this object.
class WindowProgram
{
public:
    WindowProgram(const QString &className, const QString &title)
    {
        m_process.start(QStringLiteral(KELVALR_WINDOW_PROGRAM), {className, title});
    }

    ~WindowProgram()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(WindowProgram)

    [[nodiscard]] qint64 id() const { return m_process.processId(); }

private:
    QProcess m_process;
};

/// The test's desktop without a window, and a folder of installed applications of its own.
class RunningApplicationsFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path()));
        qputenv("XDG_DATA_DIRS", "/none");
        ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("applications")));
        ASSERT_TRUE(waitUntil([&] { return m_applications.runningApplications().isEmpty(); }));
    }

    QUrl install(const QString &id, const QByteArray &lines)
    {
        QFile file(m_folder.filePath(QStringLiteral("applications/%1.desktop").arg(id)));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + lines + '\n');
        return QUrl::fromLocalFile(file.fileName());
    }

    [[nodiscard]] bool isFrontmost(const WindowProgram &program) const
    {
        const auto frontmost = m_applications.frontmostApplication();
        return frontmost && frontmost->processId == program.id();
    }

    [[nodiscard]] xcb_window_t windowOf(const WindowProgram &program) const
    {
        const QList<X11Window> windows = X11Windows(m_x11).all();
        const auto window = std::ranges::find(windows, program.id(), &X11Window::processId);
        return window == windows.end() ? XCB_WINDOW_NONE : window->id;
    }

    [[nodiscard]] bool isMinimised(const WindowProgram &program) const
    {
        const auto states = m_x11.items(windowOf(program), "_NET_WM_STATE");
        return states && states->contains(m_x11.atom("_NET_WM_STATE_HIDDEN"));
    }

    /// The program of the newest window, as listed last.
    [[nodiscard]] RunningApplication newest() const
    {
        const QList<RunningApplication> running = m_applications.runningApplications();
        return running.isEmpty() ? RunningApplication() : running.last();
    }

    QTemporaryDir m_folder;
    const X11Connection m_x11;
    DesktopApplications m_applications{m_x11, &QDBusConnection::sessionBus, std::chrono::seconds(5),
                                       std::chrono::milliseconds(1500)};
};

} // namespace KelvaLR::Testing
