#include "Platform/Linux/Speech/Cepstra.h"

#include <sphinxbase/cmn.h>
#include <sphinxbase/fe.h>

#include <memory>

namespace KelvaLR {

namespace {

struct FreeMean
{
    void operator()(cmn_t *mean) const { cmn_free(mean); }
};

} // namespace

Cepstra::Cepstra(fe_t &frontEnd, std::span<const qint16> samples)
{
    const qint16 *next = samples.data();
    std::size_t left = samples.size();
    int frames = 0;
    fe_start_utt(&frontEnd);
    fe_process_frames(&frontEnd, &next, &left, nullptr, &frames, nullptr); // only says how many

    const auto size = static_cast<std::size_t>(fe_get_output_size(&frontEnd));
    const std::size_t most = static_cast<std::size_t>(frames) + 1; // with what is left over
    m_values.resize(most * size);
    m_rows.reserve(most);
    for (std::size_t frame = 0; frame < most; ++frame) {
        m_rows.push_back(m_values.data() + frame * size);
    }
    int rest = 0;
    fe_process_frames(&frontEnd, &next, &left, m_rows.data(), &frames, nullptr);
    fe_end_utt(&frontEnd, m_rows[static_cast<std::size_t>(frames)], &rest);
    m_rows.resize(static_cast<std::size_t>(frames) + static_cast<std::size_t>(rest));

    const std::unique_ptr<cmn_t, FreeMean> mean(cmn_init(static_cast<int>(size)));
    constexpr int alsoVariance = FALSE;
    cmn(mean.get(), m_rows.data(), alsoVariance, static_cast<int>(m_rows.size()));
}

} // namespace KelvaLR
