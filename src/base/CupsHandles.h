#pragma once

/**
 * The one place where the CUPS headers are included, with owners for what the library hands out.
 *
 * The library's PPD calls carry a deprecation mark but are present in every 2.x; the marks are
 * emptied here, once, so that the rest of the code stays warning-free.
 */

#include <cups/versioning.h>
#undef _CUPS_DEPRECATED
#undef _CUPS_DEPRECATED_MSG
#undef _CUPS_DEPRECATED_1_2_MSG
#undef _CUPS_DEPRECATED_1_6_MSG
#undef _CUPS_DEPRECATED_1_7_MSG
#undef _CUPS_DEPRECATED_2_2_MSG
#define _CUPS_DEPRECATED _CUPS_PUBLIC
#define _CUPS_DEPRECATED_MSG(m) _CUPS_PUBLIC
#define _CUPS_DEPRECATED_1_2_MSG(m) _CUPS_PUBLIC
#define _CUPS_DEPRECATED_1_6_MSG(m) _CUPS_PUBLIC
#define _CUPS_DEPRECATED_1_7_MSG(m) _CUPS_PUBLIC
#define _CUPS_DEPRECATED_2_2_MSG(m) _CUPS_PUBLIC

#include <cups/cups.h>
#include <cups/ppd.h>

#include <memory>
#include <utility>

namespace Cups
{
struct HttpCloser {
    void operator()(http_t *http) const { httpClose(http); }
};
struct IppDeleter {
    void operator()(ipp_t *ipp) const { ippDelete(ipp); }
};

/** Owns a connection. */
using HttpPtr = std::unique_ptr<http_t, HttpCloser>;
/** Owns a message. `cupsDoRequest` frees the request that it is given: pass `release()`. */
using IppPtr = std::unique_ptr<ipp_t, IppDeleter>;
/** A PPD that its users share; the last one closes it. Make it with `sharePpd`. */
using PpdPtr = std::shared_ptr<ppd_file_t>;

inline PpdPtr sharePpd(ppd_file_t *ppd)
{
    return PpdPtr(ppd, [](ppd_file_t *opened) {
        if (opened)
            ppdClose(opened);
    });
}

/** Owns a counted array of options. The library replaces the array when it grows it. */
class OptionArray
{
public:
    OptionArray() = default;
    OptionArray(OptionArray &&other) noexcept
        : m_count(std::exchange(other.m_count, 0))
        , m_options(std::exchange(other.m_options, nullptr))
    {
    }
    OptionArray &operator=(OptionArray &&other) noexcept
    {
        std::swap(m_count, other.m_count);
        std::swap(m_options, other.m_options);
        return *this;
    }
    OptionArray(const OptionArray &) = delete;
    OptionArray &operator=(const OptionArray &) = delete;
    ~OptionArray() { clear(); }

    int count() const { return m_count; }
    cups_option_t *data() const { return m_options; }
    const cups_option_t *begin() const { return m_options; }
    const cups_option_t *end() const { return m_options + m_count; }
    /** The value of `name`, or null. It lives until the array changes. */
    const char *value(const char *name) const { return cupsGetOption(name, m_count, m_options); }
    /** Adds or replaces one option. Returns the number of options afterwards. */
    int add(const char *name, const char *value)
    {
        return m_count = cupsAddOption(name, value, m_count, &m_options);
    }
    /** Adds what `text` holds, in the syntax of cupsParseOptions. */
    int parse(const char *text) { return m_count = cupsParseOptions(text, m_count, &m_options); }
    void clear() { cupsFreeOptions(std::exchange(m_count, 0), std::exchange(m_options, nullptr)); }

private:
    int m_count = 0;
    cups_option_t *m_options = nullptr;
};

/** Owns a counted array of destinations. */
class DestinationArray
{
public:
    DestinationArray() = default;
    DestinationArray(DestinationArray &&other) noexcept
        : m_count(std::exchange(other.m_count, 0))
        , m_dests(std::exchange(other.m_dests, nullptr))
    {
    }
    DestinationArray &operator=(DestinationArray &&other) noexcept
    {
        std::swap(m_count, other.m_count);
        std::swap(m_dests, other.m_dests);
        return *this;
    }
    DestinationArray(const DestinationArray &) = delete;
    DestinationArray &operator=(const DestinationArray &) = delete;
    ~DestinationArray() { cupsFreeDests(m_count, m_dests); }

    int count() const { return m_count; }
    cups_dest_t *data() const { return m_dests; }
    cups_dest_t *begin() const { return m_dests; }
    cups_dest_t *end() const { return m_dests + m_count; }
    /** For library calls that fill or change the array. */
    int &countRef() { return m_count; }
    cups_dest_t **dataRef() { return &m_dests; }
    /** The destination, or null. It lives until the array changes. */
    cups_dest_t *find(const char *name, const char *instance) const
    {
        return cupsGetDest(name, instance, m_count, m_dests);
    }
    /** Adds the destination unless it is there. */
    void add(const char *name, const char *instance)
    {
        m_count = cupsAddDest(name, instance, m_count, &m_dests);
    }

private:
    int m_count = 0;
    cups_dest_t *m_dests = nullptr;
};
} // namespace Cups
