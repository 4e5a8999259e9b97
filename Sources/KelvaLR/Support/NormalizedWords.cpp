#include "Support/NormalizedWords.h"

#include "Support/LowercasedText.h"

#include <QStringList>

namespace KelvaLR {

QString normalizedWords(const QString &text)
{
    QString kept;
    bool isInWord = false;
    for (const uint character : lowercased(text).toUcs4()) {
        // A mark belongs to the letter before it; one behind an emoji goes with the emoji.
        isInWord = QChar::isLetter(character) || QChar::isNumber(character) ||
                   (isInWord && QChar::isMark(character));
        if (isInWord || QChar::isSpace(character)) {
            kept += QChar::fromUcs4(character);
        }
    }
    const QString collapsed = kept.split(u' ', Qt::SkipEmptyParts).join(u' ');
    return collapsed.normalized(QString::NormalizationForm_C); // the same letter may be written in two ways
}

} // namespace KelvaLR
