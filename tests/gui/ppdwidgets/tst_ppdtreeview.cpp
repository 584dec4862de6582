#include "MessageBoxes.h"
#include "OptionPictures.h"
#include "TreeTest.h"

#include <QAccessible>
#include <QHeaderView>
#include <QMetaMethod>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace TreeTest;
using namespace PPDTree;
using MessageBoxes::boxShownBy;

/** The view: how the tree is built, checked, walked and read aloud. */
class TestPPDTreeView : public QObject
{
    Q_OBJECT
private slots:
    void methods();
    void empty();
    void nullEmptiesTheView();
    void groupsInReverseOrder();
    void optionsInOrder();
    void subgroupsComeBeforeOptions();
    void subgroupsInOrder();
    void pageRegionIsLeftOut();
    void installGroup();
    void groupPictures();
    void everyRowIsOpen();
    void childrenAreKnown();
    void rebuilding();
    void sortingIsOff();
    void oddities();
    void latin1Texts();
    void duplicateKeywords();
    void marksThatExcludeEachOther_data();
    void marksThatExcludeEachOther();
    void thousandsOfChoices();

    void conflictInASubgroup();
    void conflictIsShownFromTheStart();
    void conflictIsSolved();
    void noBoxWithoutConflict();
    void checkingNothing();
    void markupInTheWarning();
    void viewDiesWithTheWarning();
    void reloading();
    void reloadingWarns();
    void reloadingNothing();
    void customPageSize();

    void selecting();
    void selectionEndsBeforeTheRowsDie_data();
    void selectionEndsBeforeTheRowsDie();
    void arrowKeys();
    void typeAhead();

    void columnIsAsWideAsTheWidestRow();
    void columnFollowsTheTexts();
    void columnFollowsTheFont();
    void columnFillsTheView();
    void rowsAreUniform();

    void accessibleTexts();
    void accessibleTextOfAConflict();
    void accessibilityHearsOfChanges();
};

namespace
{
void conflict(PPDTreeView &view)
{
    optionRow(view, "Duplex")->setChoiceIndex(1);
    optionRow(view, "Media")->setChoiceIndex(1);
}

QString spokenName(const PPDTreeView &view, const QTreeWidgetItem *row)
{
    return view.indexFromItem(row).data(Qt::AccessibleTextRole).toString();
}

auto selectionSignal()
{
    return qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged);
}
} // namespace

void TestPPDTreeView::methods()
{
    const QMetaObject &meta = PPDTreeView::staticMetaObject;
    for (const char *name : {"checkConstraints()", "updateCustomPageSize(QString)"}) {
        const int index = meta.indexOfSlot(name);
        QVERIFY2(index >= meta.methodOffset(), name);
        QCOMPARE(meta.method(index).access(), QMetaMethod::Public);
    }
    QVERIFY(meta.indexOfSignal("selectionChanged(QTreeWidgetItem*)") >= meta.methodOffset());
    QVERIFY(meta.indexOfSlot("selectionChanged(QItemSelection,QItemSelection)") >= 0);
}

void TestPPDTreeView::empty()
{
    PPDTreeView view;
    QCOMPARE(view.topLevelItemCount(), 0);
    QVERIFY(!view.m_ppd);
    QVERIFY(!view.m_root);
    QVERIFY(view.m_dict.isEmpty());
    QVERIFY(!view.m_hasConflicts);
    QCOMPARE(view.m_customPageSize, QString());
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.resize(400, 100);
}

void TestPPDTreeView::nullEmptiesTheView()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(nullptr);
    view.setPPD(ppd.get());
    QCOMPARE(view.topLevelItemCount(), 1);
    view.setPPD(nullptr);
    QCOMPARE(view.topLevelItemCount(), 0);
    view.checkConstraints();
    view.reloadFromPPD(ppd.get());
    view.reloadFromPPD(nullptr);
    QVERIFY(view.m_dict.isEmpty());
}

void TestPPDTreeView::groupsInReverseOrder()
{
    const Cups::PpdPtr ppd = openMarked(TestPpd::group("A/A", TestPpd::boolean("One/One", "True")) +
                                        TestPpd::group("B/B", TestPpd::boolean("Two/Two", "True")));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(textsBelow(view.m_root), QStringList({u"B"_s, u"A"_s}));
}

void TestPPDTreeView::optionsInOrder()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(textsBelow(groupRow(view.m_root, 2)),
             QStringList({u"Media Size: <A4>"_s, u"Collate: <On>"_s, u"Two Sides: <No>"_s,
                          u"Kind: <Plain>"_s}));
}

void TestPPDTreeView::subgroupsComeBeforeOptions()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    TestPpd::Subgroup inner(ppd->groups[0], "Inner", 3);
    TestPpd::Subgroup innermost(inner.group(), "Innermost", 1);
    PPDTreeView view;
    view.setPPD(ppd.get());
    const GroupItem *main = groupRow(view.m_root, 2);
    QCOMPARE(main->m_group, &ppd->groups[0]);
    QCOMPARE(textsBelow(main), QStringList({u"Inner"_s, u"Media Size: <A4>"_s}));
    const GroupItem *second = groupRow(main, 0);
    QCOMPARE(textsBelow(second),
             QStringList({u"Innermost"_s, u"Collate: <On>"_s, u"Two Sides: <No>"_s}));
    QCOMPARE(textsBelow(groupRow(second, 0)), QStringList(u"Kind: <Plain>"_s));
    QVERIFY(view.m_dict.contains(u"Media"_s));
}

void TestPPDTreeView::subgroupsInOrder()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    ppd_group_t subgroups[2] = {};
    qstrncpy(subgroups[0].text, "First", sizeof subgroups[0].text);
    qstrncpy(subgroups[1].text, "Second", sizeof subgroups[1].text);
    ppd_group_t &extra = ppd->groups[1];
    extra.num_subgroups = 2;
    extra.subgroups = subgroups;
    const auto without = qScopeGuard([&] { extra.num_subgroups = 0, extra.subgroups = nullptr; });
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(textsBelow(groupRow(view.m_root, 1)),
             QStringList({u"First"_s, u"Second"_s, u"Marks: <Undefined>"_s}));
}

void TestPPDTreeView::pageRegionIsLeftOut()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    QVERIFY(ppdFindOption(ppd.get(), "PageRegion"));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QVERIFY(view.m_dict.contains(u"PageSize"_s));
    QVERIFY(!view.m_dict.contains(u"PageRegion"_s));
    QVERIFY(view.findItems(u"Region"_s, Qt::MatchContains | Qt::MatchRecursive).isEmpty());
}

void TestPPDTreeView::installGroup()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QVERIFY(!optionRow(view, "OptDuplex")->m_editable);
    QVERIFY(!optionRow(view, "Trays")->m_editable);
    QVERIFY(optionRow(view, "Duplex")->m_editable);
    QVERIFY(optionRow(view, "Marks")->m_editable);
}

void TestPPDTreeView::groupPictures()
{
    const Cups::PpdPtr ppd =
        openMarked(officeDriver() + TestPpd::group("J/JCL", TestPpd::boolean("Jcl/Jcl", "True")));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QStringList files{u"printer_jcl.png"_s, u"printer_install.png"_s, u"printer_extra.png"_s,
                      u"printer_general.png"_s};
    QCOMPARE(view.m_root->childCount(), files.size());
    for (int i = 0; i < files.size(); ++i) {
        const QImage picture = OptionPictures::group(files[i]).toImage();
        QVERIFY(!picture.isNull());
        QCOMPARE(groupRow(view.m_root, i)->pixmap().toImage(), picture);
    }
    QVERIFY(!OptionPictures::root().isNull());
    QCOMPARE(view.m_root->pixmap().toImage(), OptionPictures::root().toImage());
}

void TestPPDTreeView::everyRowIsOpen()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    TestPpd::Subgroup inner(ppd->groups[0], "Inner", 1);
    PPDTreeView view;
    view.setPPD(ppd.get());
    QVERIFY(view.m_root->isExpanded());
    for (int i = 0; i < view.m_root->childCount(); ++i)
        QVERIFY(view.m_root->child(i)->isExpanded());
    QVERIFY(groupRow(groupRow(view.m_root, 2), 0)->isExpanded());
}

void TestPPDTreeView::childrenAreKnown()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QList<BaseItem *> children = view.m_root->m_children;
    std::reverse(children.begin(), children.end());
    QCOMPARE(children.size(), view.m_root->childCount());
    for (int i = 0; i < children.size(); ++i)
        QCOMPARE(children[i], view.m_root->child(i));
}

void TestPPDTreeView::rebuilding()
{
    const Cups::PpdPtr first = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(first.get());
    const Cups::PpdPtr second =
        openMarked(TestPpd::group("A/A", TestPpd::boolean("One/One", "True")));
    view.setPPD(second.get());
    QCOMPARE(view.topLevelItemCount(), 1);
    QCOMPARE(view.m_ppd, second.get());
    QCOMPARE(view.m_dict.keys(), QStringList(u"One"_s));
    QCOMPARE(textsBelow(view.m_root), QStringList(u"A"_s));
}

void TestPPDTreeView::sortingIsOff()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setSortingEnabled(true);
    view.setPPD(ppd.get());
    QVERIFY(!view.isSortingEnabled());
    QCOMPARE(textsBelow(view.m_root),
             QStringList({u"Installable Options"_s, u"Extra"_s, u"Main"_s}));
}

void TestPPDTreeView::oddities()
{
    const Cups::PpdPtr ppd = openMarked(
        TestPpd::group("Empty/Empty", "") +
        TestPpd::group("G/G", TestPpd::pickOne("None/None", "", {}) +
                                  TestPpd::pickOne("Unset/Unset", "", {"a/A"}) +
                                  TestPpd::pickOne("Textless", "a", {"a", "b"}) +
                                  TestPpd::option("Boolean", "Half/Half", "True", {"True/On"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    view.resize(300, 200);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QVERIFY(!view.grab().isNull());
    QCOMPARE(textsBelow(view.m_root), QStringList({u"G"_s, u"Empty"_s}));
    QCOMPARE(view.m_root->child(1)->childCount(), 0);
    QCOMPARE(textsBelow(view.m_root->child(0)),
             QStringList({u"None: <Undefined>"_s, u"Unset: <Undefined>"_s, u"Textless: <a>"_s,
                          u"Half: <On>"_s}));
    QVERIFY(!boxShownBy([&] { view.reloadFromPPD(ppd.get()); }));
}

/** The library turns the file's bytes into UTF-8 where it knows how. */
void TestPPDTreeView::latin1Texts()
{
    const Cups::PpdPtr ppd = TestPpd::open(
        TestPpd::group("G/G", TestPpd::pickOne("One/Gr\366\337e", "a", {"a/\334ber"})),
        "ISOLatin1");
    QVERIFY(ppd);
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(optionRow(view, "One")->text(0), u"Größe: <Über>"_s);
}

void TestPPDTreeView::duplicateKeywords()
{
    Cups::PpdPtr ppd = openMarked(officeDriver());
    // As two groups of a careless driver have it.
    ppd_option_t *media = ppdFindOption(ppd.get(), "Media");
    ppd_option_t *trays = ppdFindOption(ppd.get(), "Trays");
    ppdMarkOption(ppd.get(), "Media", "Film");
    qstrncpy(trays->keyword, media->keyword, sizeof trays->keyword);
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(view.m_dict.count(u"Media"_s), 2);
    QCOMPARE(TestPpd::marked(ppd.get(), "Media"), "Film");
    for (BaseItem *row : view.m_dict.values(u"Media"_s))
        static_cast<OptionItem *>(row)->setChoiceIndex(1);
    boxShownBy([&] { view.reloadFromPPD(ppd.get()); });
    qstrncpy(trays->keyword, "Trays", sizeof trays->keyword);
}

void TestPPDTreeView::marksThatExcludeEachOther_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QByteArrayList>("chosen");
    QTest::addColumn<QByteArrayList>("marks");
    const QByteArray slot = TestPpd::pickOne("InputSlot/Slot", "Auto", {"Auto/Auto", "Two/Two"});
    const QByteArray manual = TestPpd::boolean("ManualFeed/Manual", "False");
    const auto row = [&](const char *title, const QByteArrayList &chosen,
                         const QByteArrayList &marks) {
        QTest::addRow("%s", title) << slot << manual << chosen << marks;
        QTest::addRow("%s, the other order", title) << manual << slot << chosen << marks;
    };
    row("manual", {"ManualFeed", "True"}, {"True", ""});
    row("slot", {"InputSlot", "Two"}, {"False", "Two"});
}

/** The library unmarks the one when it marks the other. */
void TestPPDTreeView::marksThatExcludeEachOther()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(QByteArrayList, chosen);
    QFETCH(QByteArrayList, marks);
    const Cups::PpdPtr ppd = openMarked(TestPpd::group("G/G", first + second));
    ppdMarkOption(ppd.get(), chosen.at(0).constData(), chosen.at(1).constData());
    PPDTreeView view;
    const auto marked = [&ppd] {
        return QByteArrayList{TestPpd::marked(ppd.get(), "ManualFeed"),
                              TestPpd::marked(ppd.get(), "InputSlot")};
    };
    view.setPPD(ppd.get());
    QCOMPARE(marked(), marks);
    QCOMPARE(optionRow(view, "ManualFeed")->m_choice->choice, QByteArray(marks.at(0)));
    const QString shown = optionRow(view, "ManualFeed")->text(0);
    view.reloadFromPPD(ppd.get());
    QCOMPARE(marked(), marks);
    QCOMPARE(optionRow(view, "ManualFeed")->text(0), shown);
}

void TestPPDTreeView::thousandsOfChoices()
{
    QByteArrayList choices;
    for (int i = 0; i < 5000; ++i)
        choices.append('c' + QByteArray::number(i) + "/Choice " + QByteArray::number(i));
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("Many/Many", "c4999", choices)));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(optionRow(view, "Many")->text(0), u"Many: <Choice 4999>"_s);
    optionRow(view, "Many")->setChoiceIndex(2500);
    QCOMPARE(TestPpd::marked(ppd.get(), "Many"), QByteArray("c2500"));
}

void TestPPDTreeView::conflictInASubgroup()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    TestPpd::Subgroup inner(ppd->groups[0], "Inner", 2);
    PPDTreeView view;
    view.setPPD(ppd.get());
    conflict(view);
    const auto box = boxShownBy([&] { view.checkConstraints(); });
    QVERIFY(box);
    QCOMPARE(box->icon, QMessageBox::Warning);
    QCOMPARE(box->title, u"Driver configuration"_s);
    QCOMPARE(box->text, u"You selected options that are in conflict. Try to resolve the\n"
                        "problem before continuing:\n"
                        "\n  Two Sides = Yes"
                        "\n  Kind = Film"_s);
    QCOMPARE(box->parent, &view);
    QCOMPARE(box->buttons, QMessageBox::Ok);
    QCOMPARE(box->defaultButton, QMessageBox::Ok);
    QVERIFY(view.m_hasConflicts);
    const GroupItem *main = groupRow(view.m_root, 2);
    QVERIFY(optionRow(view, "Duplex")->m_conflict);
    QVERIFY(optionRow(view, "Media")->m_conflict);
    QVERIFY(groupRow(main, 0)->m_conflict);
    QVERIFY(main->m_conflict);
    QVERIFY(!view.m_root->m_conflict);
    QVERIFY(!optionRow(view, "PageSize")->m_conflict);
    QVERIFY(!groupRow(view.m_root, 0)->m_conflict);
}

void TestPPDTreeView::conflictIsShownFromTheStart()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    ppdMarkOption(ppd.get(), "Duplex", "On");
    ppdMarkOption(ppd.get(), "Media", "Film");
    PPDTreeView view;
    QVERIFY(!boxShownBy([&] { view.setPPD(ppd.get()); }));
    QVERIFY(view.m_hasConflicts);
    QVERIFY(optionRow(view, "Duplex")->m_conflict);
}

void TestPPDTreeView::conflictIsSolved()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    conflict(view);
    QVERIFY(boxShownBy([&] { view.checkConstraints(); }));
    optionRow(view, "Media")->setChoiceIndex(0);
    QVERIFY(!boxShownBy([&] { view.checkConstraints(); }));
    QVERIFY(!view.m_hasConflicts);
    QVERIFY(!optionRow(view, "Duplex")->m_conflict);
    QVERIFY(!groupRow(view.m_root, 2)->m_conflict);
}

void TestPPDTreeView::noBoxWithoutConflict()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QVERIFY(!boxShownBy([&] { view.checkConstraints(); }));
    QVERIFY(!view.m_hasConflicts);
}

void TestPPDTreeView::checkingNothing()
{
    PPDTreeView view;
    QVERIFY(!boxShownBy([&] { view.checkConstraints(); }));
    QVERIFY(!view.m_hasConflicts);
}

void TestPPDTreeView::markupInTheWarning()
{
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::constraint("One On", "Two On") +
                   TestPpd::group("G/G", TestPpd::pickOne("One/<3c>b<3e>One<3c2f>b<3e>", "On",
                                                          {"On/<3c>i<3e>On<3c2f>i<3e>"}) +
                                             TestPpd::pickOne("Two/Two", "On", {"On/On"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    const auto box = boxShownBy([&] { view.checkConstraints(); });
    QVERIFY(box);
    QVERIFY(box->text.contains(u"<b>One</b> = <i>On</i>"_s));
}

void TestPPDTreeView::viewDiesWithTheWarning()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    auto view = std::make_unique<PPDTreeView>();
    view->setPPD(ppd.get());
    conflict(*view);
    QTimer killer;
    connect(&killer, &QTimer::timeout, &killer, [&] {
        if (QApplication::activeModalWidget())
            view.reset();
    });
    killer.start(0);
    PPDTreeView *doomed = view.get();
    doomed->checkConstraints();
    QVERIFY(!view);
}

void TestPPDTreeView::reloading()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    ppdMarkOption(ppd.get(), "PageSize", "Letter");
    QVERIFY(!boxShownBy([&] { view.reloadFromPPD(ppd.get()); }));
    QCOMPARE(optionRow(view, "PageSize")->text(0), u"Media Size: <US Letter>"_s);
    QCOMPARE(TestPpd::marked(ppd.get(), "PageSize"), QByteArray("Letter"));
}

void TestPPDTreeView::reloadingWarns()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    ppdMarkOption(ppd.get(), "Duplex", "On");
    ppdMarkOption(ppd.get(), "Media", "Film");
    QVERIFY(boxShownBy([&] { view.reloadFromPPD(ppd.get()); }));
    QVERIFY(optionRow(view, "Media")->m_conflict);
}

void TestPPDTreeView::reloadingNothing()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    QVERIFY(!boxShownBy([&] { view.reloadFromPPD(ppd.get()); }));
    view.setPPD(ppd.get());
    QVERIFY(!boxShownBy([&] { view.reloadFromPPD(nullptr); }));
    QCOMPARE(optionRow(view, "PageSize")->text(0), u"Media Size: <Undefined>"_s);
}

void TestPPDTreeView::customPageSize()
{
    PPDTreeView view;
    QVERIFY(QMetaObject::invokeMethod(&view, "updateCustomPageSize",
                                      Q_ARG(QString, u"Custom.210x297mm"_s)));
    QCOMPARE(view.m_customPageSize, u"Custom.210x297mm"_s);
}

void TestPPDTreeView::selecting()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QList<QTreeWidgetItem *> selected;
    connect(&view, selectionSignal(), this, [&](QTreeWidgetItem *row) { selected.append(row); });
    QTreeWidgetItem *size = optionRow(view, "PageSize");
    view.setCurrentItem(size);
    QCOMPARE(selected, QList<QTreeWidgetItem *>{size});
    view.setCurrentItem(view.m_root);
    QCOMPARE(selected.constLast(), view.m_root);
    view.clearSelection();
    QCOMPARE(selected.size(), 3);
    QCOMPARE(selected.constLast(), nullptr);
}

void TestPPDTreeView::selectionEndsBeforeTheRowsDie_data()
{
    QTest::addColumn<int>("end");
    QTest::newRow("emptied") << 0;
    QTest::newRow("rebuilt") << 1;
    QTest::newRow("destroyed") << 2;
}

void TestPPDTreeView::selectionEndsBeforeTheRowsDie()
{
    QFETCH(int, end);
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    auto view = std::make_unique<PPDTreeView>();
    view->setPPD(ppd.get());
    view->setCurrentItem(optionRow(*view, "PageSize"));
    QTreeWidgetItem *held = view->currentItem();
    QString lastText;
    connect(view.get(), selectionSignal(), this, [&](QTreeWidgetItem *row) {
        lastText = held->text(0); // still alive
        held = row;
    });
    if (end == 2)
        view.reset();
    else
        view->setPPD(end == 1 ? ppd.get() : nullptr);
    QCOMPARE(held, nullptr);
    QCOMPARE(lastText, u"Media Size: <A4>"_s);
}

void TestPPDTreeView::arrowKeys()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTreeWidgetItem *selected = nullptr;
    connect(&view, selectionSignal(), this, [&](QTreeWidgetItem *row) { selected = row; });
    view.setCurrentItem(view.m_root);
    QStringList texts;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(&view, Qt::Key_Down);
        texts.append(selected->text(0));
    }
    QCOMPARE(texts, QStringList({u"Installable Options"_s, u"Duplexer: <Off>"_s, u"Trays: <One>"_s,
                                 u"Extra"_s}));
    QTest::keyClick(&view, Qt::Key_Left);
    QVERIFY(!selected->isExpanded());
    QTest::keyClick(&view, Qt::Key_Right);
    QVERIFY(selected->isExpanded());
    QTest::keyClick(&view, Qt::Key_End);
    QCOMPARE(selected->text(0), u"Kind: <Plain>"_s);
    QTest::keyClick(&view, Qt::Key_Home);
    QCOMPARE(selected, view.m_root);
}

void TestPPDTreeView::typeAhead()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.setCurrentItem(view.m_root);
    QTest::keyClicks(&view, u"two"_s);
    QCOMPARE(view.currentItem(), optionRow(view, "Duplex"));
    QVERIFY(view.currentItem()->isSelected());
}

void TestPPDTreeView::columnIsAsWideAsTheWidestRow()
{
    const QByteArray longText(60, 'W');
    const Cups::PpdPtr ppd = openMarked(
        officeDriver() + TestPpd::group("Z/Z", TestPpd::pickOne("One/" + longText, "a", {"a/A"})));
    PPDTreeView view;
    view.resize(200, 120);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.setPPD(ppd.get());
    const QTreeWidgetItem *row = optionRow(view, "One");
    const int textWidth = view.fontMetrics().horizontalAdvance(row->text(0));
    QVERIFY(view.columnWidth(0) > textWidth + 2 * view.indentation());
    QVERIFY(view.columnWidth(0) < textWidth + 5 * view.indentation());
    QTRY_VERIFY(view.horizontalScrollBar()->maximum() > 0);
    QCOMPARE(view.horizontalScrollBar()->maximum(), view.columnWidth(0) - view.viewport()->width());
}

void TestPPDTreeView::columnFollowsTheTexts()
{
    const QByteArray longText(70, 'W');
    const Cups::PpdPtr ppd = openMarked(
        TestPpd::group("G/G", TestPpd::pickOne("One/One", "a", {"a/A", "b/" + longText})));
    PPDTreeView view;
    view.resize(200, 120);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.setPPD(ppd.get());
    const int narrow = view.columnWidth(0);
    OptionItem *row = optionRow(view, "One");
    row->setChoiceIndex(1);
    QTRY_VERIFY(view.columnWidth(0) > view.fontMetrics().horizontalAdvance(row->text(0)));
    row->setChoiceIndex(0);
    QTRY_COMPARE(view.columnWidth(0), narrow);
}

void TestPPDTreeView::columnFollowsTheFont()
{
    const QByteArray longText(60, 'W');
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("One/" + longText, "a", {"a/A"})));
    PPDTreeView view;
    view.resize(200, 120);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.setPPD(ppd.get());
    const int before = view.columnWidth(0);
    QFont larger = view.font();
    larger.setPixelSize(view.fontInfo().pixelSize() * 2);
    view.setFont(larger);
    QTRY_VERIFY(view.columnWidth(0) > before * 3 / 2);
    QVERIFY(view.visualItemRect(view.m_root).height() >= view.fontMetrics().height());
}

void TestPPDTreeView::columnFillsTheView()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.resize(800, 120);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.setPPD(ppd.get());
    QTRY_COMPARE(view.columnWidth(0), view.viewport()->width());
    view.resize(900, 120);
    QTRY_COMPARE(view.columnWidth(0), view.viewport()->width());
    QCOMPARE(view.horizontalScrollBar()->maximum(), 0);
    view.header()->hide();
    view.resize(700, 120);
    QTRY_COMPARE(view.columnWidth(0), view.viewport()->width());
}

void TestPPDTreeView::rowsAreUniform()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QVERIFY(view.uniformRowHeights());
    QVERIFY(optionRow(view, "Collate")->m_choice);
    const int height = view.visualItemRect(view.m_root).height();
    QVERIFY(height >= view.m_root->pixmap().deviceIndependentSize().height());
    QVERIFY(height >= view.fontMetrics().height());
    QCOMPARE(view.visualItemRect(optionRow(view, "Media")).height(), height);
}

void TestPPDTreeView::accessibleTexts()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(spokenName(view, view.m_root), u"Test Printer"_s);
    QCOMPARE(spokenName(view, view.m_root->child(2)), u"Main"_s);
    QCOMPARE(spokenName(view, optionRow(view, "Duplex")), u"Two Sides: <No>"_s);
    optionRow(view, "Duplex")->setChoiceIndex(1);
    QCOMPARE(spokenName(view, optionRow(view, "Duplex")), u"Two Sides: <Yes>"_s);
}

void TestPPDTreeView::accessibleTextOfAConflict()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    conflict(view);
    boxShownBy([&] { view.checkConstraints(); });
    QCOMPARE(spokenName(view, optionRow(view, "Duplex")), u"Two Sides: <Yes>, in conflict"_s);
    QCOMPARE(spokenName(view, view.m_root->child(2)), u"Main, in conflict"_s);
    QCOMPARE(spokenName(view, view.m_root), u"Test Printer"_s);
    optionRow(view, "Media")->setChoiceIndex(0);
    view.checkConstraints();
    QCOMPARE(spokenName(view, optionRow(view, "Duplex")), u"Two Sides: <Yes>"_s);
}

/** What the toolkit hands on to a screen reader. */
void TestPPDTreeView::accessibilityHearsOfChanges()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QSignalSpy changes(view.model(), &QAbstractItemModel::dataChanged);
    const OptionItem *media = optionRow(view, "Media");
    optionRow(view, "Media")->setConflict(true);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes[0].constFirst().toModelIndex(), view.indexFromItem(media->parent()));
    QCOMPARE(changes[1].constFirst().toModelIndex(), view.indexFromItem(media));
    changes.clear();
    view.m_root->setConflict(false);
    QCOMPARE(changes.size(), 2);
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&view);
    QVERIFY(table && table->tableInterface());
    optionRow(view, "Media")->setConflict(true);
    QStringList names;
    for (int row = 0; row < table->tableInterface()->rowCount(); ++row)
        names.append(table->tableInterface()->cellAt(row, 0)->text(QAccessible::Name));
    QVERIFY(names.contains(u"Kind: <Plain>, in conflict"_s));
    QVERIFY(names.contains(u"Two Sides: <No>"_s));
}

QTEST_MAIN(TestPPDTreeView)
#include "tst_ppdtreeview.moc"
