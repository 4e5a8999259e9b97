#include "Catalog/Catalog.h"

#include "Models/ImportedPhotoAsset.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

QString placeOf(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(path) : canonical;
}

QString noSuchPhoto()
{
    return u"There is no such photo in the catalog."_s;
}

} // namespace

std::expected<Catalog, QString> Catalog::open(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.exists()) {
        return std::unexpected(u"There is no photo folder \"%1\"."_s.arg(folder));
    }
    if (!info.isDir() || !info.isReadable() || !info.isExecutable()) {
        return std::unexpected(u"\"%1\" cannot be read as a photo folder."_s.arg(folder));
    }
    Catalog catalog;
    const QDir directory(info.absoluteFilePath());
    for (const QString &name : directory.entryList(QDir::Files, QDir::Name)) {
        if (KelvaLR::ImportedPhotoAsset::isSupportedFileName(name)) {
            catalog.append(directory.filePath(name));
            catalog.m_selected.push_back(catalog.m_photos.back().id);
        }
    }
    if (!catalog.m_selected.empty()) {
        catalog.m_active = catalog.m_selected.front();
    }
    return catalog;
}

void Catalog::append(const QString &path)
{
    const int id = static_cast<int>(m_photos.size()) + 1;
    m_photos.push_back({id, path, m_sidecarNames.pathFor(path)});
    m_idsByPath.insert(placeOf(path), id);
}

void Catalog::select(int active, const std::vector<int> &selected)
{
    std::vector<int> known;
    std::ranges::copy_if(selected, std::back_inserter(known),
                         [this](int id) { return photo(id) != nullptr; });
    const auto knownActive = photo(active) ? std::optional(active) : std::nullopt;
    if (known != m_selected || knownActive != m_active) {
        m_selected = std::move(known);
        m_active = knownActive;
        Q_EMIT m_announcer->selectionChanged();
    }
}

const Photo *Catalog::photo(int id) const
{
    return id >= 1 && static_cast<std::size_t>(id) <= m_photos.size() ? &m_photos[id - 1] : nullptr;
}

const Photo *Catalog::find(const QString &path) const
{
    return photo(m_idsByPath.value(placeOf(path)));
}

std::expected<PhotoState, QString> Catalog::state(int id) const
{
    const Photo *wanted = photo(id);
    if (!wanted) {
        return std::unexpected(noSuchPhoto());
    }
    auto state = readSidecar(wanted->sidecarPath);
    return state ? m_changes.value(id).appliedTo(*std::move(state)) : state;
}

void Catalog::beginChanges()
{
    m_changes.clear();
    m_photosBefore = m_photos.size();
}

std::expected<void, QString> Catalog::commitChanges()
{
    const QHash<int, PhotoChanges> changes = std::exchange(m_changes, {});
    const auto before = std::exchange(m_photosBefore, std::nullopt);
    std::vector<int> changed;
    std::expected<void, QString> result;
    for (auto change = changes.cbegin(); result && change != changes.cend(); ++change) {
        result = changeSidecar(photo(change.key())->sidecarPath, change.value());
        changed.push_back(change.key());
    }
    if (before && *before < m_photos.size()) {
        Q_EMIT m_announcer->photosAdded();
    }
    if (!changed.empty()) {
        Q_EMIT m_announcer->photosChanged(changed);
    }
    return result;
}

std::expected<void, QString> Catalog::changeNow(int id, const PhotoChanges &changes)
{
    const Photo *wanted = photo(id);
    if (!wanted) {
        return std::unexpected(noSuchPhoto());
    }
    auto result = changeSidecar(wanted->sidecarPath, changes);
    Q_EMIT m_announcer->photosChanged({id});
    return result;
}

void Catalog::announceSidecars() const
{
    std::vector<int> ids;
    std::ranges::transform(m_photos, std::back_inserter(ids), &Photo::id);
    Q_EMIT m_announcer->photosChanged(ids);
}

void Catalog::discardChanges()
{
    m_changes.clear();
    const auto before = std::exchange(m_photosBefore, std::nullopt);
    while (m_photos.size() > before.value_or(m_photos.size())) {
        m_idsByPath.remove(placeOf(m_photos.back().path));
        m_photos.pop_back();
    }
}

void Catalog::change(int id, const PhotoChanges &changes)
{
    if (!photo(id)) {
        return;
    }
    PhotoChanges &pending = m_changes[id];
    pending.rating = changes.rating ? changes.rating : pending.rating;
    pending.pickStatus = changes.pickStatus ? changes.pickStatus : pending.pickStatus;
    pending.keywords = changes.keywords ? changes.keywords : pending.keywords;
    pending.develop.insert(changes.develop);
}

std::expected<int, QString> Catalog::addPhoto(const QString &path)
{
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable()) {
        return std::unexpected(u"%1 is not a file that can be read."_s.arg(path));
    }
    if (!KelvaLR::ImportedPhotoAsset::isSupportedFileName(file.fileName())) {
        return std::unexpected(u"%1 is not a supported photo."_s.arg(path));
    }
    if (find(path)) {
        return std::unexpected(u"%1 is already in the catalog."_s.arg(path));
    }
    append(file.absoluteFilePath());
    return m_photos.back().id;
}

} // namespace StandIn
