#include "MarginSlots.h"

namespace
{
/** The slots that show at the left, right, top and bottom of a page. */
struct Sides {
    std::size_t left;
    std::size_t right;
    std::size_t top;
    std::size_t bottom;
};

constexpr Sides portrait{0, 1, 2, 3};
constexpr Sides reversedPortrait{1, 0, 3, 2};
constexpr Sides landscape{3, 2, 0, 1};
constexpr Sides reversedLandscape{2, 3, 1, 0};

constexpr const Sides &sidesOf(PageOrientation orientation)
{
    if (orientation.landscape)
        return orientation.reversed ? reversedLandscape : landscape;
    return orientation.reversed ? reversedPortrait : portrait;
}
} // namespace

MarginSlots::MarginSlots()
{
    resetToDefaults();
}

PageMargins MarginSlots::shown(PageOrientation orientation) const
{
    const Sides &sides = sidesOf(orientation);
    return {m_slots[sides.left], m_slots[sides.right], m_slots[sides.top], m_slots[sides.bottom]};
}

void MarginSlots::take(const PageMargins &margins, PageOrientation orientation)
{
    const Sides &sides = sidesOf(orientation);
    m_slots[sides.left] = margins.left;
    m_slots[sides.right] = margins.right;
    m_slots[sides.top] = margins.top;
    m_slots[sides.bottom] = margins.bottom;
}

void MarginSlots::resetToDefaults()
{
    m_slots.fill(deviceDefault);
}

int MarginSlots::sharedTotal(int visibleLength)
{
    return visibleLength * 9 / 10;
}
