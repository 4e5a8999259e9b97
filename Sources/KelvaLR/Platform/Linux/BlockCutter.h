#pragma once

#include <QByteArrayView>
#include <QIODevice>

#include <functional>
#include <vector>

namespace KelvaLR {

/// Cuts what is written to it into blocks of one size; what does not fill one waits for more.
class BlockCutter final : public QIODevice
{
public:
    BlockCutter(qsizetype blockBytes, std::function<void(QByteArrayView block)> onBlock);

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *target, qint64 capacity) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    std::vector<char> m_block;
    std::size_t m_filled = 0;
    std::function<void(QByteArrayView)> m_onBlock;
};

} // namespace KelvaLR
