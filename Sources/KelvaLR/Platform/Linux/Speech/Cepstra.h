#pragma once

#include <QtGlobal>

#include <span>
#include <vector>

struct fe_s;

namespace KelvaLR {

/// An utterance as PocketSphinx compares it with its models: a row of cepstral coefficients for each frame of
/// 10 ms, but for those that the front end takes for silence, less their mean over the whole of it. A part of
/// them is decoded as it would be within the whole.
class Cepstra
{
public:
    /// @param samples signed 16-bit integers, one channel, of the front end's rate
    Cepstra(fe_s &frontEnd, std::span<const qint16> samples);
    Q_DISABLE_COPY_MOVE(Cepstra)

    /// As the decoder takes them: it does not write to them.
    [[nodiscard]] std::span<float *> rows() { return m_rows; }

private:
    std::vector<float> m_values;
    std::vector<float *> m_rows;
};

} // namespace KelvaLR
