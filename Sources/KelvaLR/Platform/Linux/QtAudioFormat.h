#pragma once

#include "Models/AudioFormat.h"

#include <QAudioFormat>

namespace KelvaLR {

[[nodiscard]] QAudioFormat toQt(const AudioFormat &format);

/// A type of sample that Qt does not name is read as 16-bit integers, to which the sound system converts.
[[nodiscard]] AudioFormat fromQt(const QAudioFormat &format);

} // namespace KelvaLR
