#include "BoundedFile.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int number() const { return m_number; }

private:
    int m_number;
};

/** The size of a regular file, -1 for anything else. */
qsizetype regularSize(int descriptor)
{
    struct stat status;
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

/** Reads until `size` bytes are there; fewer when the file ends before. -1 when reading fails. */
qsizetype readUpTo(int descriptor, char *data, qsizetype size)
{
    qsizetype done = 0;
    while (done < size) {
        const ssize_t count = ::read(descriptor, data + done, static_cast<size_t>(size - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return -1;
        if (count == 0)
            break;
        done += count;
    }
    return done;
}
} // namespace

QByteArray BoundedFile::read(const QString &path, qsizetype limit)
{
    // A null character would cut the name short.
    if (path.contains(QChar::Null))
        return {};
    const Descriptor file(
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    const qsizetype size = regularSize(file.number());
    if (size < 0 || size > limit)
        return {};
    QByteArray content(size, Qt::Uninitialized);
    const qsizetype length = readUpTo(file.number(), content.data(), size);
    if (length < 0)
        return {};
    content.truncate(length);
    return content;
}
