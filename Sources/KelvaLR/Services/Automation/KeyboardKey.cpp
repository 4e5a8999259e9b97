#include "Services/Automation/KeyboardKey.h"

#include "Services/Automation/KeyNames.h"
#include "Support/LowercasedText.h"

#include <QStringList>

#include <algorithm>

namespace KelvaLR {

namespace {

using namespace KeyNames;
using namespace Qt::StringLiterals;

std::optional<KeyModifier> modifier(QStringView word)
{
    const auto *row = std::ranges::find_if(modifierTable, [&](const ModifierRow &r) {
        return std::ranges::find(r.words, word) != r.words.end();
    });
    return row == std::end(modifierTable) ? std::nullopt : std::optional(row->modifier);
}

/// Upper-cases the first letter of every word; marks and apostrophes belong to the letter before them.
QString titleCased(const QString &lower)
{
    QString titled;
    bool isInWord = false;
    for (const uint character : lower.toUcs4()) {
        const bool isLetter = QChar::isLetter(character);
        titled += QChar::fromUcs4(isLetter && !isInWord ? QChar::toTitleCase(character) : character);
        isInWord = isLetter ||
                   (isInWord && (QChar::isMark(character) || character == u'\'' || character == u'\u2019'));
    }
    return titled;
}

} // namespace

std::optional<KeyboardKey> KeyboardKey::parse(const QString &description)
{
    // remove() would move the rest of a long text once for every occurrence.
    const QString withoutKeyWord = lowercased(description).replace("key"_L1, QString());
    QStringList nameParts;
    KeyModifiers modifiers;
    for (const QStringView piece : QStringView(withoutKeyWord).trimmed().split(u' ', Qt::SkipEmptyParts)) {
        if (const auto known = modifier(piece)) {
            modifiers |= *known;
        } else {
            nameParts.append(piece.toString());
        }
    }
    if (nameParts.isEmpty()) {
        return std::nullopt;
    }
    const QString keyName = nameParts.join(u' ');
    return KeyboardKey{displayNameFor(keyName, modifiers), keyCodeFor(keyName), modifiers};
}

std::optional<quint16> KeyboardKey::keyCodeFor(QStringView keyName)
{
    const auto *row = std::ranges::find(keyTable, keyName, &KeyRow::name);
    return row == std::end(keyTable) ? std::nullopt : std::optional(row->code);
}

QString KeyboardKey::displayNameFor(const QString &keyName, KeyModifiers modifiers)
{
    QStringList parts;
    for (const ModifierRow &row : modifierTable) {
        if (modifiers.testFlag(row.modifier)) {
            parts.append(row.displayName);
        }
    }
    parts.append(titleCased(lowercased(keyName)));
    return parts.join(u'-');
}

} // namespace KelvaLR
