#include "PageAndCopies.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Options = QList<std::pair<QString, QString>>;

Q_DECLARE_METATYPE(PageAndCopies)

class TestPageAndCopies : public QObject
{
    Q_OBJECT
private slots:
    void read_data();
    void read();
    void write_data();
    void write();
    void documentHandling_data();
    void documentHandling();
    void picture_data();
    void picture();
};

namespace
{
PageAndCopies with(PageAndCopies::Pages pages, const QString &text = QString())
{
    PageAndCopies choice;
    choice.pages = pages;
    choice.pageText = text;
    return choice;
}

PageAndCopies withCopies(int copies, bool collate = true)
{
    PageAndCopies choice;
    choice.copies = copies;
    choice.collate = collate;
    return choice;
}

PageAndCopies withCollate(bool collate)
{
    return withCopies(1, collate);
}

PageAndCopies withReverse(bool reverse)
{
    PageAndCopies choice;
    choice.reverse = reverse;
    return choice;
}
} // namespace

void TestPageAndCopies::read_data()
{
    const QString list = QStringLiteral("2-4");
    QTest::addColumn<Options>("options");
    QTest::addColumn<PageAndCopies>("expected");
    QTest::newRow("nothing") << Options{} << PageAndCopies{};
    QTest::newRow("copies") << Options{{u"copies"_s, u"7"_s}} << withCopies(7);
    QTest::newRow("copies, no number") << Options{{u"copies"_s, u"many"_s}} << withCopies(0);
    QTest::newRow("copies, number and more") << Options{{u"copies"_s, u"7x"_s}} << withCopies(0);
    QTest::newRow("copies, empty") << Options{{u"copies"_s, u""_s}} << withCopies(0);
    QTest::newRow("copies, negative") << Options{{u"copies"_s, u"-3"_s}} << withCopies(-3);
    QTest::newRow("copies, too large") << Options{{u"copies"_s, u"99999999999"_s}} << withCopies(0);
    QTest::newRow("page-set even")
        << Options{{u"page-set"_s, u"even"_s}} << with(PageAndCopies::EvenPages);
    QTest::newRow("page-set odd") << Options{{u"page-set"_s, u"odd"_s}}
                                  << with(PageAndCopies::OddPages);
    QTest::newRow("page-set all") << Options{{u"page-set"_s, u"all"_s}} << PageAndCopies{};
    QTest::newRow("page-set other") << Options{{u"page-set"_s, u"EVEN"_s}} << PageAndCopies{};
    QTest::newRow("page-ranges") << Options{{u"page-ranges"_s, list}}
                                 << with(PageAndCopies::SomePages, list);
    QTest::newRow("page-ranges, invalid ones")
        << Options{{u"page-ranges"_s, u"5-3,"_s}} << with(PageAndCopies::SomePages, u"5-3,"_s);
    QTest::newRow("ranges and odd") << Options{{u"page-ranges"_s, list}, {u"page-set"_s, u"odd"_s}}
                                    << with(PageAndCopies::OddPages, list);
    QTest::newRow("odd and ranges") << Options{{u"page-set"_s, u"odd"_s}, {u"page-ranges"_s, list}}
                                    << with(PageAndCopies::OddPages, list);
    QTest::newRow("ranges and all") << Options{{u"page-ranges"_s, list}, {u"page-set"_s, u"all"_s}}
                                    << with(PageAndCopies::AllPages, list);
    QTest::newRow("ranges and other") << Options{{u"page-ranges"_s, list}, {u"page-set"_s, u"x"_s}}
                                      << with(PageAndCopies::SomePages, list);
    QTest::newRow("Collate True") << Options{{u"Collate"_s, u"True"_s}} << withCollate(true);
    QTest::newRow("Collate TRUE") << Options{{u"Collate"_s, u"TRUE"_s}} << withCollate(true);
    QTest::newRow("Collate untrue") << Options{{u"Collate"_s, u"untrue"_s}} << withCollate(true);
    QTest::newRow("Collate False") << Options{{u"Collate"_s, u"False"_s}} << withCollate(false);
    QTest::newRow("Collate On") << Options{{u"Collate"_s, u"On"_s}} << withCollate(false);
    QTest::newRow("Collate empty") << Options{{u"Collate"_s, u""_s}} << withCollate(false);
    QTest::newRow("OutputOrder Reverse")
        << Options{{u"OutputOrder"_s, u"Reverse"_s}} << withReverse(true);
    QTest::newRow("OutputOrder reverse")
        << Options{{u"OutputOrder"_s, u"reverse"_s}} << withReverse(false);
    QTest::newRow("OutputOrder Normal")
        << Options{{u"OutputOrder"_s, u"Normal"_s}} << withReverse(false);
    QTest::newRow("other names") << Options{{u"outputorder-x"_s, u"Reverse"_s},
                                            {u"media"_s, u"A4"_s}}
                                 << PageAndCopies{};
}

void TestPageAndCopies::read()
{
    QFETCH(Options, options);
    Cups::OptionArray array;
    for (const auto &[name, value] : options)
        array.add(qUtf8Printable(name), qUtf8Printable(value));
    QTEST(PageAndCopies::fromOptions(array), "expected");
}

void TestPageAndCopies::write_data()
{
    QTest::addColumn<PageAndCopies>("choice");
    QTest::addColumn<Options>("expected");
    QTest::newRow("nothing") << PageAndCopies{} << Options{};
    QTest::newRow("all pages, with a text") << with(PageAndCopies::AllPages, u"1"_s) << Options{};
    QTest::newRow("even pages") << with(PageAndCopies::EvenPages, u"1"_s)
                                << Options{{u"page-set"_s, u"even"_s}};
    QTest::newRow("odd pages") << with(PageAndCopies::OddPages, u"1"_s)
                               << Options{{u"page-set"_s, u"odd"_s}};
    QTest::newRow("some pages") << with(PageAndCopies::SomePages, u"01,2-5"_s)
                                << Options{{u"page-ranges"_s, u"01,2-5"_s}};
    QTest::newRow("1 copy") << withCopies(1) << Options{};
    QTest::newRow("1 copy, uncollated") << withCopies(1, false) << Options{};
    QTest::newRow("0 copies") << withCopies(0, false) << Options{};
    QTest::newRow("2 copies, collated")
        << withCopies(2)
        << Options{{u"copies"_s, u"2"_s},
                   {u"Collate"_s, u"True"_s},
                   {u"multiple-document-handling"_s, u"separate-documents-collated-copies"_s}};
    QTest::newRow("9999 copies, uncollated")
        << withCopies(9999, false)
        << Options{{u"copies"_s, u"9999"_s},
                   {u"Collate"_s, u"False"_s},
                   {u"multiple-document-handling"_s, u"separate-documents-uncollated-copies"_s}};
    QTest::newRow("reverse") << withReverse(true) << Options{{u"OutputOrder"_s, u"Reverse"_s}};
    PageAndCopies all = withCopies(3);
    all.pages = PageAndCopies::OddPages;
    all.reverse = true;
    QTest::newRow("everything, in order")
        << all
        << Options{{u"page-set"_s, u"odd"_s},
                   {u"copies"_s, u"3"_s},
                   {u"Collate"_s, u"True"_s},
                   {u"multiple-document-handling"_s, u"separate-documents-collated-copies"_s},
                   {u"OutputOrder"_s, u"Reverse"_s}};
}

void TestPageAndCopies::write()
{
    QFETCH(PageAndCopies, choice);
    QTEST(choice.toOptions(), "expected");
}

void TestPageAndCopies::documentHandling_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QVariant>("collates");
    QTest::newRow("one document") << "single-document" << QVariant(true);
    QTest::newRow("collated") << "separate-documents-collated-copies" << QVariant(true);
    QTest::newRow("new sheet") << "single-document-new-sheet" << QVariant(true);
    QTest::newRow("uncollated") << "separate-documents-uncollated-copies" << QVariant(false);
    QTest::newRow("other") << "Single-Document" << QVariant();
    QTest::newRow("empty") << "" << QVariant();
    QTest::newRow("null") << QString() << QVariant();
}

void TestPageAndCopies::documentHandling()
{
    QFETCH(QString, value);
    const std::optional<bool> collates = PageAndCopies::collates(value);
    QTEST(collates ? QVariant(*collates) : QVariant(), "collates");
}

void TestPageAndCopies::picture_data()
{
    QTest::addColumn<bool>("collate");
    QTest::addColumn<bool>("reverse");
    QTest::addColumn<QString>("file");
    QTest::newRow("collated") << true << false << "collate.png";
    QTest::newRow("collated, reverse") << true << true << "collate_rev.png";
    QTest::newRow("uncollated") << false << false << "uncollate.png";
    QTest::newRow("uncollated, reverse") << false << true << "uncollate_rev.png";
}

void TestPageAndCopies::picture()
{
    QFETCH(bool, collate);
    QFETCH(bool, reverse);
    QTEST(PageAndCopies::pictureFile(collate, reverse), "file");
}

QTEST_APPLESS_MAIN(TestPageAndCopies)
#include "tst_pageandcopies.moc"
