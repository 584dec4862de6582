#include "WritableDestinations.h"

#include <QtGlobal>

#include <algorithm>
#include <cstring>

namespace
{
bool hasLineFeed(const cups_option_t &option)
{
    return std::strchr(option.name, '\n') || std::strchr(option.value, '\n');
}

std::vector<cups_option_t> writableOptions(const cups_dest_t &destination)
{
    std::vector<cups_option_t> options;
    for (int i = 0; i < destination.num_options; ++i) {
        const cups_option_t &option = destination.options[i];
        if (hasLineFeed(option))
            qWarning("Destinations: <%s> of <%s> has more than one line and is not saved",
                     option.name, destination.name);
        else
            options.push_back(option);
    }
    return options;
}
} // namespace

WritableDestinations::WritableDestinations(const Cups::DestinationArray &destinations)
{
    for (const cups_dest_t &destination : destinations)
        add(destination);
}

void WritableDestinations::add(const cups_dest_t &destination)
{
    std::vector<cups_option_t> &options = m_options.emplace_back(writableOptions(destination));
    escapeFirstSign(options);
    cups_dest_t &copy = m_destinations.emplace_back(destination);
    copy.num_options = static_cast<int>(options.size());
    copy.options = options.data();
}

void WritableDestinations::escapeFirstSign(std::vector<cups_option_t> &options)
{
    const auto first =
        std::find_if(options.begin(), options.end(),
                     [](const cups_option_t &option) { return std::strchr(option.value, '#'); });
    if (first == options.end())
        return;
    const QByteArray value(first->value);
    QByteArray &escaped = m_texts.emplace_back(value);
    escaped.insert(value.indexOf('#'), '\\');
    first->value = escaped.data();
}
