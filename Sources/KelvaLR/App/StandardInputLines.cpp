#include "App/StandardInputLines.h"

#include <QCoroTimer>
#include <QPointer>

#include <array>
#include <cerrno>
#include <chrono>

#include <unistd.h>

namespace KelvaLR {

StandardInputLines::StandardInputLines(int descriptor)
    : m_descriptor(descriptor)
    , m_notifier(descriptor, QSocketNotifier::Read)
{
    m_nextLook.setSingleShot(true);
    connect(&m_notifier, &QSocketNotifier::activated, this, &StandardInputLines::read);
}

QCoro::Task<std::optional<QString>> StandardInputLines::next()
{
    const QPointer<StandardInputLines> self(this);
    while (!m_buffer.contains('\n') && !m_isAtEnd) {
        m_nextLook.start(std::chrono::hours(1)); // a user may take that long; nothing happens then
        co_await m_nextLook;
        if (!self) {
            co_return std::nullopt;
        }
    }
    if (m_buffer.isEmpty()) {
        co_return std::nullopt;
    }
    const auto lineFeed = m_buffer.indexOf('\n');
    const auto end = lineFeed < 0 ? m_buffer.size() : lineFeed;
    const QByteArray line = m_buffer.left(end);
    m_buffer.remove(0, end + 1);
    co_return QString::fromUtf8(line);
}

void StandardInputLines::read()
{
    std::array<char, 4096> chunk{};
    const ssize_t count = ::read(m_descriptor, chunk.data(), chunk.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count > 0) {
        m_buffer.append(chunk.data(), count);
    } else {
        m_isAtEnd = true;
        m_notifier.setEnabled(false);
    }
    m_nextLook.start(0);
}

} // namespace KelvaLR
