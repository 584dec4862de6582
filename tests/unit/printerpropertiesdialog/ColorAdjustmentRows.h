#pragma once

#include "ColorTransform.h"

#include <QTest>

/** Colour adjustments as rows of a test's data. */
namespace ColorAdjustmentRows
{
inline void addColumns()
{
    QTest::addColumn<int>("brightness");
    QTest::addColumn<int>("gamma");
    QTest::addColumn<int>("hue");
    QTest::addColumn<int>("saturation");
}

inline void addRow(int brightness, int gamma, int hue, int saturation)
{
    QTest::addRow("brightness %d, gamma %d, hue %d, saturation %d", brightness, gamma, hue,
                  saturation)
        << brightness << gamma << hue << saturation;
}

/** The adjustment of the current row. */
inline ColorAdjustment fetch()
{
    QFETCH(int, brightness);
    QFETCH(int, gamma);
    QFETCH(int, hue);
    QFETCH(int, saturation);
    return {brightness, gamma, hue, saturation};
}
} // namespace ColorAdjustmentRows
