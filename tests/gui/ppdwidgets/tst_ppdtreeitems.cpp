#include "DecimalCommaLocale.h"
#include "OptionPictures.h"
#include "TreeTest.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;
using namespace TreeTest;
using namespace PPDTree;

/** The rows: what they show, what they mark, and how conflicts spread. */
class TestPPDTreeItems : public QObject
{
    Q_OBJECT
private slots:
    void textFlags();
    void initialChoice_data();
    void initialChoice();
    void initialChoiceIsMarked();
    void texts();
    void optionTextsAreUtf8();
    void groupTextsAreLatin1();
    void pictures_data();
    void pictures();
    void everyPictureIsThere_data();
    void everyPictureIsThere();
    void booleanPictures();

    void choosingMarks();
    void choosingNothing();
    void choosingByIndex_data();
    void choosingByIndex();
    void choosingOfNoChoices();
    void customChoiceIsNotMarked_data();
    void customChoiceIsNotMarked();
    void customValue_data();
    void customValue();
    void customChoiceOfAPlainOption();

    void updating();
    void updatingToNoMark();

    void conflictClimbs();
    void conflictIsClearedBelow();
    void onlyOptionsInConflictAreChecked();
    void dictionary();

    void numericalText_data();
    void numericalText();
    void numericalInADecimalCommaLocale();
    void numericalRow();
    void numericalWithoutMark();
};

namespace
{
QByteArray customizable()
{
    using namespace TestPpd;
    return group("Main/Main",
                 pickOne("PageSize/Size", "A4", {"A4/A4", "Customary/Customary", "{x}/Brace"}) +
                     custom("PageSize", {"Width 1 points 36 1000", "Height 2 points 36 1000",
                                         "WidthOffset 3 points 0 0", "HeightOffset 4 points 0 0",
                                         "Orientation 5 int 0 0"}) +
                     pickOne("Ink/Ink", "Low", {"Low/Low", "High/High"}) +
                     custom("Ink", {"Amount 1 real 0.5 2"}) + pickOne("Mixed/Mixed", "a", {"a/A"}) +
                     custom("Mixed", {"Level 1 int 0 10", "Name 2 string 0 20"}));
}

bool same(const QPixmap &one, const QPixmap &other)
{
    return !one.isNull() && one.toImage() == other.toImage();
}
} // namespace

void TestPPDTreeItems::textFlags()
{
    QCOMPARE(BaseItem::ms_drawTextFlags, 641);
}

void TestPPDTreeItems::initialChoice_data()
{
    QTest::addColumn<QByteArray>("preset");
    QTest::addColumn<QByteArrayList>("marks");
    QTest::addColumn<QString>("text");
    QTest::newRow("marked") << QByteArray("a") << QByteArrayList{"b"} << u"One: <B>"_s;
    QTest::newRow("last marked") << QByteArray("a") << QByteArrayList{"b", "c"} << u"One: <C>"_s;
    QTest::newRow("default") << QByteArray("b") << QByteArrayList() << u"One: <B>"_s;
    QTest::newRow("none") << QByteArray() << QByteArrayList() << u"One: <Undefined>"_s;
    QTest::newRow("unknown default")
        << QByteArray("x") << QByteArrayList() << u"One: <Undefined>"_s;
}

void TestPPDTreeItems::initialChoice()
{
    QFETCH(QByteArray, preset);
    QFETCH(QByteArrayList, marks);
    const Cups::PpdPtr ppd = TestPpd::open(
        TestPpd::group("G/G", TestPpd::pickOne("One/One", preset, {"a/A", "b/B", "c/C", "d/D"})));
    for (const QByteArray &mark : marks)
        TestPpd::choice(ppd.get(), "One", mark.constData())->marked = 1;
    PPDTreeView view;
    view.setPPD(ppd.get());
    QTEST(optionRow(view, "One")->text(0), "text");
}

void TestPPDTreeItems::initialChoiceIsMarked()
{
    const Cups::PpdPtr ppd =
        TestPpd::open(TestPpd::group("G/G", TestPpd::pickOne("One/One", "b", {"a/A", "b/B"})));
    QCOMPARE(TestPpd::marked(ppd.get(), "One"), QByteArray());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(TestPpd::marked(ppd.get(), "One"), QByteArray("b"));
}

void TestPPDTreeItems::texts()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver() + customizable());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(view.m_root->text(0), u"Test Printer"_s);
    QCOMPARE(optionRow(view, "Duplex")->text(0), u"Two Sides: <No>"_s);
    QCOMPARE(optionRow(view, "Marks")->text(0), u"Marks: <Undefined>"_s);
    const auto ink = dynamic_cast<CustomOptionItem *>(optionRow(view, "Ink"));
    QVERIFY(ink);
    QCOMPARE(ink->text(0), u"Ink: <Low>"_s);
    ink->setChoice(TestPpd::choice(ppd.get(), "Ink", "Custom"));
    ink->updateText();
    QCOMPARE(ink->text(0), u"Ink: <Custom>"_s);
    ink->setChoice(nullptr);
    ink->updateText();
    QCOMPARE(ink->text(0), u"Ink: <Undefined>"_s);
}

void TestPPDTreeItems::optionTextsAreUtf8()
{
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("One/Größe", "a", {"a/Übergroß"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(optionRow(view, "One")->text(0), u"Größe: <Übergroß>"_s);
}

void TestPPDTreeItems::groupTextsAreLatin1()
{
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/Qualität", TestPpd::boolean("One/One", "True")));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QCOMPARE(textsBelow(view.m_root), QStringList(QString::fromLatin1("Qualität")));
    QVERIFY(textsBelow(view.m_root) != QStringList(u"Qualität"_s));
}

void TestPPDTreeItems::pictures_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QString>("file");
    QTest::newRow("PageSize") << QByteArray("PageSize") << u"pagesize.png"_s;
    QTest::newRow("StpBrightness") << QByteArray("StpBrightness") << u"brightness.png"_s;
    QTest::newRow("Quality") << QByteArray("Quality") << u"pagesize.png"_s;
    QTest::newRow("unknown") << QByteArray("Whatever") << u"list.png"_s;
}

void TestPPDTreeItems::pictures()
{
    QFETCH(QByteArray, keyword);
    QFETCH(QString, file);
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne(keyword + "/One", "a", {"a/A"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QVERIFY(same(optionRow(view, keyword.constData())->pixmap(), OptionPictures::option(file)));
}

void TestPPDTreeItems::everyPictureIsThere_data()
{
    QTest::addColumn<QString>("path");
    for (const char *name :
         {"bool_on", "bool_off", "list", "numeric", "pagesize", "inputslot", "brightness",
          "color_opt", "yellow", "cyan", "magenta", "gamma", "duplex", "gsresol", "resol",
          "saturation", "contrast", "dither", "imagetype"})
        QTest::newRow(name) << u":/option/images/%1"_s.arg(QLatin1StringView(name));
    for (const char *name :
         {"printer", "printer_general", "printer_extra", "printer_jcl", "printer_install"})
        QTest::newRow(name) << u":/group/images/%1"_s.arg(QLatin1StringView(name));
}

void TestPPDTreeItems::everyPictureIsThere()
{
    QFETCH(QString, path);
    QVERIFY(!OptionPictures::root().isNull());
    const QImage plain(path + u".png"_s), sharp(path + u"@2x.png"_s);
    QVERIFY(!plain.isNull());
    QCOMPARE(sharp.size(), plain.size() * 2);
}

void TestPPDTreeItems::booleanPictures()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    OptionItem *collate = optionRow(view, "Collate");
    QVERIFY(same(collate->pixmap(), OptionPictures::option(u"bool_on.png"_s)));
    collate->setChoice(TestPpd::choice(ppd.get(), "Collate", "False"));
    QVERIFY(same(collate->pixmap(), OptionPictures::option(u"bool_off.png"_s)));
    collate->setChoice(nullptr);
    QVERIFY(collate->pixmap().isNull());
}

void TestPPDTreeItems::choosingMarks()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    OptionItem *size = optionRow(view, "PageSize");
    size->setChoice(TestPpd::choice(ppd.get(), "PageSize", "Letter"));
    QCOMPARE(TestPpd::marked(ppd.get(), "PageSize"), QByteArray("Letter"));
    QCOMPARE(size->text(0), u"Media Size: <US Letter>"_s);
    QCOMPARE(size->m_choice->choice, "Letter");
}

void TestPPDTreeItems::choosingNothing()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    OptionItem *size = optionRow(view, "PageSize");
    size->setChoice(nullptr);
    QCOMPARE(size->text(0), u"Media Size: <Undefined>"_s);
    QCOMPARE(TestPpd::marked(ppd.get(), "PageSize"), QByteArray("A4"));
}

void TestPPDTreeItems::choosingByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("choice");
    QTest::newRow("first") << 0 << QByteArray("a");
    QTest::newRow("last") << 2 << QByteArray("c");
    QTest::newRow("past the last") << 3 << QByteArray("a");
    QTest::newRow("far too large") << std::numeric_limits<int>::max() << QByteArray("a");
    QTest::newRow("none") << -1 << QByteArray("a");
    QTest::newRow("far too small") << std::numeric_limits<int>::min() << QByteArray("a");
}

void TestPPDTreeItems::choosingByIndex()
{
    QFETCH(int, index);
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("One/One", "b", {"a/A", "b/B", "c/C"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    optionRow(view, "One")->setChoiceIndex(index);
    QTEST(TestPpd::marked(ppd.get(), "One"), "choice");
    QTEST(QByteArray(optionRow(view, "One")->m_choice->choice), "choice");
}

void TestPPDTreeItems::choosingOfNoChoices()
{
    const Cups::PpdPtr ppd = openMarked(TestPpd::group("G/G", TestPpd::pickOne("One/One", "", {})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    OptionItem *row = optionRow(view, "One");
    for (const int index : {-1, 0, 1}) {
        row->setChoiceIndex(index);
        QVERIFY(!row->m_choice);
        QCOMPARE(row->text(0), u"One: <Undefined>"_s);
    }
}

void TestPPDTreeItems::customChoiceIsNotMarked_data()
{
    QTest::addColumn<QByteArray>("choice");
    QTest::addColumn<QByteArray>("marked");
    QTest::newRow("Custom") << QByteArray("Custom") << QByteArray("A4");
    QTest::newRow("begins with Custom") << QByteArray("Customary") << QByteArray("A4");
    QTest::newRow("opening brace") << QByteArray("{x}") << QByteArray("A4");
    QTest::newRow("plain") << QByteArray("A4") << QByteArray("A4");
}

void TestPPDTreeItems::customChoiceIsNotMarked()
{
    QFETCH(QByteArray, choice);
    const Cups::PpdPtr ppd = openMarked(customizable());
    PPDTreeView view;
    view.setPPD(ppd.get());
    OptionItem *row = optionRow(view, "PageSize");
    row->setChoice(TestPpd::choice(ppd.get(), "PageSize", choice.constData()));
    QCOMPARE(QByteArray(row->m_choice->choice), choice);
    QTEST(TestPpd::marked(ppd.get(), "PageSize"), "marked");
}

void TestPPDTreeItems::customValue_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QByteArray>("parameter");
    QTest::addColumn<QString>("expected");
    QTest::newRow("size") << QByteArray("PageSize") << u"Custom.210x297mm"_s << QByteArray("Width")
                          << u"595.28"_s;
    QTest::newRow("one") << QByteArray("Ink") << u"Custom.1.500"_s << QByteArray("Amount")
                         << u"1.50"_s;
    QTest::newRow("several") << QByteArray("Mixed") << u"{Level=7 Name=fast}"_s
                             << QByteArray("Level") << u"7"_s;
}

void TestPPDTreeItems::customValue()
{
    QFETCH(QByteArray, keyword);
    QFETCH(QString, value);
    QFETCH(QByteArray, parameter);
    const Cups::PpdPtr ppd = openMarked(customizable());
    PPDTreeView view;
    view.setPPD(ppd.get());
    const auto row = dynamic_cast<CustomOptionItem *>(optionRow(view, keyword.constData()));
    QVERIFY(row);
    row->setCustomValue(value);
    QCOMPARE(TestPpd::marked(ppd.get(), keyword.constData()), QByteArray("Custom"));
    const ppd_cparam_t *set = ppdFindCustomParam(row->m_customOption, parameter.constData());
    const QString is = set->type == PPD_CUSTOM_INT
                           ? QString::number(set->current.custom_int)
                           : QString::number(static_cast<double>(set->current.custom_real), 'f', 2);
    QTEST(is, "expected");
}

void TestPPDTreeItems::customChoiceOfAPlainOption()
{
    const Cups::PpdPtr ppd = openMarked(
        TestPpd::group("G/G", TestPpd::pickOne("One/One", "a", {"a/A", "CustomInk/Ink"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    QVERIFY(!dynamic_cast<CustomOptionItem *>(optionRow(view, "One")));
    optionRow(view, "One")->setChoiceIndex(1);
    QCOMPARE(TestPpd::marked(ppd.get(), "One"), QByteArray("CustomInk"));
}

void TestPPDTreeItems::updating()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    ppdMarkOption(ppd.get(), "PageSize", "Letter");
    ppdMarkOption(ppd.get(), "Collate", "False");
    QCOMPARE(optionRow(view, "PageSize")->text(0), u"Media Size: <A4>"_s);
    view.m_root->updateFromPPD(ppd.get());
    QCOMPARE(optionRow(view, "PageSize")->text(0), u"Media Size: <US Letter>"_s);
    QCOMPARE(optionRow(view, "Collate")->text(0), u"Collate: <Off>"_s);
    QVERIFY(same(optionRow(view, "Collate")->pixmap(), OptionPictures::option(u"bool_off.png"_s)));
}

void TestPPDTreeItems::updatingToNoMark()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    optionRow(view, "PageSize")->updateFromPPD(nullptr);
    QCOMPARE(optionRow(view, "PageSize")->text(0), u"Media Size: <Undefined>"_s);
}

void TestPPDTreeItems::conflictClimbs()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    const TestPpd::Subgroup inner(ppd->groups[0], "Inner", 1);
    PPDTreeView view;
    view.setPPD(ppd.get());
    OptionItem *media = optionRow(view, "Media");
    QCOMPARE(media->depth(), 3);
    media->setConflict(true);
    GroupItem *main = groupRow(view.m_root, 2);
    QVERIFY(media->m_conflict);
    QVERIFY(groupRow(main, 0)->m_conflict);
    QVERIFY(main->m_conflict);
    QVERIFY(!view.m_root->m_conflict);
    QVERIFY(!optionRow(view, "Duplex")->m_conflict);
    QVERIFY(!groupRow(view.m_root, 1)->m_conflict);
}

void TestPPDTreeItems::conflictIsClearedBelow()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    for (BaseItem *row : std::as_const(view.m_dict))
        row->setConflict(true);
    groupRow(view.m_root, 2)->setConflict(false);
    QVERIFY(!optionRow(view, "Media")->m_conflict);
    QVERIFY(optionRow(view, "Trays")->m_conflict);
    view.m_root->setConflict(false);
    QVERIFY(!optionRow(view, "Trays")->m_conflict);
    QVERIFY(!groupRow(view.m_root, 0)->m_conflict);
}

void TestPPDTreeItems::onlyOptionsInConflictAreChecked()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    ppdFindOption(ppd.get(), "Media")->conflicted = 1;
    groupRow(view.m_root, 2)->checkConflict();
    optionRow(view, "Duplex")->checkConflict();
    QVERIFY(!groupRow(view.m_root, 2)->m_conflict);
    QVERIFY(!optionRow(view, "Duplex")->m_conflict);
    optionRow(view, "Media")->checkConflict();
    QVERIFY(optionRow(view, "Media")->m_conflict);
    QVERIFY(groupRow(view.m_root, 2)->m_conflict);
}

void TestPPDTreeItems::dictionary()
{
    const Cups::PpdPtr ppd = openMarked(officeDriver());
    PPDTreeView view;
    view.setPPD(ppd.get());
    QStringList keywords = view.m_dict.keys();
    keywords.sort();
    QCOMPARE(keywords, QStringList({u"Collate"_s, u"Duplex"_s, u"Marks"_s, u"Media"_s,
                                    u"OptDuplex"_s, u"PageSize"_s, u"Trays"_s}));
    QVERIFY(!view.m_dict.contains(u"pagesize"_s));
    Dict twice = view.m_dict;
    view.m_root->addToDict(twice);
    QCOMPARE(twice.count(u"Media"_s), 2);
}

void TestPPDTreeItems::numericalText_data()
{
    QTest::addColumn<bool>("isReal");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("integer") << false << 42.0 << u"Level: <42>"_s;
    QTest::newRow("truncated") << false << 1.999 << u"Level: <1>"_s;
    QTest::newRow("truncated towards zero") << false << -1.999 << u"Level: <-1>"_s;
    QTest::newRow("no minus zero") << false << -0.5 << u"Level: <0>"_s;
    QTest::newRow("too large") << false << 1e20 << u"Level: <2147483647>"_s;
    QTest::newRow("no number") << false << std::nan("") << u"Level: <0>"_s;
    QTest::newRow("real") << true << 1.25 << u"Level: <1.250>"_s;
    QTest::newRow("rounded") << true << 2.0 / 3 << u"Level: <0.667>"_s;
}

void TestPPDTreeItems::numericalText()
{
    QFETCH(bool, isReal);
    QFETCH(double, value);
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("Level/Level", "a", {"a/7"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    const auto row =
        new NumericalItem(ppd.get(), optionRow(view, "Level")->m_option, groupRow(view.m_root, 0));
    row->m_isReal = isReal;
    row->setValue(value);
    QTEST(row->text(0), "text");
}

void TestPPDTreeItems::numericalInADecimalCommaLocale()
{
    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    const Cups::PpdPtr ppd =
        openMarked(TestPpd::group("G/G", TestPpd::pickOne("Level/Level", "a", {"a/1.5"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    const auto row =
        new NumericalItem(ppd.get(), optionRow(view, "Level")->m_option, groupRow(view.m_root, 0));
    QCOMPARE(row->m_value, 1.5);
    row->m_isReal = true;
    row->setValue(2.5);
    QCOMPARE(row->text(0), u"Level: <2.500>"_s);
}

void TestPPDTreeItems::numericalRow()
{
    const Cups::PpdPtr ppd = openMarked(
        TestPpd::group("G/G", TestPpd::pickOne("Level/Level", "a", {"a/7.9", "b/9", "c/text"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    ppd_option_t *option = optionRow(view, "Level")->m_option;
    const auto row = new NumericalItem(ppd.get(), option, groupRow(view.m_root, 0));
    QVERIFY(row->m_numeric);
    QVERIFY(!optionRow(view, "Level")->m_numeric);
    QCOMPARE(groupRow(view.m_root, 0)->m_children.constLast(), row);
    QCOMPARE(groupRow(view.m_root, 0)->child(0), row);
    QVERIFY(same(row->pixmap(), OptionPictures::option(u"numeric.png"_s)));
    QCOMPARE(row->m_value, 7.9);
    QCOMPARE(row->text(0), u"Level: <7>"_s);
    ppdMarkOption(ppd.get(), "Level", "b");
    row->updateFromPPD(ppd.get());
    QCOMPARE(row->m_value, 9.0);
    QCOMPARE(row->text(0), u"Level: <9>"_s);
    row->setValue(3);
    QCOMPARE(TestPpd::marked(ppd.get(), "Level"), QByteArray("b"));
    ppdMarkOption(ppd.get(), "Level", "c");
    row->updateFromPPD(ppd.get());
    QCOMPARE(row->m_value, 0.0);
    option->conflicted = 1;
    row->checkConflict();
    QVERIFY(!row->m_conflict);
    Dict dict;
    row->addToDict(dict);
    QVERIFY(dict.isEmpty());
}

void TestPPDTreeItems::numericalWithoutMark()
{
    const Cups::PpdPtr ppd =
        TestPpd::open(TestPpd::group("G/G", TestPpd::pickOne("Level/Level", "", {"a/7"})));
    PPDTreeView view;
    view.setPPD(ppd.get());
    const NumericalItem *row =
        new NumericalItem(ppd.get(), optionRow(view, "Level")->m_option, groupRow(view.m_root, 0));
    QCOMPARE(row->m_value, 0.0);
    QCOMPARE(row->text(0), u"Level: <0>"_s);
}

QTEST_MAIN(TestPPDTreeItems)
#include "tst_ppdtreeitems.moc"
