#include "Walk.h"

#include <QString>

#include <algorithm>
#include <cstring>

namespace
{
void appendOptions(const ppd_group_t &group, std::vector<ppd_option_t *> &options)
{
    for (ppd_option_t &option : Walk::options(group))
        options.push_back(&option);
    for (const ppd_group_t &subgroup : Walk::subgroups(group))
        appendOptions(subgroup, options);
}

void appendIfDifferent(const char *text, QStringList &texts)
{
    if (QString::fromLatin1(text) != QString::fromUtf8(text))
        texts.append(QString::fromUtf8(text));
}

void appendDifferingTexts(const ppd_group_t &group, QStringList &texts)
{
    appendIfDifferent(group.text, texts);
    for (const ppd_option_t &option : Walk::options(group)) {
        appendIfDifferent(option.text, texts);
        for (const ppd_choice_t &choice : Walk::choices(option))
            appendIfDifferent(choice.choice, texts);
    }
    for (const ppd_group_t &subgroup : Walk::subgroups(group))
        appendDifferingTexts(subgroup, texts);
}
} // namespace

namespace Walk
{
std::vector<ppd_option_t *> allOptions(const ppd_file_t &ppd)
{
    std::vector<ppd_option_t *> result;
    for (const ppd_group_t &group : groups(ppd))
        appendOptions(group, result);
    return result;
}

QByteArray marks(const std::vector<ppd_option_t *> &options)
{
    QByteArray result;
    for (const ppd_option_t *option : options) {
        for (const ppd_choice_t &choice : choices(*option))
            result.append(choice.marked ? '1' : '0');
    }
    return result;
}

QStringList markedChoices(const std::vector<ppd_option_t *> &options)
{
    QStringList result;
    for (const ppd_option_t *option : options) {
        for (const ppd_choice_t &choice : choices(*option)) {
            if (choice.marked)
                result.append(QString::fromUtf8(option->keyword) + QLatin1Char('=') +
                              QString::fromUtf8(choice.choice));
        }
    }
    return result;
}

bool hasConflict(const ppd_group_t &group)
{
    return std::ranges::any_of(options(group),
                               [](const ppd_option_t &option) {
                                   return option.conflicted &&
                                          std::strcmp(option.keyword, "PageRegion") != 0;
                               }) ||
           std::ranges::any_of(subgroups(group), hasConflict);
}

QStringList differingTexts(const ppd_file_t &ppd)
{
    QStringList result;
    appendIfDifferent(ppd.nickname ? ppd.nickname : "", result);
    for (const ppd_group_t &group : groups(ppd))
        appendDifferingTexts(group, result);
    return result;
}
} // namespace Walk
