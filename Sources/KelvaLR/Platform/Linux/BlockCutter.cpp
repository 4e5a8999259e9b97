#include "Platform/Linux/BlockCutter.h"

#include <algorithm>

namespace KelvaLR {

BlockCutter::BlockCutter(qsizetype blockBytes, std::function<void(QByteArrayView)> onBlock)
    : m_block(static_cast<std::size_t>(blockBytes))
    , m_onBlock(std::move(onBlock))
{
    open(WriteOnly | Unbuffered);
}

qint64 BlockCutter::readData(char *, qint64)
{
    return -1;
}

qint64 BlockCutter::writeData(const char *data, qint64 size)
{
    for (auto rest = static_cast<std::size_t>(size); rest > 0;) {
        const std::size_t count = std::min(rest, m_block.size() - m_filled);
        std::copy_n(data, count, m_block.data() + m_filled);
        data += count;
        rest -= count;
        m_filled += count;
        if (m_filled == m_block.size()) {
            m_onBlock(QByteArrayView(m_block));
            m_filled = 0;
        }
    }
    return size;
}

} // namespace KelvaLR
