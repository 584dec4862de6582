#pragma once

#include <QString>

/** Checks a list of pages as the user types it: "1,2-5,10-12,17", without blanks. */
namespace PageList
{
struct Check {
    bool valid = true;
    /** The first item that is no page number and no rising range; empty when valid. */
    QString item;
    /** Where that item starts, as an index into the text; -1 when valid. */
    qsizetype position = -1;
};

Check check(const QString &text);
} // namespace PageList
