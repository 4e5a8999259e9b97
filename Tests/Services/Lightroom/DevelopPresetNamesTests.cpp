#include "Services/Lightroom/DevelopPresetNames.h"

#include "Support/PrintQt.h"
#include "Support/TestFiles.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {

namespace {

using namespace Qt::StringLiterals;

const QString packet = uR"(<x:xmpmeta xmlns:x="adobe:ns:meta/">
 <rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
  <rdf:Description xmlns:crs="http://ns.adobe.com/camera-raw-settings/1.0/" %1>%2</rdf:Description>
 </rdf:RDF>
</x:xmpmeta>)"_s;

QStringList namesIn(const QStringList &folders)
{
    return DevelopPresetNames(folders).read().result();
}

class DevelopPresetNamesTest : public testing::Test
{
protected:
    void write(const QString &path, const QString &content) const
    {
        writeFile(folder.filePath(path), content.toUtf8());
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(DevelopPresetNamesTest, areThoseThatLightroomShows)
{
    const QString languages = uR"(<crs:Look><rdf:Description crs:Name="Adobe Color"/></crs:Look>
        <crs:Name><rdf:Alt><rdf:li xml:lang="x-default">Soft &amp; Warm</rdf:li>
        <rdf:li xml:lang="de">Weich</rdf:li></rdf:Alt></crs:Name>)"_s;
    write(u"a/1.xmp"_s, packet.arg(u"crs:Exposure2012=\"+0.15\""_s, languages));
    write(u"a/2.XMP"_s, packet.arg(u"crs:Name=\"Matte\""_s, QString()));
    write(u"a/b/c/File Name.xmp"_s, packet.arg(u"crs:Tint=\"+6\""_s, QString()));
    write(u"Cut Off.xmp"_s, u"<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><"_s);
    write(u"old.lrtemplate"_s,
          u"s = {\n\tid = \"1\",\n\ttitle = \"Old \\\"Film\\\"\",\n\tvalue = { title = \"no\" },\n}"_s);
    write(u"german.lrtemplate"_s, u"s = {\n\ttitle = \"$$$/AgDevelop/Sepia=Sepia Tone\",\n}"_s);
    write(u"again.xmp"_s, packet.arg(u"crs:Name=\"Matte\""_s, QString()));
    write(u"readme.txt"_s, u"no preset"_s);
    write(u"long.xmp"_s, packet.arg(u"crs:Name=\"%1\""_s.arg(QString(61, u'n')), QString()));
    write(u"2024-01.xmp"_s, QString());
    EXPECT_EQ(namesIn({folder.path(), folder.filePath(u"none"_s)}),
              (QStringList{u"Cut Off"_s, u"File Name"_s, u"Matte"_s, u"Old \"Film\""_s, u"Sepia Tone"_s,
                           u"Soft & Warm"_s}));
}

TEST_F(DevelopPresetNamesTest, areBoundedInNumberAndDepth)
{
    write(u"1/2/3/4/5/Deep.xmp"_s, QString());
    write(u"1/2/3/4/5/6/Too Deep.xmp"_s, QString());
    ASSERT_TRUE(QFile::link(folder.path(), folder.filePath(u"1/loop"_s)));
    EXPECT_EQ(namesIn({folder.path()}), QStringList{u"Deep"_s});
    for (int i = 0; i < 600; ++i) {
        write(u"Number %1.xmp"_s.arg(i), QString());
    }
    EXPECT_EQ(namesIn({folder.path()}).size(), 500);
}

TEST_F(DevelopPresetNamesTest, ofTheStandInAreAmongThemWhereItsFolderIsNamed)
{
    qputenv("KELVALR_PRESET_FOLDERS", "/nowhere:" KELVALR_STANDIN_PRESETS);
    const QStringList folders = DevelopPresetNames::defaultFolders();
    qunsetenv("KELVALR_PRESET_FOLDERS");
    EXPECT_EQ(folders.size(), 4);
    EXPECT_TRUE(namesIn(folders).contains(u"Warm Fade"_s));
}

} // namespace KelvaLR::Testing
