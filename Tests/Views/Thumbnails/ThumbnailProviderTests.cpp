#include "SamplePhotos.h"

#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"
#include "Views/Thumbnails/ThumbnailProvider.h"

#include <QMutex>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSemaphore>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Decodes every path to a red square, once the gate lets it pass. May be asked by several threads.
class GatedDecoder
{
public:
    QImage decode(const QString &path, int side)
    {
        {
            const QMutexLocker lock(&m_mutex);
            m_paths.append(path);
        }
        if (!gate.tryAcquire(1, 20s) || path.endsWith(".broken"_L1)) {
            return {};
        }
        QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::red);
        return picture;
    }

    QStringList paths() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_paths;
    }

    QSemaphore gate;

private:
    mutable QMutex m_mutex;
    QStringList m_paths;
};

/// As QML's loader holds it.
class Request
{
public:
    Request(ThumbnailProvider &provider, const QString &path, QSize size = {64, 64})
        : response(provider.requestImageResponse(QString::fromLatin1(QUrl::toPercentEncoding(path)), size))
    {
        QObject::connect(response.get(), &QQuickImageResponse::finished, response.get(),
                         [this] { isFinished = true; });
    }

    Q_DISABLE_COPY_MOVE(Request)

    ~Request() = default;

    QImage picture() const
    {
        EXPECT_TRUE(waitUntil([&] { return isFinished; }));
        const std::unique_ptr<QQuickTextureFactory> factory(response->textureFactory());
        return factory->image();
    }

    bool isFinished = false;
    std::unique_ptr<QQuickImageResponse> response;
};

class ThumbnailProviderTest : public testing::Test
{
protected:
    QString photo(const QString &name, const QByteArray &content = "x"_ba) const
    {
        const QString path = folder.filePath(name);
        write(path, content);
        return path;
    }

    std::unique_ptr<ThumbnailProvider> makeProvider()
    {
        return std::make_unique<ThumbnailProvider>(
            [this](const QString &path, int side) { return decoder.decode(path, side); });
    }

    std::vector<std::unique_ptr<Request>> requestPhotos(int count)
    {
        std::vector<std::unique_ptr<Request>> requests(static_cast<size_t>(count));
        for (auto &request : requests) {
            request = std::make_unique<Request>(*provider, photo(QString::number(--count)));
        }
        return requests;
    }

    QTemporaryDir folder;
    GatedDecoder decoder;
    std::unique_ptr<ThumbnailProvider> provider = makeProvider();
};

TEST_F(ThumbnailProviderTest, answersWithRoundedCorners)
{
    decoder.gate.release(2);
    for (const int side : {64, 128}) {
        const QImage picture = Request(*provider, photo(u"a.jpg"_s), {side, side}).picture();
        ASSERT_EQ(picture.size(), QSize(side, side));
        EXPECT_EQ(picture.pixelColor(side / 2, side / 2), QColor(Qt::red));
        EXPECT_EQ(picture.pixelColor(side / 8, 0), QColor(Qt::red)); // where the edge becomes straight
        for (const QPoint corner :
             {QPoint(0, 0), QPoint(side - 1, 0), QPoint(0, side - 1), QPoint(side - 1, side - 1)}) {
            EXPECT_EQ(picture.pixelColor(corner).alpha(), 0);
        }
    }
}

TEST_F(ThumbnailProviderTest, decodesAgainOnlyWhenTheFileHasChanged)
{
    decoder.gate.release(10);
    const QString path = photo(u"a.jpg"_s);
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(Request(*provider, path).picture().isNull());
    }
    EXPECT_EQ(decoder.paths(), QStringList{path});

    photo(u"a.jpg"_s, "xy"_ba);
    EXPECT_FALSE(Request(*provider, path).picture().isNull());
    EXPECT_EQ(decoder.paths(), (QStringList{path, path}));

    QFile file(path);
    ASSERT_TRUE(file.open(QFile::ReadWrite));
    EXPECT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(1), QFile::FileModificationTime));
    EXPECT_FALSE(Request(*provider, path).picture().isNull());
    EXPECT_EQ(decoder.paths().size(), 3);
}

TEST_F(ThumbnailProviderTest, dropsWhatIsCancelledBeforeItsTurn)
{
    const auto wanted = requestPhotos(4); // as many as there may be threads
    const Request cancelled(*provider, photo(u"cancelled"_s));
    const Request last(*provider, photo(u"last"_s));
    cancelled.response->cancel();
    decoder.gate.release(10);
    EXPECT_FALSE(last.picture().isNull());
    EXPECT_EQ(cancelled.picture().pixelColor(32, 32).alpha(), 0);
    for (const auto &request : wanted) {
        EXPECT_EQ(request->picture().pixelColor(32, 32), QColor(Qt::red));
    }
    EXPECT_EQ(decoder.paths().size(), 5);
    EXPECT_FALSE(decoder.paths().contains(folder.filePath(u"cancelled"_s)));
}

TEST_F(ThumbnailProviderTest, endsWhileItDecodesAndLeavesNoRequestWithoutAnAnswer)
{
    auto requests = requestPhotos(8);
    EXPECT_TRUE(waitUntil([&] { return !decoder.paths().isEmpty(); }));
    requests.erase(requests.begin(), requests.begin() + 2); // the first is being decoded
    const std::jthread opener([this] { decoder.gate.release(8); });
    provider.reset();
    EXPECT_TRUE(std::ranges::all_of(requests, [](const auto &request) {
        return waitUntil([&] { return request->isFinished; }) && request->picture().width() == 64;
    }));
}

TEST_F(ThumbnailProviderTest, getsAnyPathFromTheViewUnharmed)
{
    QQmlEngine engine;
    engine.addImageProvider(thumbnailProviderId, provider.release());
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nImage { sourceSize: Qt.size(64, 64); cache: false }", QUrl());
    const std::unique_ptr<QObject> image(component.create());
    ASSERT_TRUE(image) << component.errorString().toStdString();

    decoder.gate.release(20);
    QStringList paths;
    for (const QString &name :
         {u"plain.jpg"_s, u"a b.jpg"_s, u"50%.jpg"_s, u"100%41%2F.jpg"_s, u"a#b?c&d=e+f.jpg"_s,
          u"Größe 写真.jpg"_s, u"back\\slash;\"quote\".jpg"_s, u"line\nfeed.jpg"_s, u"🦆.broken"_s}) {
        paths.append(photo(name));
        image->setProperty("source", thumbnailUrl(paths.back()));
        EXPECT_TRUE(waitUntil([&] { return image->property("progress").toDouble() == 1; }));
        EXPECT_EQ(image->property("status").toInt(), 1) << name.toStdString(); // Image.Ready
        EXPECT_EQ(image->property("implicitWidth").toInt(), 64) << name.toStdString();
    }
    EXPECT_EQ(decoder.paths(), paths);
}

} // namespace
