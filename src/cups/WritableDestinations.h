#pragma once

#include "CupsHandles.h"

#include <QByteArray>

#include <deque>
#include <vector>

/**
 * Destinations as they are handed to `cupsSetDests` so that the file reads back as they are.
 *
 * The library writes the characters '#' and line feed plain. It takes the first '#' of a line for
 * the begin of a comment unless a backslash precedes it, which it removes: so the first '#' of each
 * destination gets one. There is no way to write a line feed: an option with one is left out, with
 * a warning, or the file would lose more than that option.
 *
 * Refers to the texts of the destinations, which must live longer.
 */
class WritableDestinations
{
public:
    explicit WritableDestinations(const Cups::DestinationArray &destinations);
    WritableDestinations(const WritableDestinations &) = delete;
    WritableDestinations &operator=(const WritableDestinations &) = delete;

    int count() const { return static_cast<int>(m_destinations.size()); }
    cups_dest_t *data() { return m_destinations.data(); }

private:
    void add(const cups_dest_t &destination);
    void escapeFirstSign(std::vector<cups_option_t> &options);

    std::vector<cups_dest_t> m_destinations;
    std::deque<std::vector<cups_option_t>> m_options;
    std::deque<QByteArray> m_texts;
};
