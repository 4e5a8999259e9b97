#pragma once

#include <QStringList>

namespace KelvaLR {

/// The sentences of a text, with the blanks behind them; together they are the text. A line ends its last
/// sentence. "e.g. this", "0.5" and "IMG_0001.CR2" do not end one.
[[nodiscard]] QStringList sentences(const QString &text);

} // namespace KelvaLR
