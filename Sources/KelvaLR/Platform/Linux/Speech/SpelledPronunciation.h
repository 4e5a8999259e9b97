#pragma once

#include <QByteArray>
#include <QString>

namespace KelvaLR {

/// How an English reader would say a lower-case word that no dictionary has, in the phones of the CMU
/// dictionary; empty when it has no letters that are read. Not thread-safe.
[[nodiscard]] QByteArray spelledPronunciation(const QString &word);

} // namespace KelvaLR
