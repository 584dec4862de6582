#include "PPDConflicts.h"

#include "TestPpd.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace TestPpd;

class TestPPDConflicts : public QObject
{
    Q_OBJECT
private slots:
    void noPpd();
    void noConflict();
    void messageOfOneConflict();
    void optionsOutsideTheConflictAreLeftOut();
    void subgroupsComeFirst();
    void severalMarkedChoices();
    void conflictWithoutMarkedChoice();
    void encodings();
    void percentSigns();
    void markedOptions();
    void markedOptionsOfNoPpd();
};

namespace
{
const QString header = u"You selected options that are in conflict. Try to resolve the\n"
                       "problem before continuing:\n"_s;

QByteArray paper()
{
    return pickOne("PageSize/Media Size", "A4", {"A4/A4", "Letter/US Letter"});
}

Cups::PpdPtr conflicting()
{
    Cups::PpdPtr ppd = open(
        constraint("Duplex On", "Media Film") +
        group("Main/Main", paper() + pickOne("Duplex/Two Sides", "On", {"Off/No", "On/Yes"}) +
                               pickOne("Media/Kind", "Film", {"Plain/Plain", "Film/Clear Film"})));
    ppdMarkDefaults(ppd.get());
    return ppd;
}
} // namespace

void TestPPDConflicts::noPpd()
{
    QCOMPARE(conflictMessage(nullptr), QString());
}

void TestPPDConflicts::noConflict()
{
    const Cups::PpdPtr ppd = conflicting();
    ppdMarkOption(ppd.get(), "Duplex", "Off");
    QCOMPARE(ppdConflicts(ppd.get()), 0);
    QCOMPARE(conflictMessage(ppd.get()), QString());
}

void TestPPDConflicts::messageOfOneConflict()
{
    const Cups::PpdPtr ppd = conflicting();
    QVERIFY(ppdConflicts(ppd.get()) > 0);
    QCOMPARE(conflictMessage(ppd.get()),
             u"You selected options that are in conflict. Try to resolve the\n"
             "problem before continuing:\n"
             "\n  Two Sides = Yes"
             "\n  Kind = Clear Film"_s);
}

void TestPPDConflicts::optionsOutsideTheConflictAreLeftOut()
{
    const Cups::PpdPtr ppd = conflicting();
    ppdConflicts(ppd.get());
    QVERIFY(!conflictMessage(ppd.get()).contains(u"Media Size"_s));
}

void TestPPDConflicts::subgroupsComeFirst()
{
    const Cups::PpdPtr ppd = conflicting();
    Subgroup outer(ppd->groups[0], "Outer", 1);
    ppdFindOption(ppd.get(), "PageSize")->conflicted = 1;
    ppdFindOption(ppd.get(), "Duplex")->conflicted = 1;
    ppdFindOption(ppd.get(), "Media")->conflicted = 1;
    QCOMPARE(conflictMessage(ppd.get()),
             header + u"\n  Kind = Clear Film\n  Media Size = A4\n  Two Sides = Yes"_s);
}

void TestPPDConflicts::severalMarkedChoices()
{
    const Cups::PpdPtr ppd = open(
        group("Main/Main", option("PickMany", "Sizes/Sizes", "", {"A4/A4", "A5/A5", "L/Letter"})));
    ppdMarkOption(ppd.get(), "Sizes", "A4");
    ppdMarkOption(ppd.get(), "Sizes", "L");
    ppdFindOption(ppd.get(), "Sizes")->conflicted = 1;
    QCOMPARE(conflictMessage(ppd.get()), header + u"\n  Sizes = A4,Letter"_s);
}

void TestPPDConflicts::conflictWithoutMarkedChoice()
{
    const Cups::PpdPtr ppd = open(group("Main/Main", paper()));
    ppdFindOption(ppd.get(), "PageSize")->conflicted = 1;
    QCOMPARE(conflictMessage(ppd.get()), QString());
}

/** The library holds UTF-8; the option's text is read as Latin-1 here, the choice's is not. */
void TestPPDConflicts::encodings()
{
    const Cups::PpdPtr ppd = open(group("Main/Main", pickOne("Size/Größe", "big", {"big/Größer"})));
    ppdMarkDefaults(ppd.get());
    ppdFindOption(ppd.get(), "Size")->conflicted = 1;
    const QString asLatin1 = QString::fromLatin1("Größe");
    QVERIFY(asLatin1 != u"Größe"_s);
    QCOMPARE(conflictMessage(ppd.get()), header + u"\n  "_s + asLatin1 + u" = Größer"_s);
}

void TestPPDConflicts::percentSigns()
{
    const Cups::PpdPtr ppd = open(group("Main/Main", pickOne("Zoom/%2 %1", "all", {"all/%1%"})));
    ppdMarkDefaults(ppd.get());
    ppdFindOption(ppd.get(), "Zoom")->conflicted = 1;
    QCOMPARE(conflictMessage(ppd.get()), header + u"\n  %2 %1 = %1%"_s);
}

void TestPPDConflicts::markedOptions()
{
    const Cups::PpdPtr ppd = conflicting();
    QCOMPARE(markedOptionList(ppd.get()),
             QStringList({u"PageSize=A4"_s, u"Duplex=On"_s, u"Media=Film"_s}));
    Subgroup outer(ppd->groups[0], "Outer", 1);
    QCOMPARE(markedOptionList(ppd.get()),
             QStringList({u"Media=Film"_s, u"PageSize=A4"_s, u"Duplex=On"_s}));
}

void TestPPDConflicts::markedOptionsOfNoPpd()
{
    QCOMPARE(markedOptionList(nullptr), QStringList());
}

QTEST_GUILESS_MAIN(TestPPDConflicts)
#include "tst_ppdconflicts.moc"
