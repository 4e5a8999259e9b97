#include "LightroomStandIn/HostedPlugin.h"

#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QHostAddress>
#include <QImage>
#include <QProcess>
#include <QTcpServer>

using namespace Qt::StringLiterals;
using KelvaLR::Testing::waitUntil;
using namespace StandIn::Testing;

namespace {

class Program
{
public:
    explicit Program(const QStringList &arguments, const QString &platform = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, u"/nonexistent"_s);
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        environment.insert(u"QT_QPA_PLATFORM"_s, platform);
        m_process.setProcessEnvironment(environment);
        m_process.start(QStringLiteral(KELVALR_STANDIN_PROGRAM), arguments);
    }

    /// The exit code; -1 after a crash.
    int finish()
    {
        EXPECT_TRUE(waitUntil([this] { return m_process.state() == QProcess::NotRunning; }));
        m_output += m_process.readAllStandardOutput();
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    /// Whether it says these lines, in any order, and nothing else.
    [[nodiscard]] bool waitForLines(QByteArrayList lines)
    {
        std::ranges::sort(lines);
        const auto said = [this] {
            QByteArrayList spoken = m_output.split('\n');
            spoken.removeLast(); // what has no line feed yet
            std::ranges::sort(spoken);
            return spoken;
        };
        return waitUntil([&] {
                   m_output += m_process.readAllStandardOutput();
                   return said().size() >= lines.size() || m_process.state() == QProcess::NotRunning;
               }) &&
               said() == lines;
    }

    void terminate() { m_process.terminate(); }

    [[nodiscard]] QByteArray output() const { return m_output; }

    [[nodiscard]] QByteArray errors() { return m_process.readAllStandardError(); }

private:
    QProcess m_process;
    QByteArray m_output;
};

/// The program ends with one sentence that begins so.
void expectRefusal(Program &&program, const QString &sentence)
{
    EXPECT_EQ(program.finish(), 1);
    const QString said = QString::fromUtf8(program.errors());
    EXPECT_TRUE(said.startsWith(sentence)) << said.toStdString();
    EXPECT_EQ(said.count(u'\n'), 1) << said.toStdString();
    EXPECT_EQ(program.output(), QByteArray());
}

/// Folders that the stand-in can serve.
struct Folders
{
    QTemporaryDir directory;
    QString photos = directory.filePath(u"photos"_s);
    QString modules = directory.filePath(u"modules"_s);
    QString presets = directory.filePath(u"presets"_s);

    Folders()
    {
        writeFile(photos + u"/a.jpg"_s);
        writeFile(presets + u"/good.xmp"_s, presetFile(u"Good"_s, u"Tint=\"+3\""_s));
        installPluginInto(modules);
    }

    [[nodiscard]] QStringList arguments() const
    {
        return {u"--headless"_s, u"--photos"_s, photos, u"--modules"_s, modules, u"--presets"_s, presets};
    }
};

} // namespace

TEST(Program, saysInOneSentenceWhyItCannotStart)
{
    const Folders folders;
    const QString broken = folders.directory.filePath(u"broken"_s);
    writeFile(broken + u"/bad.xmp"_s, "<x:xmpmeta");
    const QString bare = folders.directory.filePath(u"bare"_s);
    QDir().mkpath(bare);

    const QStringList served{u"--headless"_s, u"--photos"_s, folders.photos};
    const std::pair<QStringList, QString> rows[] = {
        {{u"--photos"_s, folders.photos}, u"There is no display for the window; run with --headless."_s},
        {served + QStringList{u"--without-plugin-start"_s},
         u"--without-plugin-start needs a window: leave out --headless."_s},
        {{u"--headless"_s}, u"Name the folder with the photos: --photos DIR."_s},
        {{u"--headless"_s, u"--photos"_s, u"/no/such"_s}, u"There is no photo folder \"/no/such\"."_s},
        {{u"--headless"_s, u"--photos"_s, folders.photos + u"/a.jpg"},
         u"\"%1/a.jpg\" cannot be read as a photo folder."_s.arg(folders.photos)},
        {served + QStringList{u"--presets"_s, u"/no/such"_s},
         u"\"/no/such\" cannot be read as a preset folder."_s},
        {served + QStringList{u"--presets"_s, broken},
         u"The preset \"%1/bad.xmp\" cannot be read: "_s.arg(broken)},
        {served + QStringList{u"--modules"_s, bare},
         u"There is no plug-in at \"%1/KelvaLR.lrplugin\"; run \"kelvalr --install-plugin\" first."_s.arg(
             bare)},
        {served,
         u"There is no plug-in at \"/nonexistent/Library/Application Support/Adobe/Lightroom/Modules/KelvaLR.lrplugin\""_s},
        {{u"--loud"_s}, u"Unknown option 'loud'."_s},
        {{u"--headless"_s, u"extra"_s}, u"Unexpected argument \"extra\"."_s},
    };
    for (const auto &[arguments, sentence] : rows) {
        expectRefusal(Program(arguments), sentence);
    }
}

TEST(Program, servesUntilItIsTerminated)
{
    const Folders folders;
    Program program(folders.arguments());
    ASSERT_TRUE(program.waitForLines({"ready"})) << program.errors().toStdString();

    expectRefusal(Program(folders.arguments()), u"The plug-in cannot listen on port 54321: "_s);
    ASSERT_TRUE(sendToPlugin(R"({"request_id":"PROGRAM","action":"ping"})"
                             "\n"));
    EXPECT_TRUE(waitUntil([] { return readFile(replyPath(u"PROGRAM"_s)).endsWith('\n'); }));
    QFile::remove(replyPath(u"PROGRAM"_s));

    program.terminate();
    EXPECT_EQ(program.finish(), 0);
    EXPECT_EQ(program.errors(), QByteArray());
}

TEST(Program, saysWhenItsWindowIsUp)
{
    const Folders folders;
    const QString bare = folders.directory.filePath(u"bare"_s);

    const std::tuple<QStringList, QByteArrayList, QByteArray> rows[] = {
        {{u"--modules"_s, folders.modules}, {"window", "ready"}, ""},
        {{u"--modules"_s, folders.modules, u"--without-plugin-start"_s}, {"window"}, ""},
        {{u"--modules"_s, bare}, {"window"}, "There is no plug-in at "},
    };
    for (const auto &[arguments, lines, complaint] : rows) {
        Program program(QStringList{u"--photos"_s, folders.photos} + arguments, u"offscreen"_s);
        EXPECT_TRUE(program.waitForLines(lines)) << program.output().toStdString();
        program.terminate();
        EXPECT_EQ(program.finish(), 0);
        EXPECT_EQ(program.output().count('\n'), lines.size());
        EXPECT_TRUE(program.errors().contains(complaint)); // beside what the toolkit has to say
    }
}

TEST(Program, paintsSamplePhotosOnlyWhereThereAreNone)
{
    const QTemporaryDir directory;
    const QString folder = directory.filePath(u"new/photos"_s);
    Program painter({u"--sample-photos"_s, folder});
    EXPECT_EQ(painter.finish(), 0) << painter.errors().toStdString();
    const QStringList names = QDir(folder).entryList(QDir::Files);
    EXPECT_EQ(names.size(), 6);
    for (const QString &name : names) {
        EXPECT_EQ(QImage(folder + u'/' + name).size(), QSize(1200, 800)) << name.toStdString();
    }

    ASSERT_TRUE(QFile::remove(folder + u'/' + names.first()));
    Program again({u"--sample-photos"_s, folder});
    EXPECT_EQ(again.finish(), 0);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 5);

    expectRefusal(Program({u"--sample-photos"_s, folder + u'/' + names.last()}), {});
}
