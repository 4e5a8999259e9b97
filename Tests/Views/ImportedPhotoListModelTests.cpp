#include "Views/ViewModels/ImportedPhotoListModel.h"

#include "Stores/AppModelFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

class ImportedPhotoListModelTest : public AppModelTest
{
protected:
    void import(const QStringList &names)
    {
        const QTemporaryDir folder;
        for (const QString &name : names) {
            QFile file(folder.filePath(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
        lightroom.plugin.answer(ScriptedPlugin::successReply(u"Imported photos from folder"_s));
        waitForTask(model->importPhotos(QUrl::fromLocalFile(folder.path())));
    }

    [[nodiscard]] QString names() const
    {
        QStringList texts;
        for (int row = 0; row < list.rowCount(); ++row) {
            const QModelIndex index = list.index(row);
            texts.append(index.data(ImportedPhotoListModel::DisplayNameRole).toString() +
                         (index.data(ImportedPhotoListModel::SelectedRole).toBool() ? u"*"_s : QString()));
        }
        return texts.join(u' ');
    }

    ImportedPhotoListModel list{*model};
    QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ImportedPhotoListModelTest, followsTheTray)
{
    import({u"a.jpg"_s, u"b.jpg"_s});
    EXPECT_EQ(names(), u"a* b*"_s);
    import({u"c.jpg"_s});
    EXPECT_EQ(names(), u"a b c*"_s);
    list.select(1, Qt::NoModifier);
    list.remove(0);
    EXPECT_EQ(names(), u"b* c"_s);
    list.select(1, Qt::ControlModifier);
    list.select(7, Qt::NoModifier);
    list.remove(-1);
    EXPECT_EQ(names(), u"b* c*"_s);
}

TEST_F(ImportedPhotoListModelTest, aClickChangesItsCellsOnly)
{
    QStringList files;
    for (int i = 0; i < 100; ++i) {
        files.append(u"%1.jpg"_s.arg(i));
    }
    import(files);
    list.select(3, Qt::NoModifier);
    QSignalSpy changed(&list, &QAbstractItemModel::dataChanged);
    const QSignalSpy reset(&list, &QAbstractItemModel::modelReset);
    list.select(70, Qt::NoModifier);
    ASSERT_EQ(changed.size(), 2);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 3);
    EXPECT_EQ(changed[1][1].toModelIndex().row(), 70);
    EXPECT_TRUE(reset.isEmpty());
}

} // namespace
