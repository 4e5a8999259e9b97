#pragma once

#include <QList>
#include <QString>

#include <cstdint>
#include <cstdlib>

namespace KelvaLR::Fuzzing {

/// The two texts that a run of bytes can stand for: UTF-8, and UTF-16 with whatever lone surrogates it holds.
[[nodiscard]] inline QList<QString> textsOf(const std::uint8_t *data, std::size_t size)
{
    QString utf16(static_cast<qsizetype>(size / 2), Qt::Uninitialized);
    for (qsizetype i = 0; i < utf16.size(); ++i) {
        utf16[i] = QChar(static_cast<char16_t>(data[2 * i] | data[2 * i + 1] << 8));
    }
    return {QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), utf16};
}

/// Ends the program, so that the fuzzer keeps the input that broke the rule.
inline void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

} // namespace KelvaLR::Fuzzing
