#pragma once

#include <QString>

namespace KelvaLR {

/// The words of a text as they are compared: lower-case, letters, numbers and white space only, no two blanks
/// in a row and none at an end. White space of other kinds stays inside the words. The form is Unicode's NFC.
[[nodiscard]] QString normalizedWords(const QString &text);

} // namespace KelvaLR
