#pragma once

#include "PageOrientation.h"

#include <array>
#include <cstddef>

/** The margins of a page as its reader sees it, in points. */
struct PageMargins {
    int left;
    int right;
    int top;
    int bottom;

    friend bool operator==(const PageMargins &, const PageMargins &) = default;
};

/**
 * The margins of a sheet in points, held in the paper's own frame: as left, right, top and bottom
 * of the upright page (slots 0 to 3). They stay where they are on the paper when the page is
 * turned.
 */
class MarginSlots
{
public:
    /** What a device leaves free by default; also the value of a margin that no option names. */
    static constexpr int deviceDefault = 12;
    /** The least margin that can be chosen. It is larger than the default. */
    static constexpr int minimum = 13;

    /** Four margins of the device's default. */
    MarginSlots();

    /** The margins as they show on a page that lies so. */
    PageMargins shown(PageOrientation orientation) const;
    /** Takes the margins as they show on a page that lies so. */
    void take(const PageMargins &margins, PageOrientation orientation);
    void resetToDefaults();

    int slot(std::size_t index) const { return m_slots.at(index); }

    /**
     * The most that two margins on opposite sides may come to together: nine tenths of the visible
     * length between them, cut off to an integer.
     */
    static int sharedTotal(int visibleLength);

    friend bool operator==(const MarginSlots &, const MarginSlots &) = default;

private:
    std::array<int, 4> m_slots;
};
