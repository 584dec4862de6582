#pragma once

#include "PPDTreeView.h"
#include "TestPpd.h"

#include <QStringList>

/** What the tests of the driver option tree share. */
namespace TreeTest
{
/** The option row of that keyword, which must be there. */
inline PPDTree::OptionItem *optionRow(const PPDTreeView &view, const char *keyword)
{
    const auto row =
        dynamic_cast<PPDTree::OptionItem *>(view.m_dict.value(QString::fromLatin1(keyword)));
    if (!row)
        qFatal("no row %s", keyword);
    return row;
}

/** The group's row `index` rows below the root, which must be there. */
inline PPDTree::GroupItem *groupRow(const QTreeWidgetItem *above, int index)
{
    const auto row = dynamic_cast<PPDTree::GroupItem *>(above->child(index));
    if (!row)
        qFatal("row %d is not of a group", index);
    return row;
}

/** The texts of the rows right below `row`, in the order of the view. */
inline QStringList textsBelow(const QTreeWidgetItem *row)
{
    QStringList texts;
    for (int i = 0; i < row->childCount(); ++i)
        texts.append(row->child(i)->text(0));
    return texts;
}

/** A driver with two choices that do not go together, and more that does not matter. */
inline QByteArray officeDriver()
{
    using namespace TestPpd;
    return constraint("Duplex On", "Media Film") +
           group("Main/Main", pickOne("PageSize/Media Size", "A4", {"A4/A4", "Letter/US Letter"}) +
                                  pickOne("PageRegion/Region", "A4", {"A4/A4", "Letter/Letter"}) +
                                  boolean("Collate/Collate", "True") +
                                  pickOne("Duplex/Two Sides", "Off", {"Off/No", "On/Yes"}) +
                                  pickOne("Media/Kind", "Plain", {"Plain/Plain", "Film/Film"})) +
           group("Extra/Extra", option("PickMany", "Marks/Marks", "", {"A/Crop", "B/Fold"})) +
           group("Opt/Installable Options",
                 boolean("OptDuplex/Duplexer", "False") +
                     pickOne("Trays/Trays", "One", {"One/One", "Two/Two"}));
}

inline Cups::PpdPtr openMarked(const QByteArray &body)
{
    Cups::PpdPtr ppd = TestPpd::open(body);
    if (!ppd)
        qFatal("the test's PPD cannot be read");
    ppdMarkDefaults(ppd.get());
    return ppd;
}
} // namespace TreeTest
