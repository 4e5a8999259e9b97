#include "Views/Thumbnails/RawStream.h"

#include <QIODevice>

#include <cstdio>

namespace KelvaLR {

RawStream::RawStream(QIODevice &device)
    : m_device(device)
{
}

int RawStream::valid()
{
    return m_device.isReadable() ? 1 : 0;
}

int RawStream::read(void *data, size_t size, size_t count)
{
    const auto itemSize = qint64(size);
    const qint64 length = m_device.read(static_cast<char *>(data), itemSize * qint64(count));
    return itemSize == 0 || length < 0 ? 0 : int(length / itemSize);
}

/// Zero is success here.
int RawStream::seek(INT64 offset, int origin)
{
    const qint64 start = origin == SEEK_SET ? 0 : origin == SEEK_CUR ? m_device.pos() : m_device.size();
    return m_device.seek(qBound(qint64{0}, start + offset, m_device.size())) ? 0 : -1;
}

INT64 RawStream::tell()
{
    return m_device.pos();
}

INT64 RawStream::size()
{
    return m_device.size();
}

int RawStream::get_char()
{
    char character = 0;
    return m_device.getChar(&character) ? static_cast<unsigned char>(character) : EOF;
}

char *RawStream::gets(char *text, int size)
{
    return m_device.readLine(text, size) < 0 ? nullptr : text;
}

/// Only formats with a header in plain text ask for this, and none of ours has one.
int RawStream::scanf_one(const char * /*format*/, void * /*value*/)
{
    return EOF;
}

int RawStream::eof()
{
    return m_device.atEnd() ? 1 : 0;
}

/// JPEG 2000 inside a RAW file: none of our formats.
void *RawStream::make_jas_stream()
{
    return nullptr;
}

} // namespace KelvaLR
