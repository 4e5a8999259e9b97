#include "Services/Lightroom/Bridge/ReplyFile.h"

#include <QByteArray>
#include <QFile>
#include <QStringDecoder>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace KelvaLR {

namespace {

class FileDescriptor
{
public:
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }

    ~FileDescriptor()
    {
        if (isOpen()) {
            ::close(m_descriptor);
        }
    }

    Q_DISABLE_COPY_MOVE(FileDescriptor)

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }

    [[nodiscard]] int number() const { return m_descriptor; }

private:
    int m_descriptor;
};

bool isAcceptable(const FileDescriptor &file)
{
    struct stat status{};
    return ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           status.st_size > 0 && status.st_size <= maximumReplySize;
}

/// Empty when reading failed, or when the file outgrew the limit meanwhile.
QByteArray readAll(const FileDescriptor &file)
{
    QByteArray bytes(maximumReplySize + 1, Qt::Uninitialized);
    qsizetype length = 0;
    while (length < bytes.size()) {
        const ssize_t count = ::read(file.number(), bytes.data() + length, size_t(bytes.size() - length));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return {};
        }
        if (count == 0) {
            break;
        }
        length += count;
    }
    return length > maximumReplySize ? QByteArray() : bytes.first(length);
}

} // namespace

std::optional<ReplyFileContent> readReplyFile(const QString &path)
{
    const FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen() || !isAcceptable(file)) {
        return std::nullopt;
    }
    const QByteArray bytes = readAll(file);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    if (text.isEmpty() || decoder.hasError()) {
        return std::nullopt;
    }
    return ReplyFileContent{.text = text, .size = bytes.size(), .isComplete = bytes.endsWith('\n')};
}

} // namespace KelvaLR
