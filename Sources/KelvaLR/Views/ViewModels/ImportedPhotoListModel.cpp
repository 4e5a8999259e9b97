#include "Views/ViewModels/ImportedPhotoListModel.h"

#include "Stores/AppModel.h"
#include "Views/Thumbnails/ThumbnailProvider.h"

#include <algorithm>

namespace KelvaLR {

ImportedPhotoListModel::ImportedPhotoListModel(AppModel &model, QObject *parent)
    : QAbstractListModel(parent)
    , m_model(model)
    , m_selection(model.selectedImportedPhotoIDs())
{
    connect(&model, &AppModel::importedPhotosChanged, this, &ImportedPhotoListModel::takePhotos);
    connect(&model, &AppModel::selectedImportedPhotoIDsChanged, this, &ImportedPhotoListModel::takeSelection);
    takePhotos();
}

int ImportedPhotoListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ImportedPhotoListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const ImportedPhotoAsset &photo = m_photos.at(index.row());
    switch (role) {
    case DisplayNameRole:
        return photo.displayName;
    case ThumbnailRole:
        return thumbnailUrl(photo.url.toLocalFile());
    case SelectedRole:
        return m_selection.contains(photo.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> ImportedPhotoListModel::roleNames() const
{
    return {{DisplayNameRole, "displayName"}, {ThumbnailRole, "thumbnail"}, {SelectedRole, "isSelected"}};
}

void ImportedPhotoListModel::select(int row, Qt::KeyboardModifiers modifiers)
{
    if (row < 0 || row >= count()) {
        return;
    }
    const bool isExtending =
        (modifiers & (Qt::ControlModifier | Qt::MetaModifier | Qt::ShiftModifier)) != Qt::NoModifier;
    m_model.selectImportedPhoto(m_photos.at(row),
                                isExtending ? AppModel::Selection::extend : AppModel::Selection::replace);
}

void ImportedPhotoListModel::remove(int row)
{
    if (row >= 0 && row < count()) {
        m_model.removeImportedPhoto(ImportedPhotoAsset(m_photos.at(row)));
    }
}

void ImportedPhotoListModel::takePhotos()
{
    // Photos are appended and taken out, so what has changed is one run between an equal head and tail.
    const QList<ImportedPhotoAsset> &photos = m_model.importedPhotos();
    const auto [oldHead, newHead] = std::ranges::mismatch(std::as_const(m_photos), photos);
    const auto head = oldHead - m_photos.cbegin();
    const auto tailLimit = std::min(m_photos.size(), photos.size()) - head;
    qsizetype tail = 0;
    while (tail < tailLimit && m_photos[m_photos.size() - 1 - tail] == photos[photos.size() - 1 - tail]) {
        ++tail;
    }
    const auto removed = m_photos.size() - head - tail;
    const auto added = photos.size() - head - tail;
    if (removed > 0) {
        beginRemoveRows({}, static_cast<int>(head), static_cast<int>(head + removed - 1));
        m_photos.remove(head, removed);
        endRemoveRows();
    }
    if (added > 0) {
        beginInsertRows({}, static_cast<int>(head), static_cast<int>(head + added - 1));
        m_photos = photos;
        endInsertRows();
    }
    m_rows.clear();
    m_rows.reserve(m_photos.size());
    for (int row = 0; row < count(); ++row) {
        m_rows.insert(m_photos.at(row).id, row);
    }
    if (removed != added) {
        Q_EMIT countChanged();
    }
}

void ImportedPhotoListModel::takeSelection()
{
    const QSet<QUuid> previous = std::exchange(m_selection, m_model.selectedImportedPhotoIDs());
    const auto announceMissing = [this](const QSet<QUuid> &ids, const QSet<QUuid> &others) {
        for (const QUuid &id : ids) {
            const auto row = m_rows.constFind(id);
            if (row != m_rows.cend() && !others.contains(id)) {
                Q_EMIT dataChanged(index(*row), index(*row), {SelectedRole});
            }
        }
    };
    announceMissing(previous, m_selection);
    announceMissing(m_selection, previous);
}

} // namespace KelvaLR
