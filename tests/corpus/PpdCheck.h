#pragma once

#include "Report.h"
#include "TreeCheck.h"

#include <QString>

/**
 * Shows one PPD in a tree and its editors, works every editor, and compares each state with a
 * second copy of the PPD.
 *
 * The second copy is marked with `ppdMarkOption` alone. What is marked in it, and what the tree and
 * the editors are to show, comes from the PPD and from what was done, never from what the widgets
 * say: TreeCheck compares the rows, EditorCheck works the editors, CustomFields knows the fields of
 * custom values, Expected holds the rules.
 */
class PpdCheck
{
public:
    /** Adds to `counts`; prints failures and differing texts on standard output. */
    PpdCheck(const QString &path, Counts &counts);
    void run();

private:
    bool open();
    void reportDifferingTexts();

    Report m_report;
    Twins m_ppds;
};
