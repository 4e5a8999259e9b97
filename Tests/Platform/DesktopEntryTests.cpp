#include "Platform/Linux/DesktopEntries.h"

#include "Support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

std::optional<DesktopEntry> parsedEntry(const QByteArray &lines)
{
    return parsedDesktopEntry(QByteArray("[Desktop Entry]\n" + lines));
}

TEST(DesktopEntry, isReadFromItsOwnGroupWithTheNameOfNoLanguage)
{
    const auto entry = parsedDesktopEntry("# made by hand\r\n"
                                          "Name=Stray\n"
                                          "[Desktop Entry]\r\n"
                                          "Type=Application\r\n"
                                          "Name[de]=Anders\n"
                                          "Name = Adobe\\sLightroom\\tClassic \\x\n"
                                          "StartupWMClass=lightroom.exe\n"
                                          "no equals sign\n=no key\nTerminal=yes\nNoDisplay=true\n"
                                          "Path=/opt/\xff\n"
                                          "[Desktop Action New]\n"
                                          "Name=New Window\n"
                                          "[Desktop Entry]\n"
                                          "Name=Second");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->type, u"Application");
    EXPECT_EQ(entry->name, u"Adobe Lightroom\tClassic \\x");
    EXPECT_EQ(entry->windowClass, u"lightroom.exe");
    EXPECT_EQ(entry->workingFolder, u"/opt/\xfffd"_s);
    EXPECT_TRUE(entry->isUnlisted);
    EXPECT_FALSE(entry->needsTerminal);
    for (const char *none : {"", "[Desktop Entry", "[Other]\nName=x", "Name=x", "\xff\xfe[\0D"}) {
        EXPECT_FALSE(parsedDesktopEntry(none)) << none;
    }
}

TEST(DesktopEntry, givesTheProgramAndItsArguments)
{
    const std::pair<const char *, std::optional<QStringList>> rows[] = {
        {R"(gedit %U)", QStringList{u"gedit"_s}},
        {R"(  app   a	b  )", QStringList{u"app"_s, u"a"_s, u"b"_s}},
        {R"("/opt/Light Room/lr" "" --x="%f" '%u' %%d)",
         QStringList{u"/opt/Light Room/lr"_s, u""_s, u"--x="_s, u"%d"_s}},
        {R"(app "\\$HOME \\`x\\` \\"q\\" \\\\ \\n" $HOME)",
         QStringList{u"app"_s, uR"($HOME `x` "q" \ \n)"_s, u"$HOME"_s}},
        {R"(env WINEPREFIX="/a b/.wine" wine C:\\\\Adobe\\\\Lightroom.exe it\\ 's \n')",
         QStringList{u"env"_s, u"WINEPREFIX=/a b/.wine"_s, u"wine"_s, uR"(C:\Adobe\Lightroom.exe)"_s,
                     u"it s \n"_s}},
        {R"(app %i --name %c "file %k" %d%m)", QStringList{u"app"_s, u"--icon"_s, u"an icon"_s, u"--name"_s,
                                                           u"A \"Name\""_s, u"file /a b.desktop"_s}},
        {R"(app "open)", std::nullopt},
        {R"(app 'open)", std::nullopt},
        {R"(app \\)", QStringList{u"app"_s, u"\\"_s}},
        {R"(app %)", std::nullopt},
        {R"(app 50%x)", std::nullopt},
        {R"(%f)", std::nullopt},
        {R"("" app)", std::nullopt},
        {R"()", std::nullopt},
    };
    for (const auto &[exec, command] : rows) {
        auto entry = parsedEntry(QByteArray("Name=A \"Name\"\nIcon=an icon\nExec=") + exec);
        ASSERT_TRUE(entry);
        entry->path = u"/a b.desktop"_s;
        EXPECT_EQ(commandLine(*entry), command) << exec;
    }
}

/// Two folders of applications.
class DesktopEntriesTest : public testing::Test
{
protected:
    void write(const QString &path, const QByteArray &lines)
    {
        const QFileInfo info(m_folder.filePath(path));
        ASSERT_TRUE(QDir().mkpath(info.path()));
        QFile file(info.filePath());
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\nExec=true\n" + lines + '\n');
    }

    [[nodiscard]] QList<DesktopEntry> installed() const
    {
        return installedDesktopEntries(
            {m_folder.filePath(u"own"_s), m_folder.filePath(u"none"_s), m_folder.filePath(u"all"_s)});
    }

    QTemporaryDir m_folder;
};

TEST_F(DesktopEntriesTest, areInstalledUnlessDeletedMissingOrNoApplications)
{
    write(u"all/b.desktop"_s, "Name=Everyone's b");
    write(u"all/deleted.desktop"_s, "Name=Deleted");
    write(u"all/huge.desktop"_s, "Name=Small");
    write(u"all/unusable.desktop"_s, "Name=Usable");
    write(u"own/b.desktop"_s, "Name=Own b");
    write(u"own/deleted.desktop"_s, "Hidden=true");
    write(u"own/huge.desktop"_s, "Name=Huge\n" + QByteArray(1'048'576, '#'));
    ASSERT_TRUE(QDir().mkpath(m_folder.filePath(u"own/unusable.desktop"_s)));
    write(u"own/wine/Programs/Adobe Lightroom.desktop"_s, "Name=Adobe Lightroom\nNoDisplay=true");
    write(u"own/link.desktop"_s, "Name=Link\nType=Link");
    write(u"own/nameless.desktop"_s, "");
    write(u"own/here.desktop"_s, "Name=Here\nTryExec=true");
    write(u"own/gone.desktop"_s, "Name=Gone\nTryExec=/none/gone");
    write(u"own/notes.txt"_s, "Name=Notes");

    QStringList found;
    for (const DesktopEntry &entry : installed()) {
        found.append(entry.id + u": "_s + entry.name);
        EXPECT_EQ(readDesktopEntry(entry.path)->name, entry.name);
    }
    EXPECT_EQ(found, QStringList({u"b: Own b"_s, u"here: Here"_s,
                                  u"wine-Programs-Adobe Lightroom: Adobe Lightroom"_s, u"huge: Small"_s,
                                  u"unusable: Usable"_s}));
}

TEST(DesktopEntry, isListedWhereItsDesktopIs)
{
    for (const auto &[lines, isExpected] : {std::pair{"", true},
                                            {"NoDisplay=true", false},
                                            {"OnlyShowIn=KDE;GNOME;", true},
                                            {"OnlyShowIn=KDE;", false},
                                            {"NotShowIn=GNOME", false},
                                            {"NotShowIn=KDE", true},
                                            {"OnlyShowIn=GNOM", false}}) {
        EXPECT_EQ(isListed(*parsedEntry(lines), {u"ubuntu"_s, u"GNOME"_s}), isExpected) << lines;
    }
}

TEST_F(DesktopEntriesTest, belongToWindowsByClassThenById)
{
    write(u"all/lightroom.exe.desktop"_s, "Name=By id");
    write(u"all/org.gnome.gedit.desktop"_s, "Name=Editor");
    write(u"all/wine-lr.desktop"_s, "Name=By class\nStartupWMClass=Lightroom.exe");
    const QList<DesktopEntry> entries = installed();

    const std::pair<WindowClass, QString> rows[] = {
        {{u"x"_s, u"lightroom.exe"_s}, u"By class"_s},
        {{u"lightroom.exe"_s, u"x"_s}, u"By class"_s},
        {{u"gedit"_s, u"Gedit"_s}, u"Editor"_s},
        {{u"x"_s, u"org.gnome.gedit"_s}, u"Editor"_s},
        {{u"gnome"_s, u"edit"_s}, u""_s},
        {{u""_s, u""_s}, u""_s},
    };
    for (const auto &[windowClass, name] : rows) {
        const DesktopEntry *entry = entryOfWindows(windowClass, entries);
        EXPECT_EQ(entry ? entry->name : QString(), name) << windowClass.name.toStdString();
    }
}

} // namespace
