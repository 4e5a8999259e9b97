#pragma once

#include "Models/AudioFormat.h"

#include <QByteArray>

#include <optional>

namespace KelvaLR {

/// The voice slt of flite, a library with one state for the whole process. Any thread; callers take turns.
namespace FliteVoice {

inline constexpr AudioFormat format{16'000, 1, AudioFormat::SampleType::int16};

/// The samples of one piece of text; nothing when there is no voice.
/// @param text short, printable ASCII
[[nodiscard]] std::optional<QByteArray> render(const QByteArray &text);

} // namespace FliteVoice

} // namespace KelvaLR
