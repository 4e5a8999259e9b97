#include "Platform/Linux/Speech/SpelledPronunciation.h"

#include <QByteArrayList>

#include <algorithm>
#include <memory>

extern "C" {
#include <flite/flite.h>
cst_lexicon *cmu_lex_init(); // flite_cmulex, which comes without a header
}

namespace KelvaLR {

namespace {

/// Flite writes stress behind its vowels, and its schwa is the dictionary's AH.
QByteArray dictionaryPhone(QByteArray phone)
{
    phone = phone.toUpper();
    while (!phone.isEmpty() && phone.back() >= '0' && phone.back() <= '9') {
        phone.chop(1);
    }
    return phone == "AX" ? QByteArray("AH") : phone;
}

} // namespace

QByteArray spelledPronunciation(const QString &word)
{
    const bool isReadable = !word.isEmpty() && std::ranges::all_of(word, [](QChar letter) {
        return (letter >= u'a' && letter <= u'z') || letter == u'\'';
    });
    if (!isReadable) {
        return {};
    }
    static const cst_lexicon *lexicon = cmu_lex_init();

    struct Delete
    {
        void operator()(cst_val *list) const { delete_val(list); }
    };

    const std::unique_ptr<cst_val, Delete> phones(
        lex_lookup(lexicon, word.toLatin1().constData(), nullptr, nullptr));
    QByteArrayList spoken;
    for (const cst_val *phone = phones.get(); phone != nullptr; phone = val_cdr(phone)) {
        spoken.append(dictionaryPhone(val_string(val_car(phone))));
    }
    return spoken.join(' ');
}

} // namespace KelvaLR
