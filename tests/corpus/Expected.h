#pragma once

#include "CupsHandles.h"

#include <QPixmap>
#include <QString>

/**
 * What the tree and the pane are to show of a PPD, written down a second time: nothing here calls
 * what is checked.
 */
namespace Expected
{
enum Page { EmptyPage, BooleanPage, ListPage, NumericPage, CustomPage };

/** Whether the tree has a row for the option. */
bool hasRow(const ppd_option_t &option);
/** Whether the options of the group are not to be edited. */
bool isFixed(const ppd_group_t &group);
/** The choice that a new row shows: the last marked one, else the last default one, else null. */
const ppd_choice_t *shownChoice(const ppd_option_t &option);
/** The place of the choice that the list of an option with custom values shows; -1 if empty. */
int customListRow(const ppd_option_t &option);
/** Whether `choice` stands for a custom value. */
bool isCustom(const ppd_choice_t &choice);
Page page(ppd_file_t *ppd, const ppd_option_t &option);

/** The text of an option's row that shows `choice`, which may be null. */
QString rowText(const ppd_option_t &option, const ppd_choice_t *choice);

/** The resource path of an option row's picture; empty if it has none. */
QString rowPicture(const ppd_option_t &option, const ppd_choice_t *choice);
QString groupPicture(const ppd_group_t &group);
QString rootPicture();
/** Whether `pixmap` is the picture of the resource `path`, or nothing if `path` is empty. */
bool isPicture(const QPixmap &pixmap, const QString &path);

/** What the user is told about conflicts. `ppdConflicts` must have been called. */
QString conflictText(const ppd_file_t &ppd);
} // namespace Expected
