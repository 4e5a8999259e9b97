#include "Stores/AppModelFixture.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

class AppModelImportedPhotosTest : public AppModelTest
{
protected:
    void makeFiles(const QStringList &names) const
    {
        for (const QString &name : names) {
            QFile file(folder.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }

    void import(const QByteArray &reply = ScriptedPlugin::successReply(u"Imported 3 photos from folder"_s))
    {
        lightroom.plugin.answer(reply);
        submit(u"import photos from folder "_s + folder.path());
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(AppModelImportedPhotosTest, importsExactlyTheSupportedFilesInTheOrderOfTheirNumbers)
{
    makeFiles({u"IMG_10.CR3"_s, u"IMG_9.jpg"_s, u"notes.txt"_s, u".hidden.jpg"_s, u"apple.HEIC"_s});
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"sub.jpg"_s));
    import();
    QStringList names;
    for (const ImportedPhotoAsset &photo : model->importedPhotos()) {
        names.append(photo.displayName);
    }
    EXPECT_EQ(names, (QStringList{u"apple"_s, u"IMG_9"_s, u"IMG_10"_s}));
    EXPECT_EQ(model->selectedImportedPhotos(), model->importedPhotos());
    EXPECT_EQ(model->artifacts().size(), 1);
    ASSERT_TRUE(model->selectedArtifact());
    EXPECT_EQ(model->selectedArtifactID(), model->selectedArtifact()->id);
    EXPECT_EQ(model->selectedArtifact()->title, u"Imported Photos"_s);
    EXPECT_EQ(model->selectedArtifact()->body,
              u"Lightroom Classic: Imported 3 photos from folder\n\nFolder: %1\n\nPhotos found: 3"_s.arg(
                  folder.path()));
    EXPECT_EQ(answers(), QStringList{u"Lightroom Classic: Imported 3 photos from folder"_s});

    makeFiles({u"new.nef"_s});
    import();
    EXPECT_EQ(model->importedPhotos().size(), 4);
    ASSERT_EQ(model->selectedImportedPhotos().size(), 1);
    EXPECT_EQ(model->selectedImportedPhotos().constFirst().displayName, u"new"_s);

    import();
    EXPECT_EQ(model->importedPhotos().size(), 4);
    EXPECT_TRUE(model->selectedImportedPhotoIDs().isEmpty());

    model->startNewSession();
    EXPECT_EQ(model->importedPhotos().size(), 4);
}

TEST_F(AppModelImportedPhotosTest, aRefusedImportAddsNothingAndSaysWhy)
{
    makeFiles({u"a.jpg"_s});

    const std::pair<QByteArray, bool> rows[] = {
        {ScriptedPlugin::errorReply(u"Photos not imported"_s), false},
        {ScriptedPlugin::successReply(u"Imported with an Error"_s), false},
        {ScriptedPlugin::successReply(u"Done"_s), false},
        {ScriptedPlugin::errorReply(u"No photos were imported from folder"_s), true},
    };
    for (const auto &[reply, isAccepted] : rows) {
        import(reply);
        EXPECT_EQ(!model->importedPhotos().isEmpty(), isAccepted) << reply.toStdString();
        EXPECT_EQ(model->artifacts().constLast().title, u"Imported Photos"_s);
    }
    EXPECT_EQ(model->artifacts().size(), 4);

    submit(u"import photos from folder /none/such place."_s);
    EXPECT_EQ(answers().constLast(), u"No supported photo files were found in such place."_s);
    EXPECT_EQ(model->artifacts().size(), 4);
}

TEST_F(AppModelImportedPhotosTest, aRequestActsOnTheSelectedPhotosOrOnAllOfThem)
{
    submit(u"rate these 4 stars"_s);
    EXPECT_EQ(answers(), QStringList{u"Select one or more imported photos in the artifact area first."_s});
    EXPECT_TRUE(lightroom.plugin.commands().isEmpty());

    makeFiles({u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s});
    import();
    model->selectImportedPhoto(model->importedPhotos().at(2), AppModel::Selection::replace);
    model->selectImportedPhoto(model->importedPhotos().at(0), AppModel::Selection::extend);
    const QJsonArray selected{folder.filePath(u"a.jpg"_s), folder.filePath(u"c.jpg"_s)};
    const QJsonArray all{selected.at(0), folder.filePath(u"b.jpg"_s), selected.at(1)};

    const struct
    {
        QString text;
        QByteArray command; ///< without its target paths
        QJsonArray targets;
    } rows[] = {
        {u"rate these 4 stars"_s, R"({"action":"rating","value":4})", selected},
        {u"reject all imported photos"_s, R"({"action":"cull","type":"reject"})", all},
        {u"apply the Vivid preset to the selected photos"_s,
         R"({"action":"apply_preset","preset_name":"Vivid"})", selected},
        {u"set exposure of these to 1"_s,
         R"({"action":"adjust_slider","slider":"exposure","value":1,"relative":false})", selected},
        {u"make all photos brighter and warmer"_s,
         R"({"action":"adjust_sliders","adjustments":"exposure:0.3:1;temperature:500:1"})", all},
    };

    lightroom.plugin.answer(ScriptedPlugin::successReply(u"Done"_s));
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        submit(row.text);
        QJsonObject command = QJsonDocument::fromJson(row.command).object();
        command.insert("target_paths"_L1, row.targets);
        EXPECT_EQ(lastCommand(), command);
        EXPECT_EQ(answers().constLast(), u"Lightroom Classic: Done"_s);
        EXPECT_EQ(model->artifacts().constLast().title, u"Imported Photo Action"_s);
        EXPECT_EQ(model->artifacts().constLast().body,
                  u"Lightroom Classic: Done\n\nPhotos targeted: %1"_s.arg(row.targets.size()));
    }
}

TEST_F(AppModelImportedPhotosTest, theTrayTogglesAndRemovesPhotos)
{
    makeFiles({u"a.jpg"_s, u"b.jpg"_s});
    import();
    const ImportedPhotoAsset first = model->importedPhotos().at(0);
    const ImportedPhotoAsset second = model->importedPhotos().at(1);

    model->selectImportedPhoto(first, AppModel::Selection::extend);
    EXPECT_EQ(model->selectedImportedPhotos(), QList{second});
    model->selectImportedPhoto(ImportedPhotoAsset::make(u"/strange.jpg"_s), AppModel::Selection::replace);
    EXPECT_EQ(model->selectedImportedPhotos(), QList{second});
    model->removeImportedPhoto(second);
    EXPECT_EQ(model->importedPhotos(), QList{first});
    EXPECT_TRUE(model->selectedImportedPhotoIDs().isEmpty());
}

TEST_F(AppModelImportedPhotosTest, aToolCallIsAimedOnlyWhenItSpeaksOfImportedPhotos)
{
    using Paths = std::optional<QStringList>;
    const auto paths = [&](const RealtimeImportedPhotoTargetRequest &request) {
        return model->importedPhotoTargetPaths(request);
    };
    EXPECT_EQ(paths({.action = u"lr_set_rating"_s, .text = u"rate these"_s}), Paths(QStringList()));

    makeFiles({u"a.jpg"_s, u"b.jpg"_s});
    import();
    model->selectImportedPhoto(model->importedPhotos().at(1), AppModel::Selection::replace);
    const QStringList all{folder.filePath(u"a.jpg"_s), folder.filePath(u"b.jpg"_s)};

    EXPECT_EQ(paths({.action = u" LR_Set_Rating"_s, .transcript = u"Rate These"_s}), Paths({all.at(1)}));
    EXPECT_EQ(paths({.action = u"lr_cull_photo"_s, .targetName = u"all"_s, .prompt = u"photos"_s}),
              Paths(all));
    EXPECT_EQ(paths({.action = u"lr_set_rating"_s, .text = u"rate it"_s}), std::nullopt);
    EXPECT_EQ(paths({.action = u"lr_navigate"_s, .text = u"these"_s}), std::nullopt);
}
