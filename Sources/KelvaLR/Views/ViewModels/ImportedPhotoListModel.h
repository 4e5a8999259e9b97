#pragma once

#include "Models/ImportedPhotoAsset.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QSet>
#include <QUuid>
#include <QtQml/qqmlregistration.h>

namespace KelvaLR {

class AppModel;

/// The imported photos as cells of the tray. A change of the selection changes the cells that it touches, and
/// nothing else. Main thread. The model outlives it.
class ImportedPhotoListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the artifact's view model.")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { DisplayNameRole = Qt::UserRole, ThumbnailRole, SelectedRole };

    explicit ImportedPhotoListModel(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] int count() const { return static_cast<int>(m_photos.size()); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// Selects one photo, or with Control, Command or Shift held adds it to the selection or takes it out.
    Q_INVOKABLE void select(int row, Qt::KeyboardModifiers modifiers);
    Q_INVOKABLE void remove(int row);

Q_SIGNALS:
    void countChanged();

private:
    void takePhotos();
    void takeSelection();

    AppModel &m_model;
    QList<ImportedPhotoAsset> m_photos;
    QHash<QUuid, int> m_rows; ///< of every photo
    QSet<QUuid> m_selection;
};

} // namespace KelvaLR
