#pragma once

#include <QtGlobal>

#include <array>

/** A unit in which lengths are shown that are held in points. */
struct LengthUnit {
    /** The unit's entry in the list of units, not yet translated. */
    const char *name;
    /** This many points make `units` of the unit. */
    int points;
    int units;
    /** Decimals that are shown. */
    int decimals;
};

namespace LengthUnits
{
/** The translation context of the units' names. */
inline constexpr const char translationContext[] = "LengthUnits";

/** In the order of the list of units. */
inline constexpr std::array<LengthUnit, 3> all{{
    //: Unit of the margins: 1/72 inch.
    {QT_TRANSLATE_NOOP("LengthUnits", "points"), 1, 1, 0},
    //: Unit of the margins: tenths of an inch.
    {QT_TRANSLATE_NOOP("LengthUnits", "1/10 inches"), 72, 10, 1},
    //: Unit of the margins: millimeters.
    {QT_TRANSLATE_NOOP("LengthUnits", "mm"), 720, 254, 1},
}};

/** The unit of an entry of that list; points when there is no such entry. */
constexpr const LengthUnit &at(int index)
{
    return index == 1 || index == 2 ? all[static_cast<unsigned>(index)] : all[0];
}
} // namespace LengthUnits
