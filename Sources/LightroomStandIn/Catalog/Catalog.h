#pragma once

#include "Catalog/CatalogChanges.h"
#include "Catalog/Sidecar.h"
#include "Catalog/SidecarNames.h"

#include <QHash>
#include <QString>

#include <expected>
#include <memory>
#include <optional>
#include <vector>

namespace StandIn {

/// A photo of the catalog. Its id is its place in the order of joining, from 1 on.
struct Photo
{
    int id = 0;
    QString path;
    QString sidecarPath;

    bool operator==(const Photo &) const = default;
};

/// Photos in a folder and what their sidecars say about them. The sidecars are read whenever they are asked
/// for, so another program's changes are seen. Changes are collected between beginChanges() and
/// commitChanges(). Errors are finished sentences. Main thread.
class Catalog
{
public:
    /// The catalog of the photos that lie in this folder, by name; all selected, the first one active.
    [[nodiscard]] static std::expected<Catalog, QString> open(const QString &folder);

    /// Whoever shows the catalog listens here.
    [[nodiscard]] const CatalogChanges &changes() const { return *m_announcer; }

    [[nodiscard]] const std::vector<Photo> &photos() const { return m_photos; }

    [[nodiscard]] std::optional<int> activePhoto() const { return m_active; }

    [[nodiscard]] const std::vector<int> &selectedPhotos() const { return m_selected; }

    /// Unknown ids are left out.
    void select(int active, const std::vector<int> &selected);

    /// The photo with this id; null when there is none.
    [[nodiscard]] const Photo *photo(int id) const;

    /// The photo at this path, however it is written; null when it is not in the catalog.
    [[nodiscard]] const Photo *find(const QString &path) const;

    /// The photo's state, with changes that are not committed yet.
    [[nodiscard]] std::expected<PhotoState, QString> state(int id) const;

    void beginChanges();
    [[nodiscard]] std::expected<void, QString> commitChanges();
    void discardChanges(); ///< does nothing when none have begun

    /// Between beginChanges() and its end only.
    void change(int id, const PhotoChanges &changes);
    [[nodiscard]] std::expected<int, QString> addPhoto(const QString &path);

    /// A change of the user's own: made at once, beside the changes that are being collected.
    [[nodiscard]] std::expected<void, QString> changeNow(int id, const PhotoChanges &changes);

    /// Announces all photos: another program may have written their sidecars.
    void announceSidecars() const;

private:
    void append(const QString &path);

    std::unique_ptr<CatalogChanges> m_announcer = std::make_unique<CatalogChanges>();
    std::vector<Photo> m_photos;
    QHash<QString, int> m_idsByPath; ///< by canonical path
    std::vector<int> m_selected;
    std::optional<int> m_active;
    SidecarNames m_sidecarNames;
    QHash<int, PhotoChanges> m_changes;
    std::optional<std::size_t> m_photosBefore; ///< how many there were when the open changes began
};

} // namespace StandIn
