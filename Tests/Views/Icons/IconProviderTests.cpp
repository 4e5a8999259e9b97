#include "Views/Icons/IconProvider.h"

#include <QColor>
#include <QDir>
#include <QMap>
#include <QSet>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

/// What is visible of an image.
struct Ink
{
    int pixels = 0;
    QRect bounds;
    QSet<QRgb> colors; ///< of the most opaque pixels: those that are no edge

    explicit Ink(const QImage &image)
    {
        QMap<int, QSet<QRgb>> colorsByOpacity;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const QPoint point(i % image.width(), i / image.width());
            if (const QColor color = image.pixelColor(point); color.alpha() > 0) {
                ++pixels;
                bounds |= QRect(point, QSize(1, 1));
                colorsByOpacity[color.alpha()].insert(color.rgba());
            }
        }
        colors = colorsByOpacity.isEmpty() ? QSet<QRgb>() : colorsByOpacity.last();
    }
};

QImage rendered(const QString &id, QSize requested)
{
    return IconProvider().requestImage(id, nullptr, requested);
}

TEST(IconProvider, rendersEverySymbolInTheAskedColorAndSize)
{
    const QStringList files = QDir(u":/icons"_s).entryList({u"*.svg"_s});
    ASSERT_FALSE(files.isEmpty());
    for (const QString &file : files) {
        SCOPED_TRACE(file.toStdString());
        const QImage image = rendered(file.chopped(4) + u"/0a6cff"_s, {56, 56});
        const Ink ink(image);
        EXPECT_EQ(image.size(), QSize(56, 56));
        EXPECT_EQ(ink.colors, QSet<QRgb>{0xff0a6cff});
        EXPECT_GT(ink.pixels, 56 * 56 / 20);
        EXPECT_LT(ink.pixels, 56 * 56 * 9 / 10);
        EXPECT_LE((ink.bounds.center() - image.rect().center()).manhattanLength(), 4) << "not in the middle";
    }
}

TEST(IconProvider, readsTheColorWithOrWithoutItsSign)
{
    const std::pair<QString, QRgb> rows[] = {
        {u"d92d20"_s, 0xffd92d20},   {u"%23D92D20"_s, 0xffd92d20},   {u"#d92d20"_s, 0xffd92d20},
        {u"80ffffff"_s, 0x80ffffff}, {u"%2380FFFFFF"_s, 0x80ffffff},
    };
    for (const auto &[color, expected] : rows) {
        const Ink ink(rendered(u"mic.fill/"_s + color, {28, 28}));
        EXPECT_EQ(ink.colors, QSet<QRgb>{expected}) << color.toStdString();
    }
}

TEST(IconProvider, completesTheSizeAndKeepsTheShape)
{
    const std::tuple<QSize, QSize, QRect> rows[] = {
        {{}, {16, 16}, {0, 0, 16, 16}},
        {{32, 0}, {32, 32}, {0, 0, 32, 32}},
        {{-1, 24}, {24, 24}, {0, 0, 24, 24}},
        {{60, 20}, {60, 20}, {20, 0, 20, 20}},
    };
    for (const auto &[requested, size, bounds] : rows) {
        QSize reported;
        const QImage image = IconProvider().requestImage(u"circle.dotted/000000"_s, &reported, requested);
        EXPECT_EQ(image.size(), size);
        EXPECT_EQ(reported, size);
        EXPECT_EQ(Ink(image).bounds, bounds);
    }
}

TEST(IconProviderDeathTest, showsNothingForAnUnknownName)
{
    EXPECT_DEBUG_DEATH(EXPECT_EQ(Ink(rendered(u"no.such.symbol/000000"_s, {28, 28})).pixels, 0),
                       "no symbol has this name");
}

} // namespace
