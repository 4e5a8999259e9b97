#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace KelvaLR {

/// A text as flite is given it, in order: sentence by sentence, a long one in several pieces, each short
/// enough to be rendered in a moment; in the printable ASCII that its voice knows. Letters lose their
/// accents, signs that matter become words, and what the voice cannot say is left out.
[[nodiscard]] QList<QByteArray> flitePieces(const QString &text);

} // namespace KelvaLR
