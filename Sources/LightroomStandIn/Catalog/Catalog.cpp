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
    m_selected.clear();
    std::ranges::copy_if(selected, std::back_inserter(m_selected),
                         [this](int id) { return photo(id) != nullptr; });
    m_active = photo(active) ? std::optional(active) : std::nullopt;
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
        return std::unexpected(u"There is no such photo in the catalog."_s);
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
    m_photosBefore.reset();
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        if (const auto changed = changeSidecar(photo(change.key())->sidecarPath, change.value()); !changed) {
            return changed;
        }
    }
    return {};
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
