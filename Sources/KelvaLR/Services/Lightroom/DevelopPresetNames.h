#pragma once

#include <QFuture>
#include <QStringList>

namespace KelvaLR {

/// The names of the develop presets on this computer, as Lightroom shows them, so that speech recognition can
/// expect them. Main thread; the reading is not.
class DevelopPresetNames
{
public:
    explicit DevelopPresetNames(QStringList folders = defaultFolders());
    ~DevelopPresetNames();
    Q_DISABLE_COPY_MOVE(DevelopPresetNames)

    /// The folders of the environment variable KELVALR_PRESET_FOLDERS, as PATH has them, and those in which
    /// Lightroom keeps the user's own presets.
    [[nodiscard]] static QStringList defaultFolders();

    /// Reads the names, each once and sorted. Names that nobody would say are left out: long ones, and those
    /// without a letter. The number of names and files is bounded, and so is the depth. A reading under way
    /// is shared.
    [[nodiscard]] QFuture<QStringList> read();

private:
    QStringList m_folders;
    QFuture<QStringList> m_reading;
};

} // namespace KelvaLR
