#include "Platform/Linux/PlaybackQueue.h"

#include <algorithm>

namespace KelvaLR {

PlaybackQueue::PlaybackQueue(char silence)
    : m_silence(silence)
{
    open(ReadOnly | Unbuffered);
}

void PlaybackQueue::append(QByteArray samples)
{
    m_silenceRead = 0;
    m_queue.push_back(std::move(samples));
}

void PlaybackQueue::clear()
{
    m_queue.clear();
    m_taken = 0;
    m_silenceRead = 0;
}

qint64 PlaybackQueue::readData(char *target, qint64 capacity)
{
    qint64 given = 0;
    while (given < capacity && !m_queue.empty()) {
        const QByteArray &first = m_queue.front();
        const qint64 count = std::min<qint64>(capacity - given, first.size() - m_taken);
        std::copy_n(first.constData() + m_taken, count, target + given);
        given += count;
        m_taken += count;
        if (m_taken == first.size()) {
            m_queue.pop_front();
            m_taken = 0;
        }
    }
    std::fill_n(target + given, capacity - given, m_silence);
    m_silenceRead += capacity - given;
    m_totalRead += capacity;
    return capacity;
}

qint64 PlaybackQueue::writeData(const char *, qint64)
{
    return -1;
}

} // namespace KelvaLR
