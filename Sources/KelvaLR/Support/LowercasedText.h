#pragma once

#include <QString>

namespace KelvaLR {

/// Unicode lower-casing in linear time. (QString::toLower() moves the whole rest of the text for every
/// character that grows, so a long text of them would take minutes.)
[[nodiscard]] QString lowercased(const QString &text);

/// A text beside its lower-cased copy. Phrases are searched in the copy and arguments are cut from the text
/// as the user wrote it; a position is mapped back by character, since lower-casing can make a text longer.
class LowercasedText
{
public:
    explicit LowercasedText(const QString &text);

    [[nodiscard]] const QString &text() const { return m_text; }

    [[nodiscard]] const QString &lower() const { return m_lower; }

    /// The text as written from the character whose lower-case form holds this position of the copy.
    [[nodiscard]] QString textFrom(qsizetype lowerPosition) const;

    /// The text as written between two positions of the copy; empty when `lowerEnd` is not behind
    /// `lowerStart`.
    [[nodiscard]] QString textBetween(qsizetype lowerStart, qsizetype lowerEnd) const;

private:
    [[nodiscard]] qsizetype position(qsizetype lowerPosition) const;

    QString m_text;
    QString m_lower;
};

} // namespace KelvaLR
