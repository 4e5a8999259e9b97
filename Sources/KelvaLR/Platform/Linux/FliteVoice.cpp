#include "Platform/Linux/FliteVoice.h"

#include <flite/flite.h>

#include <memory>
#include <mutex>

extern "C" cst_voice *register_cmu_us_slt(const char *folder); // no header declares it

namespace KelvaLR {

namespace {

struct WaveDeletion
{
    void operator()(cst_wave *wave) const { delete_wave(wave); }
};

} // namespace

std::optional<QByteArray> FliteVoice::render(const QByteArray &text)
{
    static std::mutex turn;
    const std::lock_guard lock(turn);
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

} // namespace KelvaLR
