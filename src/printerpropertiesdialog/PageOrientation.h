#pragma once

/** How a page lies before its reader; upright unless said otherwise. */
struct PageOrientation {
    bool landscape = false;
    /** Turned by half a turn. */
    bool reversed = false;

    friend bool operator==(const PageOrientation &, const PageOrientation &) = default;
};
