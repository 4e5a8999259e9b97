#include "Views/Thumbnails/PhotoDevice.h"

namespace KelvaLR {

PhotoDevice::PhotoDevice(QIODevice &source, QDeadlineTimer deadline)
    : m_source(source)
    , m_deadline(deadline)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered); // the source has a buffer of its own
}

PhotoDevice::~PhotoDevice() = default;

qint64 PhotoDevice::size() const
{
    return m_source.size();
}

bool PhotoDevice::seek(qint64 position)
{
    return m_source.seek(position) && QIODevice::seek(position);
}

qint64 PhotoDevice::readData(char *data, qint64 maximumSize)
{
    const qint64 count = m_deadline.hasExpired() ? -1 : m_source.read(data, maximumSize);
    m_ranDry = m_ranDry || (count <= 0 && maximumSize > 0);
    return count;
}

qint64 PhotoDevice::writeData(const char * /*data*/, qint64 /*size*/)
{
    return -1;
}

} // namespace KelvaLR
