#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>

#include <algorithm>
#include <cstring>
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
    /** As long as a text may be. What begins in so many last bytes of a mapping is not found. */
    static constexpr size_t Overlap = 64;

private:
    char *m_place;
};

/** Whether the text begins there of which `changedText` is the changed form. */
inline bool isAt(const char *place, const char *changedText, qsizetype length)
{
    for (qsizetype i = 0; i < length; ++i) {
        if (place[i] != static_cast<char>(changedText[i] ^ 1))
            return false;
    }
    return true;
}

/** How often the text begins in the first `size` bytes; more must follow. */
inline int countOf(const QByteArray &changedText, const char *place, size_t size)
{
    const char *const text = changedText.constData();
    const char *const end = place + size;
    int count = 0;
    while (const void *found = std::memchr(place, static_cast<char>(text[0] ^ 1),
                                           static_cast<size_t>(end - place))) {
        place = static_cast<const char *>(found);
        count += isAt(place++, text, changedText.size());
    }
    return count;
}

inline int countIn(Window &window, const QList<QByteArray> &changedTexts, quintptr begin,
                   quintptr end)
{
    int count = 0;
    for (quintptr address = begin; address < end; address += Window::Size) {
        const size_t shown = window.show(address, end - address);
        const size_t size = std::min(Window::Size, shown - std::min(shown, Window::Overlap));
        for (const QByteArray &text : changedTexts)
            count += countOf(text, window.data(), size);
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
