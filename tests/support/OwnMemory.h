#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>

#include <algorithm>
#include <sys/mman.h>
#include <sys/uio.h>
#include <unistd.h>

/** What is in the memory of this process. */
namespace OwnMemory
{
/** A text with every byte changed, so that it is no place where the text itself is found. */
inline QByteArray changed(QByteArray text)
{
    for (char &byte : text)
        byte = static_cast<char>(byte ^ 1);
    return text;
}

/** Memory that is not part of what is searched. */
class Window
{
public:
    Window()
        : m_place(static_cast<char *>(mmap(nullptr, Size + Overlap, PROT_READ | PROT_WRITE,
                                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)))
    {
    }
    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;
    ~Window() { munmap(m_place, Size + Overlap); }

    /** Shows the process's memory from there on; how many bytes of it. */
    size_t show(quintptr address, size_t size)
    {
        const size_t wanted = std::min(size, Size + Overlap);
        const iovec here = {m_place, wanted};
        const iovec there = {reinterpret_cast<void *>(address), wanted};
        const ssize_t count = process_vm_readv(getpid(), &here, 1, &there, 1, 0);
        return count < 0 ? 0 : static_cast<size_t>(count);
    }
    const char *data() const { return m_place; }
    bool isAt(quintptr address) const { return reinterpret_cast<quintptr>(m_place) == address; }

    static constexpr size_t Size = 1 << 20;
    /** The longest text that is found wherever it is. */
    static constexpr size_t Overlap = 64;

private:
    char *m_place;
};

/** Whether the text begins there of which `changedText` is the changed form. */
inline bool isAt(const char *place, const QByteArray &changedText)
{
    return std::equal(
        changedText.cbegin(), changedText.cend(), place,
        [](char expected, char found) { return static_cast<char>(expected ^ 1) == found; });
}

inline int countIn(Window &window, const QList<QByteArray> &changedTexts, quintptr begin,
                   quintptr end)
{
    int count = 0;
    for (quintptr address = begin; address < end; address += Window::Size) {
        const size_t size = window.show(address, end - address);
        const char *place = window.data();
        const char *const last =
            place + std::min(Window::Size, size - std::min(size, Window::Overlap));
        for (; place < last; ++place) {
            for (const QByteArray &text : changedTexts)
                count += isAt(place, text);
        }
    }
    return count;
}

/**
 * How often the texts are in the memory that the process can write; `changedTexts` are their
 * changed forms, of 64 bytes at most. -1 where that cannot be told.
 */
inline int count(const QList<QByteArray> &changedTexts)
{
    // What a sanitizer reserves for itself is terabytes.
    constexpr quintptr Huge = 1 << 30;
    Window window;
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        return -1;
    int found = 0;
    for (const QByteArray &line : maps.readAll().split('\n')) {
        const QList<QByteArray> range = line.left(line.indexOf(' ')).split('-');
        const quintptr begin = range.value(0).toULongLong(nullptr, 16);
        const quintptr end = range.value(1).toULongLong(nullptr, 16);
        if (line.contains(" rw") && end - begin < Huge && !window.isAt(begin))
            found += countIn(window, changedTexts, begin, end);
    }
    return found;
}
} // namespace OwnMemory
