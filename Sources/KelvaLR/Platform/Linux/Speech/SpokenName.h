#pragma once

#include <QStringList>

namespace KelvaLR {

/// The lower-case words in which a name is said: "Portra 400" is portra, four, hundred. What is neither
/// letter nor digit is not said, except "&".
[[nodiscard]] QStringList spokenWords(const QString &name);

} // namespace KelvaLR
