#include "Platform/Linux/FliteVoice.h"

#include <QByteArrayList>

#include <flite/flite.h>

#include <algorithm>
#include <memory>
#include <mutex>

// No header declares these.
extern "C" cst_voice *register_cmu_us_slt(const char *folder);
extern "C" cst_lexicon *cmu_lex_init();

namespace KelvaLR {

namespace {

struct WaveDeletion
{
    void operator()(cst_wave *wave) const { delete_wave(wave); }
};

struct ListDeletion
{
    void operator()(cst_val *list) const { delete_val(list); }
};

std::mutex &turn()
{
    static std::mutex mutex;
    return mutex;
}

bool isReadable(const QByteArray &word)
{
    return !word.isEmpty() && std::ranges::all_of(word, [](char letter) {
        return (letter >= 'a' && letter <= 'z') || letter == '\'';
    });
}

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

std::optional<QByteArray> FliteVoice::render(const QByteArray &text)
{
    const std::lock_guard lock(turn());
    static cst_voice *const voice = (flite_init(), register_cmu_us_slt(nullptr));
    if (!voice) {
        return std::nullopt;
    }
    const std::unique_ptr<cst_wave, WaveDeletion> wave(flite_text_to_wave(text.constData(), voice));
    if (!wave || wave->sample_rate != format.sampleRate || wave->num_channels != format.channels) {
        return QByteArray();
    }
    return QByteArray(reinterpret_cast<const char *>(wave->samples),
                      wave->num_samples * bytesPerFrame(format));
}

QByteArray FliteVoice::pronounce(const QByteArray &word)
{
    if (!isReadable(word)) {
        return {};
    }
    const std::lock_guard lock(turn());
    static const cst_lexicon *const lexicon = cmu_lex_init();
    const std::unique_ptr<cst_val, ListDeletion> phones(
        lex_lookup(lexicon, word.constData(), nullptr, nullptr));
    QByteArrayList spoken;
    for (const cst_val *phone = phones.get(); phone != nullptr; phone = val_cdr(phone)) {
        spoken.append(dictionaryPhone(val_string(val_car(phone))));
    }
    return spoken.join(' ');
}

} // namespace KelvaLR
