#include "Stores/PhotoFolder.h"

#include "Models/ImportedPhotoAsset.h"
#include "Support/ValueWithin.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QtConcurrentRun>

#include <algorithm>

namespace KelvaLR {

namespace {

constexpr std::chrono::seconds readingTime{30}; ///< for a drive that has to wake up

QStringList listPhotos(const QString &folder)
{
    const QDir directory(folder);
    QStringList names = directory.entryList(QDir::Files | QDir::Readable, QDir::NoSort);
    names.removeIf([](const QString &name) { return !ImportedPhotoAsset::isSupportedFileName(name); });

    QCollator collator{QLocale(QLocale::English)};
    collator.setNumericMode(true);
    std::ranges::sort(names, [&](const QString &left, const QString &right) {
        const int order = collator.compare(left, right);
        return order != 0 ? order < 0 : left < right;
    });
    for (QString &name : names) {
        name = directory.absoluteFilePath(name);
    }
    return names;
}

} // namespace

QCoro::Task<QStringList> photoPaths(QString folder)
{
    co_return (co_await valueWithin(QtConcurrent::run(listPhotos, folder), readingTime))
        .value_or(QStringList());
}

QString standardizedPath(const QString &path)
{
    return QDir::cleanPath(QDir().absoluteFilePath(path));
}

QList<QUrl> foldersAmong(QList<QUrl> places)
{
    places.removeIf([](const QUrl &place) { return !QFileInfo(place.toLocalFile()).isDir(); });
    return places;
}

} // namespace KelvaLR
