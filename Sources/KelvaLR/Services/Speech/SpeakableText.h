#pragma once

#include <QString>

namespace KelvaLR {

/// What is said of a Markdown text that is read aloud: its words, without markers, code blocks and link
/// targets; every heading, list item and table row a sentence of its own. A long text ends after the sentence
/// with which it gets long.
[[nodiscard]] QString speakableText(const QString &markdown);

} // namespace KelvaLR
