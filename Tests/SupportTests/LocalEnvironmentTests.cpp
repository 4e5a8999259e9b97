#include "Support/LocalEnvironment.h"

#include "Support/PrintQt.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(LocalEnvironment, readsTheFirstLineWhoseNameMatchesExactly)
{
    const std::pair<QString, std::optional<QString>> cases[] = {
        {u"NAME=value"_s, u"value"_s},
        {u"# NAME=no\r\n\n  NAME=value \r\nNAME=later"_s, u"value"_s},
        {u"NAME=\"value\""_s, u"value"_s},
        {u"NAME='\"value\"\""_s, u"value"_s},
        {u"NAME=a=b"_s, u"a=b"_s},
        {u"NAME=value # note"_s, u"value # note"_s},
        {u"NAME= value"_s, u" value"_s},
        {u"NAME=a\\nb"_s, u"a\\nb"_s},
        {u"OTHER=1\nNAME=it's \"so\" here"_s, u"it's \"so\" here"_s},
        {u"NAME=\nNAME=value"_s, std::nullopt},
        {u"NAME=\"'\"\nNAME=value"_s, std::nullopt},
        {u"NAME = value"_s, std::nullopt},
        {u"export NAME=value"_s, std::nullopt},
        {u"name=value\nNAME2=value\n=value\nNAME"_s, std::nullopt},
        {u""_s, std::nullopt},
    };
    for (const auto &[text, value] : cases) {
        EXPECT_EQ(LocalEnvironment::valueInText(text, u"NAME"), value) << text.toStdString();
    }
}

TEST(LocalEnvironment, looksIntoEachFolderOnceTheWorkingDirectoryFirst)
{
    EXPECT_EQ(
        LocalEnvironment::candidateFiles(u"/work"_s, u"/opt/kelvalr/bin"_s),
        (QStringList{u"/work/.env.local"_s, u"/opt/kelvalr/.env.local"_s, u"/opt/kelvalr/bin/.env.local"_s}));
    EXPECT_EQ(LocalEnvironment::candidateFiles(u"/opt/kelvalr/bin/"_s, u"/opt/kelvalr/bin"_s),
              (QStringList{u"/opt/kelvalr/bin/.env.local"_s, u"/opt/kelvalr/.env.local"_s}));
}

TEST(LocalEnvironment, whatIsNoReadableTextFileHasNoValues)
{
    const QTemporaryDir folder;
    const std::pair<QByteArray, std::optional<QString>> cases[] = {
        {"NAME=caf\xc3\xa9\n", u"café"_s},
        {"\xef\xbb\xbfNAME=value\n", u"value"_s},
        {"NAME=caf\xe9\n", std::nullopt},
        {"NAME=value\n" + QByteArray(qsizetype{1024} * 1024, '\n'), std::nullopt},
    };
    for (const auto &[bytes, value] : cases) {
        QFile file(folder.filePath(u"file"_s));
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size() && file.flush());
        EXPECT_EQ(LocalEnvironment::valueInFile(file.fileName(), u"NAME"), value)
            << bytes.left(80).toStdString();
    }
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    for (const QString &path : {folder.filePath(u"missing"_s), folder.path(), pipe}) {
        EXPECT_EQ(LocalEnvironment::valueInFile(path, u"NAME"), std::nullopt);
    }
}

TEST(LocalEnvironment, theProcessEnvironmentComesFirstUnlessItIsEmpty)
{
    const QTemporaryDir folder;
    const QString previous = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder.path()));
    QFile file(u".env.local"_s);
    ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write("KELVALR_TEST_NAME='from a file'") > 0);
    file.close();
    const QString name = u"KELVALR_TEST_NAME"_s;

    EXPECT_EQ(LocalEnvironment::value(name), u"from a file"_s);
    qputenv("KELVALR_TEST_NAME", "");
    EXPECT_EQ(LocalEnvironment::value(name), u"from a file"_s);
    qputenv("KELVALR_TEST_NAME", " set ");
    EXPECT_EQ(LocalEnvironment::value(name), u" set "_s);
    qunsetenv("KELVALR_TEST_NAME");
    ASSERT_TRUE(file.remove());
    EXPECT_EQ(LocalEnvironment::value(name), std::nullopt);
    QDir::setCurrent(previous);
}
