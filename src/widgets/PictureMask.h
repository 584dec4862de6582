#pragma once

#include <QImage>

namespace PictureMask
{
/**
 * The mask that leaves out the background of a picture without transparency: what is joined to its
 * edge and has the colour of its corners. The same as the toolkit's heuristic mask with tight
 * clipping, but in time proportional to the size: that one takes hours for a spiral of 1000 by
 * 1000.
 */
QImage heuristic(const QImage &picture);
} // namespace PictureMask
