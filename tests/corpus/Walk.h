#pragma once

#include "CupsHandles.h"

#include <QByteArray>
#include <QStringList>

#include <span>
#include <vector>

/** Plain walks of a PPD, against which the tree and the editors are compared. */
namespace Walk
{
inline std::span<ppd_group_t> groups(const ppd_file_t &ppd)
{
    return {ppd.groups, static_cast<size_t>(ppd.num_groups)};
}

inline std::span<ppd_group_t> subgroups(const ppd_group_t &group)
{
    return {group.subgroups, static_cast<size_t>(group.num_subgroups)};
}

inline std::span<ppd_option_t> options(const ppd_group_t &group)
{
    return {group.options, static_cast<size_t>(group.num_options)};
}

inline std::span<ppd_choice_t> choices(const ppd_option_t &option)
{
    return {option.choices, static_cast<size_t>(option.num_choices)};
}

/** Every option of the PPD: of each group its own options, then those of its subgroups. */
std::vector<ppd_option_t *> allOptions(const ppd_file_t &ppd);

/** The marks of every choice in the order of `allOptions`, one byte a choice, '0' or '1'. */
QByteArray marks(const std::vector<ppd_option_t *> &options);

/** `KEYWORD=CHOICE` of every marked choice: for messages. */
QStringList markedChoices(const std::vector<ppd_option_t *> &options);

/**
 * Whether an option of the group or of its subgroups that has a row is in conflict.
 * `ppdConflicts` must have been called.
 */
bool hasConflict(const ppd_group_t &group);

/** The texts that differ when read as Latin-1 from what they are as UTF-8. */
QStringList differingTexts(const ppd_file_t &ppd);
} // namespace Walk
