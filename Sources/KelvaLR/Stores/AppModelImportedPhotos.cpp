// The road of imported photos: a folder into the catalog and the tray, and requests about exactly those
// photos.
#include "Services/Lightroom/Language/ImportedPhotoBatchParser.h"
#include "Services/Lightroom/LightroomSentences.h"
#include "Services/Lightroom/LightroomService.h"
#include "Stores/PhotoFolder.h"
#include "Stores/RespondingScope.h"
#include "Support/LowercasedText.h"
#include "Support/TextTrimming.h"

#include <QFileInfo>

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// Lightroom's own sentence tells whether it took the photos.
bool isAcceptedImport(const QString &result)
{
    const QString lower = lowercased(result);
    return lower.contains("imported"_L1) && !lower.contains("not imported"_L1) &&
           !lower.contains("not connected"_L1) && !lower.contains("error"_L1);
}

QStringList standardizedPaths(const QList<ImportedPhotoAsset> &photos)
{
    QStringList paths;
    paths.reserve(photos.size());
    for (const ImportedPhotoAsset &photo : photos) {
        paths.append(standardizedPath(photo.url.toLocalFile()));
    }
    return paths;
}

Artifact readyCard(const QString &title, const QString &body)
{
    return Artifact::make(ArtifactKind::markdown, title, ArtifactStatus::ready, body);
}

} // namespace

QCoro::Task<> AppModel::importPhotos(QUrl folder)
{
    const RespondingScope responding(*this);
    const QPointer<AppModel> self(this);
    const QString path = standardizedPath(folder.toLocalFile());
    const QStringList photos = co_await photoPaths(path);
    if (!self) {
        co_return;
    }
    if (photos.isEmpty()) {
        answer(u"No supported photo files were found in %1."_s.arg(QFileInfo(path).fileName()));
        co_return;
    }
    const QString result = co_await m_services.lightroomService.importFolder(path);
    if (!self) {
        co_return;
    }
    if (isAcceptedImport(result)) {
        addImportedPhotos(photos);
    }
    appendAndSelectArtifact(readyCard(
        u"Imported Photos"_s,
        u"%1\n\nFolder: %2\n\nPhotos found: %3"_s.arg(result, path, QString::number(photos.size()))));
    answer(result);
}

void AppModel::addImportedPhotos(const QStringList &paths)
{
    const QStringList known = standardizedPaths(m_importedPhotos);
    const QSet<QString> knownPaths(known.cbegin(), known.cend());
    QSet<QUuid> addedIDs;
    for (const QString &path : paths) {
        if (!knownPaths.contains(path)) {
            m_importedPhotos.append(ImportedPhotoAsset::make(path));
            addedIDs.insert(m_importedPhotos.last().id);
        }
    }
    if (!addedIDs.isEmpty()) {
        Q_EMIT importedPhotosChanged();
    }
    setSelectedImportedPhotoIDs(addedIDs);
}

void AppModel::selectImportedPhoto(const ImportedPhotoAsset &photo, Selection selection)
{
    if (!m_importedPhotos.contains(photo)) {
        return;
    }
    if (selection == Selection::replace) {
        setSelectedImportedPhotoIDs({photo.id});
        return;
    }
    QSet<QUuid> ids = m_selectedImportedPhotoIDs;
    if (!ids.remove(photo.id)) {
        ids.insert(photo.id);
    }
    setSelectedImportedPhotoIDs(ids);
}

void AppModel::removeImportedPhoto(const ImportedPhotoAsset &photo)
{
    const auto removed = m_importedPhotos.removeIf(
        [&](const ImportedPhotoAsset &candidate) { return candidate.id == photo.id; });
    if (removed > 0) {
        Q_EMIT importedPhotosChanged();
    }
    QSet<QUuid> ids = m_selectedImportedPhotoIDs;
    ids.remove(photo.id);
    setSelectedImportedPhotoIDs(ids);
}

QList<ImportedPhotoAsset> AppModel::targetImportedPhotos(const QString &text) const
{
    return meansAllImportedPhotos(lowercased(text)) ? m_importedPhotos : selectedImportedPhotos();
}

QCoro::Task<> AppModel::runImportedPhotoBatchIntent(ImportedPhotoBatchIntent intent)
{
    const RespondingScope responding(*this);
    const QPointer<AppModel> self(this);
    const QStringList paths = standardizedPaths(targetImportedPhotos(prompt(intent)));
    if (paths.isEmpty()) {
        answer(selectImportedPhotosFirst());
        co_return;
    }
    const QString result = co_await performBatch(intent, paths);
    if (!self) {
        co_return;
    }
    answer(result);
    appendAndSelectArtifact(
        readyCard(u"Imported Photo Action"_s,
                  u"%1\n\nPhotos targeted: %2"_s.arg(result, QString::number(paths.size()))));
}

QCoro::Task<QString> AppModel::performBatch(const ImportedPhotoBatchIntent &intent, const QStringList &paths)
{
    struct Operation
    {
        LightroomService &lightroom;
        const QStringList &paths;

        QCoro::Task<QString> operator()(const ImportedPhotoBatch::ApplyPreset &row) const
        {
            return lightroom.applyPreset(row.name, paths);
        }

        QCoro::Task<QString> operator()(const ImportedPhotoBatch::Cull &row) const
        {
            return lightroom.cullPhoto(row.type, paths);
        }

        QCoro::Task<QString> operator()(const ImportedPhotoBatch::Rate &row) const
        {
            return lightroom.setRating(row.rating, paths);
        }

        QCoro::Task<QString> operator()(const ImportedPhotoBatch::AdjustSlider &row) const
        {
            return lightroom.adjustSlider(row.slider, paths);
        }

        QCoro::Task<QString> operator()(const ImportedPhotoBatch::AdjustSliders &row) const
        {
            return lightroom.adjustSliders(row.adjustments, paths);
        }
    };

    return std::visit(Operation{m_services.lightroomService, paths}, intent);
}

std::optional<QStringList>
AppModel::importedPhotoTargetPaths(const RealtimeImportedPhotoTargetRequest &request) const
{
    if (!isImportedPhotoTargetableAction(request.action)) {
        return std::nullopt;
    }
    QStringList texts;
    for (const auto &text :
         {request.text, request.targetName, request.prompt, request.presetName, request.transcript}) {
        if (text) {
            texts.append(*text);
        }
    }
    const QString joined = lowercased(texts.join(u' '));
    if (!referencesImportedPhotoSelection(joined)) {
        return std::nullopt;
    }
    return standardizedPaths(targetImportedPhotos(joined));
}

} // namespace KelvaLR
