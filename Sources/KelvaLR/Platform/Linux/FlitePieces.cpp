#include "Platform/Linux/FlitePieces.h"

#include "Support/Sentences.h"

#include <algorithm>
#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// Signs and digits are read out one by one: so many of them take a second to render.
constexpr qsizetype longestPiece = 160;
/// Longer than any word that is spoken as one.
constexpr qsizetype longestWord = 40;

struct Spelling
{
    char16_t character;
    QLatin1StringView ascii;
};

constexpr std::array spellings{
    Spelling{u'’', "'"_L1},
    Spelling{u'‘', "'"_L1},
    Spelling{u'“', "\""_L1},
    Spelling{u'”', "\""_L1},
    Spelling{u'–', "-"_L1},
    Spelling{u'—', ", "_L1},
    Spelling{u'−', "-"_L1},
    Spelling{u'‑', "-"_L1},
    Spelling{u'⁄', "/"_L1},
    Spelling{u'×', " times "_L1},
    Spelling{u'±', " plus or minus "_L1},
    Spelling{u'°', " degrees "_L1},
    Spelling{u'→', " to "_L1},
    Spelling{u'€', " euros "_L1},
    Spelling{u'£', " pounds "_L1},
    Spelling{u'ß', "ss"_L1},
    Spelling{u'æ', "ae"_L1},
    Spelling{u'œ', "oe"_L1},
    Spelling{u'ø', "o"_L1},
    Spelling{u'ł', "l"_L1},
    Spelling{u'đ', "d"_L1},
};

void appendSpelled(QString &ascii, QChar character)
{
    if (character >= u' ' && character <= u'~') {
        ascii += character;
        return;
    }
    if (character.isMark()) {
        return;
    }
    const auto row = std::ranges::find(spellings, character.toLower().unicode(), &Spelling::character);
    if (row != spellings.end()) {
        ascii += row->ascii;
    } else {
        ascii += u' ';
    }
}

/// "2½" is not 21/2, and "10²" not 102.
QString withRaisedApart(const QString &sentence)
{
    QString apart;
    for (const QChar character : sentence) {
        const auto tag = character.decompositionTag();
        if (tag == QChar::Fraction || tag == QChar::Super || tag == QChar::Sub) {
            apart += u' ';
        }
        apart += character;
    }
    return apart;
}

QString asciiSpelling(const QString &sentence)
{
    QString ascii;
    for (const QChar character : withRaisedApart(sentence).normalized(QString::NormalizationForm_KD)) {
        appendSpelled(ascii, character);
    }
    return ascii;
}

/// Where a sentence is cut that is too long to be one piece: behind a comma rather than between two words.
qsizetype pieceLength(QStringView sentence)
{
    if (sentence.size() <= longestPiece) {
        return sentence.size();
    }
    const QStringView beginning = sentence.first(longestPiece);
    const qsizetype comma = beginning.lastIndexOf(u", "_s);
    return comma > longestPiece / 2 ? comma + 1 : beginning.lastIndexOf(u' ');
}

void appendPieces(QList<QByteArray> &pieces, QStringView sentence)
{
    while (!sentence.isEmpty()) {
        const QStringView piece = sentence.first(pieceLength(sentence));
        if (std::ranges::any_of(piece, [](QChar c) { return c.isLetterOrNumber(); })) {
            pieces.append(piece.toLatin1());
        }
        sentence = sentence.sliced(piece.size()).trimmed();
    }
}

/// The words with one blank between them, none longer than the voice takes.
QString evenlySpaced(const QString &sentence)
{
    QString words = sentence.simplified();
    qsizetype wordBegin = 0;
    for (qsizetype place = 0; place < words.size(); ++place) {
        if (words.at(place) == u' ') {
            wordBegin = place + 1;
        } else if (place - wordBegin == longestWord) {
            words.insert(place, u' ');
            wordBegin = place + 1;
        }
    }
    return words;
}

} // namespace

QList<QByteArray> flitePieces(const QString &text)
{
    QList<QByteArray> pieces;
    for (const QString &sentence : sentences(text)) {
        appendPieces(pieces, evenlySpaced(asciiSpelling(sentence)));
    }
    return pieces;
}

} // namespace KelvaLR
