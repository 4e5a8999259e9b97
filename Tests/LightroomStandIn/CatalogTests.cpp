#include "LightroomStandIn/HostedPlugin.h"

#include "Catalog/DevelopSettingTable.h"
#include "Catalog/SidecarNames.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace StandIn;
using namespace StandIn::Testing;

namespace {

PhotoChanges rating(int stars)
{
    return {.rating = stars, .pickStatus = {}, .develop = {}};
}

} // namespace

TEST(DevelopSettingTable, writesValuesAsCameraRawDoes)
{
    const std::tuple<QString, double, QString> rows[] = {
        {u"Exposure2012"_s, 0.5, u"+0.50"_s},
        {u"Exposure2012"_s, -1, u"-1.00"_s},
        {u"Exposure2012"_s, 0, u"0.00"_s},
        {u"Exposure2012"_s, -0.001, u"0.00"_s},
        {u"Exposure2012"_s, 99, u"+5.00"_s},
        {u"Contrast2012"_s, 10, u"+10"_s},
        {u"Contrast2012"_s, -9.6, u"-10"_s},
        {u"Contrast2012"_s, 0, u"0"_s},
        {u"Temperature"_s, 5200, u"5200"_s},
        {u"Temperature"_s, 1, u"2000"_s},
        {u"Tint"_s, -7, u"-7"_s},
        {u"Clarity"_s, 20, u"+20"_s},
        {u"GrainAmount"_s, 25, u"25"_s},
        {u"GrainAmount"_s, -5, u"0"_s},
    };
    for (const auto &[key, value, text] : rows) {
        const DevelopSetting *setting = developSettingWithKey(key);
        ASSERT_NE(setting, nullptr) << key.toStdString();
        EXPECT_EQ(setting->text(value), text) << key.toStdString();
    }
    EXPECT_EQ(developSettingInProperty(u"Clarity2012"), developSettingWithKey(u"Clarity"));
    EXPECT_EQ(developSettingWithKey(u"Sparkle"), nullptr);
}

TEST(Sidecar, keepsWhateverElseItHolds)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"a.xmp"_s);
    writeFile(path, R"(<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?>
<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
 <rdf:Description rdf:about="" xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:xmp="http://ns.adobe.com/xap/1.0/"
   xmlns:crs="http://ns.adobe.com/camera-raw-settings/1.0/" xmlns:own="http://example.org/own/1.0/"
   xmp:Rating="2" xmp:Label="Red" crs:ProcessVersion="15.4" crs:Exposure2012="-1.00" own:note="kept &amp; safe">
  <dc:subject><rdf:Bag><rdf:li>sea</rdf:li><rdf:li>caf&#233;</rdf:li></rdf:Bag></dc:subject>
  <dc:title><rdf:Alt><rdf:li xml:lang="x-default">Shore</rdf:li><rdf:li xml:lang="de">Ufer</rdf:li></rdf:Alt></dc:title>
  <crs:ToneCurvePV2012><rdf:Seq><rdf:li>0, 0</rdf:li><rdf:li>255, 255</rdf:li></rdf:Seq></crs:ToneCurvePV2012>
  <crs:Look><rdf:Description crs:Name="Adobe Color" crs:Amount="1"/></crs:Look>
  <crs:MaskGroupBasedCorrections><rdf:Seq><rdf:li><rdf:Description crs:What="Correction"
    crs:LocalExposure2012="0.25"/></rdf:li></rdf:Seq></crs:MaskGroupBasedCorrections>
 </rdf:Description></rdf:RDF></x:xmpmeta><?xpacket end="w"?>)");

    const auto before = readSidecar(path).value();
    EXPECT_EQ(before.rating, 2);
    EXPECT_FALSE(before.develop.contains(u"Look"_s)) << "structures are no settings";
    ASSERT_TRUE(
        changeSidecar(path, {.rating = 5, .pickStatus = 1, .develop = {{u"Tint"_s, u"+4"_s}}}).has_value());

    PhotoState expected = before;
    expected.rating = 5;
    expected.pickStatus = 1;
    expected.develop.insert(u"Tint"_s, u"+4"_s);
    expected.develop.insert(u"HasSettings"_s, u"True"_s);
    EXPECT_EQ(readSidecar(path).value(), expected);
    const std::vector<std::pair<const char *, QString>> kept{
        {"Xmp.xmp.Label", u"Red"_s},
        {"Xmp.own.note", u"kept & safe"_s},
        {"Xmp.dc.subject", u"sea"_s},
        {"Xmp.dc.title", u"Shore"_s},
        {"Xmp.crs.ProcessVersion", u"15.4"_s},
        {"Xmp.crs.Look/crs:Name", u"Adobe Color"_s},
        {"Xmp.crs.MaskGroupBasedCorrections[1]/crs:LocalExposure2012", u"0.25"_s},
    };
    for (const auto &[key, text] : kept) {
        EXPECT_EQ(xmpText(path, key), text) << key;
    }
    EXPECT_TRUE(readFile(path).contains("caf\xC3\xA9"));
    EXPECT_TRUE(readFile(path).contains("xml:lang=\"de\""));
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden), QStringList(u"a.xmp"_s));
}

TEST(Sidecar, isLeftAloneWhenItCannotBeRead)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"a.xmp"_s);
    for (const QByteArray &content : {QByteArray(), QByteArray("<x:xmpmeta"), QByteArray("\x00\xFF\xFE", 3),
                                      QByteArray("<a><b></a>"), QByteArray("plain text")}) {
        writeFile(path, content);
        const auto read = readSidecar(path);
        ASSERT_FALSE(read.has_value());
        EXPECT_TRUE(read.error().startsWith(u"Could not read "_s + path + u": "));
        EXPECT_FALSE(changeSidecar(path, rating(3)).has_value());
        EXPECT_EQ(readFile(path), content);
    }
    const auto unwritable = changeSidecar(directory.filePath(u"gone/a.xmp"_s), rating(3));
    ASSERT_FALSE(unwritable.has_value());
    EXPECT_TRUE(unwritable.error().startsWith(u"Could not write "));
}

TEST(SidecarNames, giveEachPhotoASidecarOfItsOwn)
{
    const QTemporaryDir directory;
    for (const char *name : {"IMG_1.CR3", "IMG_1.JPG", "IMG_1.txt", "v1.2.jpg", "v1.png"}) {
        writeFile(directory.filePath(QString::fromLatin1(name)));
    }
    SidecarNames names;
    const auto nameFor = [&](const QString &photo) {
        return QFileInfo(names.pathFor(directory.filePath(photo))).fileName();
    };
    EXPECT_EQ(nameFor(u"IMG_1.JPG"_s), u"IMG_1.JPG.xmp"_s);
    EXPECT_EQ(nameFor(u"IMG_1.CR3"_s), u"IMG_1.xmp"_s);
    EXPECT_EQ(nameFor(u"v1.2.jpg"_s), u"v1.2.xmp"_s);
    EXPECT_EQ(nameFor(u"v1.png"_s), u"v1.xmp"_s);
    EXPECT_EQ(nameFor(u"not-there.jpg"_s), u"not-there.xmp"_s);
}

TEST(Catalog, opensWithAllPhotosSelectedAndTheFirstActive)
{
    const QTemporaryDir directory;
    for (const char *name : {"b.CR3", "a.jpg", "notes.txt", "c.xmp", ".hidden.jpg", "sub/d.jpg"}) {
        writeFile(directory.filePath(QString::fromLatin1(name)));
    }
    const auto catalog = Catalog::open(directory.path()).value();
    ASSERT_EQ(catalog.photos().size(), 2U);
    EXPECT_EQ(catalog.photos()[0].path, directory.filePath(u"a.jpg"_s));
    EXPECT_EQ(catalog.selectedPhotos(), (std::vector{1, 2}));
    EXPECT_EQ(catalog.activePhoto(), 1);
    EXPECT_EQ(catalog.find(directory.path() + u"/sub/../b.CR3"_s), &catalog.photos()[1]);
    EXPECT_EQ(catalog.find(directory.filePath(u"notes.txt"_s)), nullptr);

    const QTemporaryDir empty;
    EXPECT_EQ(Catalog::open(empty.path()).value().activePhoto(), std::nullopt);
    EXPECT_EQ(Catalog::open(u"/no/such"_s).error(), u"There is no photo folder \"/no/such\"."_s);
    const QString file = directory.filePath(u"a.jpg"_s);
    EXPECT_EQ(Catalog::open(file).error(), u"\"%1\" cannot be read as a photo folder."_s.arg(file));
}

TEST(Catalog, makesAllOfTheChangesOrNoneAndAnnouncesThem)
{
    const QTemporaryDir directory;
    writeFile(directory.filePath(u"a.jpg"_s));
    writeFile(directory.filePath(u"b.jpg"_s));
    writeFile(directory.filePath(u"more/c.jpg"_s));
    auto catalog = Catalog::open(directory.path()).value();
    const QString sidecar = directory.filePath(u"a.xmp"_s);
    const QString more = directory.filePath(u"more/c.jpg"_s);
    QStringList heard;
    QObject::connect(&catalog.changes(), &CatalogChanges::selectionChanged,
                     [&] { heard.append(u"selection"_s); });
    QObject::connect(&catalog.changes(), &CatalogChanges::photosAdded, [&] { heard.append(u"added"_s); });
    QObject::connect(&catalog.changes(), &CatalogChanges::photosChanged,
                     [&](const std::vector<int> &ids) { heard.append(u"changed %1"_s.arg(ids.front())); });

    catalog.select(2, {2});
    catalog.select(2, {2});
    EXPECT_EQ(std::exchange(heard, {}), QStringList{u"selection"_s});
    for (const bool isKept : {false, true}) {
        catalog.beginChanges();
        catalog.change(1, rating(4));
        EXPECT_EQ(catalog.addPhoto(more), 3);
        EXPECT_EQ(catalog.state(1)->rating, 4);
        EXPECT_FALSE(QFile::exists(sidecar));
        EXPECT_TRUE(heard.isEmpty()) << "announced before they are made";
        EXPECT_TRUE(!isKept || catalog.commitChanges());
        catalog.discardChanges();
        EXPECT_EQ(catalog.photos().size(), isKept ? 3U : 2U);
        EXPECT_EQ(catalog.find(more) != nullptr, isKept);
        EXPECT_EQ(catalog.state(1)->rating, isKept ? std::optional(4) : std::nullopt);
        EXPECT_EQ(QFile::exists(sidecar), isKept);
    }
    EXPECT_EQ(heard, QStringList({u"added"_s, u"changed 1"_s}));
    EXPECT_EQ(xmpText(sidecar, "Xmp.xmp.Rating"), u"4"_s);
    EXPECT_EQ(catalog.addPhoto(more).error(), u"%1 is already in the catalog."_s.arg(more));
}

TEST(PresetLibrary, shipsPresetsAndPutsTheUsersOwnFirst)
{
    auto library = PresetLibrary::shipped();
    QStringList shipped;
    for (const DevelopPreset &preset : library.folders().at(0).presets) {
        shipped.append(preset.name);
        EXPECT_FALSE(preset.settings.contains(u"UUID"_s));
    }
    EXPECT_EQ(shipped, QStringList({u"Cool Shadows"_s, u"High Contrast B&W"_s, u"Portrait Glow"_s,
                                    u"Soft Matte"_s, u"Warm Fade"_s}));

    const QTemporaryDir directory;
    writeFile(directory.filePath(u"2.xmp"_s), presetFile(u"Mine"_s, u"Contrast2012=\"+7\""_s));
    writeFile(directory.filePath(u"1 unnamed.xmp"_s), presetFile({}, u"Tint=\"+3\""_s));
    ASSERT_TRUE(library.addFolder(directory.path()).has_value());
    const auto &presets = library.folders().at(0).presets;
    ASSERT_EQ(presets.size(), 2U);
    EXPECT_EQ(presets[0].name, u"1 unnamed"_s);
    EXPECT_EQ(presets[1], (DevelopPreset{.name = u"Mine"_s, .settings = {{u"Contrast2012"_s, u"+7"_s}}}));
    EXPECT_EQ(library.preset(5)->name, u"Soft Matte"_s);
    EXPECT_EQ(library.preset(7), nullptr);
}

TEST(Catalog, letsTheUserChangeAPhotoWhileATaskCollectsChanges)
{
    const QTemporaryDir folder;
    writeFile(folder.filePath(u"a.jpg"_s));
    Catalog catalog = Catalog::open(folder.path()).value();
    catalog.beginChanges();
    catalog.change(1, rating(3));
    EXPECT_TRUE(catalog.changeNow(1, {.pickStatus = 1, .keywords = {{u"lake"_s, u"Süd, Ufer"_s}}}));
    EXPECT_EQ(xmpText(folder.filePath(u"a.xmp"_s), "Xmp.xmp.Rating"), QString());
    EXPECT_TRUE(catalog.commitChanges());

    const PhotoState state = catalog.state(1).value();
    EXPECT_EQ(state.rating, 3);
    EXPECT_EQ(state.pickStatus, 1);
    EXPECT_EQ(state.keywords, (QStringList{u"lake"_s, u"Süd, Ufer"_s}));
    EXPECT_FALSE(catalog.changeNow(7, rating(1)));
}
