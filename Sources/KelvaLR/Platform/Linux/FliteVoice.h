#pragma once

#include "Models/AudioFormat.h"

#include <QByteArray>

#include <optional>

namespace KelvaLR {

/// The voice slt of flite and its reading of English spelling: a library with one state for the whole
/// process. Any thread; callers take turns.
namespace FliteVoice {

inline constexpr AudioFormat format{16'000, 1, AudioFormat::SampleType::int16};

/// The samples of one piece of text; nothing when there is no voice.
/// @param text short, printable ASCII
[[nodiscard]] std::optional<QByteArray> render(const QByteArray &text);

/// How an English reader would say a lower-case word that no dictionary has, in the phones of the CMU
/// dictionary
/// ("P AO R T R AH"); empty when it holds anything but letters from a to z and apostrophes.
[[nodiscard]] QByteArray pronounce(const QByteArray &word);

} // namespace FliteVoice

} // namespace KelvaLR
