#pragma once

#include <QByteArray>
#include <QStringList>

namespace KelvaLR::SpeechModels {

/// A back-off model of word triples with interpolated absolute discounting.
/// @param sentences words separated by single spaces
/// @return the model in the ARPA format
[[nodiscard]] QByteArray trigramModel(const QStringList &sentences);

} // namespace KelvaLR::SpeechModels
