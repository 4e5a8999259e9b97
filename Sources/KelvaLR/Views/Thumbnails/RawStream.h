#pragma once

#include <libraw/libraw.h>

class QIODevice;

namespace KelvaLR {

/// Lets LibRaw read from a device. A read or seek past the end stops there.
class RawStream final : public LibRaw_abstract_datastream
{
public:
    /// The device is open, random-access, and outlives this.
    explicit RawStream(QIODevice &device);

    int valid() override;
    int read(void *data, size_t size, size_t count) override;
    int seek(INT64 offset, int origin) override;
    INT64 tell() override;
    INT64 size() override;
    int get_char() override;
    char *gets(char *text, int size) override;
    int scanf_one(const char *format, void *value) override;
    int eof() override;
    void *make_jas_stream() override;

private:
    QIODevice &m_device;
};

} // namespace KelvaLR
