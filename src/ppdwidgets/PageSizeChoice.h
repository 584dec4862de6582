#pragma once

#include <QByteArray>

#include <optional>
#include <string_view>

/** A page-size choice of the form Custom.WIDTHxHEIGHTunit. */
struct PageSizeChoice {
    float width = 0;
    float height = 0;
    /** The word behind the numbers, whether it names a unit or not. */
    QByteArray unit;

    /**
     * Reads as sscanf does with "Custom.%fx%f%s" in the C locale: blanks may stand before each
     * field, a number may have a sign and an exponent. Nothing when a field is missing or a number
     * is none or too large.
     */
    static std::optional<PageSizeChoice> parse(std::string_view text);
};
