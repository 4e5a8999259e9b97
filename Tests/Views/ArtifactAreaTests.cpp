#include "Views/MainWindowFixture.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

QStringList numbersBetween(int first, int last)
{
    QStringList names;
    for (int number = first; number <= last; ++number) {
        names.append(QString::number(number));
    }
    return names;
}

class ArtifactAreaTest : public MainWindowTest
{
protected:
    /// Puts photos with these names into the tray; none of them is selected.
    void importPhotos(const QStringList &names)
    {
        for (const QString &name : names) {
            QFile file(photos.filePath(name + u".jpg"_s));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
        lightroom.plugin.answer(ScriptedPlugin::successReply(u"Imported photos from folder"_s));
        host->conversation().importFolders({QUrl::fromLocalFile(photos.path())});
        ASSERT_TRUE(waitUntil([&] { return model->importedPhotos().size() == names.size(); }));
        ASSERT_TRUE(waitUntil([&] { return control(names.constFirst()) != nullptr; }));
    }

    [[nodiscard]] QStringList selectedNames() const
    {
        QStringList names;
        for (const ImportedPhotoAsset &photo : model->selectedImportedPhotos()) {
            names.append(photo.displayName);
        }
        return names;
    }

    QTemporaryDir photos;
};

TEST_F(ArtifactAreaTest, waitsAndThenShowsTheLatestReply)
{
    EXPECT_TRUE(shows(u"Waiting for Response"_s));
    EXPECT_TRUE(shows(u"Type a request, or drop a folder of photos here."_s));
    submit(u"hello"_s);
    EXPECT_TRUE(willShow(u"Realtime Output"_s));
    EXPECT_TRUE(shows(u"Hello."_s));
    EXPECT_TRUE(shows(u"Assistant Response"_s));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(willShow(u"Waiting for Response"_s));
    EXPECT_FALSE(shows(u"Hello."_s));
}

TEST_F(ArtifactAreaTest, showsTheArtifactAndScrollsUpToAReplyThatIsNewer)
{
    assistant.response.artifacts = {
        Artifact::make(ArtifactKind::progress, u"Look"_s, ArtifactStatus::running,
                       u"# Warm\n- **one** two\n"_s + u"A line.\n"_s.repeated(300))};
    submit(u"hello"_s);
    ASSERT_TRUE(willShow(u"Progress"_s));
    EXPECT_TRUE(shows(u"Running"_s));
    EXPECT_FALSE(shows(u"Assistant Response"_s));
    EXPECT_TRUE(shows(u"one two"_s));
    const auto titlePlace = [this] { return itemWithText(window(), u"Progress"_s)->mapToScene({}).y(); };
    const QPointF where = place(u"Lightroom Output"_s).center();
    quint64 time = 0;
    ASSERT_TRUE(waitUntil([&] {
        QWheelEvent wheel(where, where, {0, -2000}, {0, -2000}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        wheel.setTimestamp(time += 100); // the list asks how fast the wheel turns
        QCoreApplication::sendEvent(&window(), &wheel);
        return titlePlace() < 0;
    }));

    assistant.response.artifacts = {};
    assistant.response.message =
        ConversationMessage::make(ConversationRole::assistant, InputMode::quiet, u"A later word."_s);
    submit(u"and?"_s);
    ASSERT_TRUE(willShow(u"A later word."_s));
    EXPECT_TRUE(waitUntil([&] { return titlePlace() > 0; }));
}

TEST_F(ArtifactAreaTest, selectsByClickAndExtendsWithControlAndShift)
{
    importPhotos({u"a"_s, u"b"_s, u"c"_s});
    click(u"b"_s);
    EXPECT_EQ(selectedNames(), QStringList{u"b"_s});
    click(u"c"_s, Qt::ControlModifier);
    click(u"a"_s, Qt::ShiftModifier);
    EXPECT_EQ(selectedNames(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    click(u"b"_s, Qt::ControlModifier);
    EXPECT_EQ(selectedNames(), (QStringList{u"a"_s, u"c"_s}));
    EXPECT_TRUE(control(u"a"_s)->state().checked);
    EXPECT_FALSE(control(u"b"_s)->state().checked);
    click(u"b"_s);
    EXPECT_EQ(selectedNames(), QStringList{u"b"_s});
}

TEST_F(ArtifactAreaTest, aLongTrayOpensAtItsBeginningAndMakesOnlyTheCellsInSight)
{
    importPhotos(numbersBetween(1000, 2999));
    EXPECT_TRUE(waitUntil([&] { return window().contentItem()->contains(place(u"1000"_s).center()); }));
    EXPECT_EQ(control(u"2999"_s), nullptr);
    EXPECT_LT(control(u"Imported Photos"_s)->childCount(), 200);
}

TEST_F(ArtifactAreaTest, selectsAndRemovesByKeyboard)
{
    importPhotos(numbersBetween(10, 89));
    for (int i = 0; i < 8 && !control(u"Imported Photos"_s)->state().focused; ++i) {
        press(Qt::Key_Tab);
    }
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_EQ(selectedNames(), QStringList{u"11"_s});
    press(Qt::Key_Right);
    press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(selectedNames(), (QStringList{u"11"_s, u"12"_s}));
    press(Qt::Key_Delete);
    EXPECT_EQ(selectedNames(), QStringList{u"11"_s});
    EXPECT_EQ(place(u"70"_s).intersected(window().geometry()), QRect());
    for (int i = 0; i < 12; ++i) {
        press(Qt::Key_Down);
    }
    press(Qt::Key_Space);
    ASSERT_EQ(selectedNames().size(), 1);
    const QRect reached = place(selectedNames().constFirst());
    EXPECT_TRUE(QRect({}, window().size()).contains(reached));
}

TEST_F(ArtifactAreaTest, removesAPhotoFromTheTrayAndKeepsTheTrayInANewSession)
{
    importPhotos({u"a"_s, u"b"_s});
    QTest::mouseMove(&window(), place(u"a"_s).center());
    click(u"Remove a from tray"_s);
    EXPECT_EQ(model->importedPhotos().size(), 1);
    EXPECT_TRUE(waitUntil([&] { return control(u"a"_s) == nullptr; }));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_NE(control(u"b"_s), nullptr);
}

TEST_F(ArtifactAreaTest, theFolderChooserBeginsAtThePicturesAndImportsWhatIsChosen)
{
    ASSERT_TRUE(QDir(photos.path()).mkpath(u"Pictures/Trip"_s));
    QFile photo(photos.filePath(u"Pictures/Trip/a.jpg"_s));
    ASSERT_TRUE(photo.open(QIODevice::WriteOnly));
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", photos.path().toLocal8Bit());
    const auto restored = qScopeGuard([&home] { qputenv("HOME", home); });
    reopen();

    click(u"Import Photos"_s);
    EXPECT_TRUE(willShow(u"Choose a folder to import into Lightroom Classic."_s));
    ASSERT_TRUE(willShow(u"Trip"_s));
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !shows(u"Trip"_s); }));
    EXPECT_TRUE(model->messages().isEmpty());

    click(u"Import Photos"_s);
    ASSERT_TRUE(willShow(u"Trip"_s));
    QQuickItem *accept = itemWithText(window(), u"Import Photos"_s);
    ASSERT_TRUE(accept);
    QTest::mouseClick(&window(), Qt::LeftButton, {}, accept->mapToScene({5, 5}).toPoint());
    ASSERT_TRUE(waitUntil([&] { return !model->messages().isEmpty(); }));
    EXPECT_EQ(lastCommand().value(u"folder_path"_s).toString(), photos.filePath(u"Pictures/Trip"_s));
}

TEST_F(ArtifactAreaTest, aDroppedFolderIsImportedAndAFileIsNot)
{
    QFile file(photos.filePath(u"a.jpg"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    host->conversation().importFolders(
        {QUrl::fromLocalFile(file.fileName()), QUrl(u"https://example.com/"_s)});
    EXPECT_FALSE(model->isResponding());
    host->conversation().importFolders({QUrl::fromLocalFile(photos.path())});
    EXPECT_TRUE(model->isResponding());
    ASSERT_TRUE(waitUntil([&] { return !model->isResponding(); }));
    EXPECT_EQ(lastCommand().value(u"folder_path"_s).toString(), photos.path());
}

} // namespace
