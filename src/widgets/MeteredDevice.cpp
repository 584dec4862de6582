#include "MeteredDevice.h"

#include <algorithm>
#include <cstring>
#include <ctime>

namespace
{
/** Not the time of day: a busy machine must not make a good picture fail. */
std::chrono::nanoseconds processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}
} // namespace

MeteredDevice::MeteredDevice(const QByteArray &content, std::chrono::nanoseconds patience)
    : m_content(content)
    , m_end(processorTime() + patience)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 MeteredDevice::readData(char *data, qint64 maxSize)
{
    const qint64 left = processorTime() > m_end ? 0 : m_content.size() - pos();
    if (left <= 0) {
        m_hasRunDry = maxSize > 0;
        return -1;
    }
    const qint64 length = std::min(left, maxSize);
    std::memcpy(data, m_content.constData() + pos(), static_cast<size_t>(length));
    return length;
}
