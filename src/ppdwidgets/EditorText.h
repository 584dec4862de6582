#pragma once

#include <QLocale>
#include <QString>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

/** Texts and numbers on their way between a PPD and the editors of its options. */
namespace EditorText
{
/** The digits after the decimal point of every fractional number that is sent. */
inline constexpr int decimals = 3;

/** `text` for a widget that takes '&' for the mark of a mnemonic. */
inline QString withoutMnemonic(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

/** What withoutMnemonic() was given. */
inline QString literalOf(QString text)
{
    return text.replace(QLatin1String("&&"), QLatin1String("&"));
}

/** Fixed notation with a decimal point: what the PPD and the server read. */
inline QString fixed(double value)
{
    return QString::number(value, 'f', decimals);
}

/**
 * Fixed notation as the user reads it: with the decimal point of `locale`, without grouping. What
 * these digits round to nothing has no sign.
 */
QString shown(QLocale locale, double value, int digits);

/** A number of a PPD that may be none, or endless. */
inline double finite(double value)
{
    constexpr double largest = std::numeric_limits<float>::max();
    return std::isnan(value) ? 0.0 : std::clamp(value, -largest, largest);
}

/** The limits of a PPD, whichever it names first. */
inline std::pair<double, double> finiteRange(double minimum, double maximum)
{
    return std::minmax({finite(minimum), finite(maximum)});
}

/** Cuts the fraction off and keeps to what an int holds. */
inline int truncated(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, lowest, highest));
}

/** Reads a whole number as `locale` or C writes it. */
std::optional<double> toInteger(const QString &text, const QLocale &locale);
/**
 * Reads a number as `locale` or C writes it. A point and the locale's decimal separator both
 * separate the decimals; groups of digits are not accepted.
 */
std::optional<double> toReal(const QString &text, const QLocale &locale);
/** Whether `text` is the beginning of a number that has no digit yet: a sign, a separator. */
bool isUnfinishedNumber(const QString &text, const QLocale &locale);

/** `text` as one value in a list of options in braces (cupsParseOptions reads it back). */
QString escapedForList(const QString &text);
} // namespace EditorText
