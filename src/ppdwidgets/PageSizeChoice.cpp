#include "PageSizeChoice.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{
constexpr std::string_view blanks = " \t\n\v\f\r";

bool skip(std::string_view &text, std::string_view literal)
{
    if (!text.starts_with(literal))
        return false;
    text.remove_prefix(literal.size());
    return true;
}

void skipBlanks(std::string_view &text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

/** Takes a number off the front of `text`. */
bool take(std::string_view &text, float &number)
{
    skipBlanks(text);
    if (skip(text, "+") && text.starts_with('-'))
        return false;
    const auto [end, error] = std::from_chars(text.begin(), text.end(), number);
    text.remove_prefix(static_cast<size_t>(end - text.begin()));
    return error == std::errc() && std::isfinite(number);
}

/** Takes a word off the front of `text`. */
bool take(std::string_view &text, QByteArray &word)
{
    skipBlanks(text);
    const std::string_view found = text.substr(0, text.find_first_of(blanks));
    word = QByteArray(found.data(), static_cast<qsizetype>(found.size()));
    return !word.isEmpty();
}
} // namespace

std::optional<PageSizeChoice> PageSizeChoice::parse(std::string_view text)
{
    PageSizeChoice choice;
    const bool complete = skip(text, "Custom.") && take(text, choice.width) && skip(text, "x") &&
                          take(text, choice.height) && take(text, choice.unit);
    return complete ? std::optional(choice) : std::nullopt;
}
