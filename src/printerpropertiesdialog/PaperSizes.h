#pragma once

#include "PageOrientation.h"

#include <QSize>
#include <QStringView>

/** Sizes of papers in points. */
namespace PaperSizes
{
/**
 * The size of the paper that a choice of "PageSize" names, in its own frame (portrait). Upper and
 * lower case are the same. Any other name, and no name, is as large as Letter.
 */
QSize inPoints(QStringView choiceText);

/** The size of that paper as its reader sees it: a landscape page swaps width and height. */
QSize visible(QSize paper, PageOrientation orientation);
} // namespace PaperSizes
