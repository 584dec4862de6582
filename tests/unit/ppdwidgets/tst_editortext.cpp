#include "EditorText.h"

#include "CupsHandles.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr int intMax = std::numeric_limits<int>::max();
constexpr int intMin = std::numeric_limits<int>::min();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double endless = std::numeric_limits<double>::infinity();

const QLocale german(QLocale::German, QLocale::Germany);
} // namespace

/** Texts and numbers of the option editors. */
class TestEditorText : public QObject
{
    Q_OBJECT
private slots:
    void mnemonics_data();
    void mnemonics();
    void realNumbers_data();
    void realNumbers();
    void integers_data();
    void integers();
    void unfinishedNumbers_data();
    void unfinishedNumbers();
    void truncated_data();
    void truncated();
    void rangesInEitherOrder();
    void sentNumbersHaveAPoint();
    void shownNumbersFollowTheLocale();
    void listValues_data();
    void listValues();
};

void TestEditorText::mnemonics_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << u"Plain"_s << u"Plain"_s;
    QTest::newRow("between blanks") << u"Black & White"_s << u"Black && White"_s;
    QTest::newRow("two") << u"a&&b"_s << u"a&&&&b"_s;
    QTest::newRow("last") << u"a&"_s << u"a&&"_s;
}

void TestEditorText::mnemonics()
{
    QFETCH(QString, text);
    QTEST(EditorText::withoutMnemonic(text), "shown");
    QCOMPARE(EditorText::literalOf(EditorText::withoutMnemonic(text)), text);
}

void TestEditorText::realNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isGerman");
    QTest::addColumn<double>("value"); // noNumber: not read
    QTest::newRow("point") << u"1.25"_s << false << 1.25;
    QTest::newRow("comma where there is a point") << u"1,25"_s << false << noNumber;
    QTest::newRow("point where there is a comma") << u"1.25"_s << true << 1.25;
    QTest::newRow("comma") << u"1,25"_s << true << 1.25;
    QTest::newRow("a point is no mark of thousands") << u"1.250"_s << true << 1.25;
    QTest::newRow("both") << u"1.250,5"_s << true << noNumber;
    QTest::newRow("two commas") << u"1,2,5"_s << true << noNumber;
    QTest::newRow("negative") << u"-0,5"_s << true << -0.5;
    QTest::newRow("exponent") << u"1e2"_s << false << 100.0;
    QTest::newRow("separator first") << u",5"_s << true << 0.5;
    QTest::newRow("separator last") << u"5,"_s << true << 5.0;
    QTest::newRow("blanks around") << u" 5 "_s << false << 5.0;
    QTest::newRow("letters") << u"abc"_s << false << noNumber;
    QTest::newRow("nothing") << u""_s << false << noNumber;
    QTest::newRow("nan") << u"nan"_s << false << noNumber;
    QTest::newRow("inf") << u"inf"_s << false << noNumber;
    QTest::newRow("too large") << u"1e999"_s << false << noNumber;
}

void TestEditorText::realNumbers()
{
    QFETCH(QString, text);
    QFETCH(bool, isGerman);
    QFETCH(double, value);
    const auto read = EditorText::toReal(text, isGerman ? german : QLocale::c());
    QCOMPARE(read.has_value(), !std::isnan(value));
    if (read)
        QCOMPARE(*read, value);
}

void TestEditorText::integers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value"); // noNumber: not read
    QTest::newRow("plain") << u"42"_s << 42.0;
    QTest::newRow("negative") << u"-42"_s << -42.0;
    QTest::newRow("decimals") << u"4,2"_s << noNumber;
    QTest::newRow("thousands") << u"1.000"_s << noNumber;
    QTest::newRow("too large") << u"2147483648"_s << noNumber;
    QTest::newRow("letters") << u"abc"_s << noNumber;
    QTest::newRow("nothing") << u""_s << noNumber;
}

void TestEditorText::integers()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    const auto read = EditorText::toInteger(text, german);
    QCOMPARE(read.has_value(), !std::isnan(value));
    if (read)
        QCOMPARE(*read, value);
}

void TestEditorText::unfinishedNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("unfinished");
    for (const char *text : {"-", "+", ".", ",", "-,"})
        QTest::newRow(text) << QString::fromLatin1(text) << true;
    for (const char *text : {"", "1", "-1", "--", "a", ",,"})
        QTest::newRow(text) << QString::fromLatin1(text) << false;
}

void TestEditorText::unfinishedNumbers()
{
    QFETCH(QString, text);
    QTEST(EditorText::isUnfinishedNumber(text, german), "unfinished");
}

void TestEditorText::truncated_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("whole");
    QTest::newRow("up") << 1.9 << 1;
    QTest::newRow("down") << -1.9 << -1;
    QTest::newRow("huge") << 1e30 << intMax;
    QTest::newRow("huge and negative") << -1e30 << intMin;
    QTest::newRow("endless") << endless << intMax;
    QTest::newRow("endless and negative") << -endless << intMin;
    QTest::newRow("none") << noNumber << 0;
}

void TestEditorText::truncated()
{
    QFETCH(double, value);
    QTEST(EditorText::truncated(value), "whole");
}

void TestEditorText::rangesInEitherOrder()
{
    QCOMPARE(EditorText::finiteRange(1, 2), std::pair(1.0, 2.0));
    QCOMPARE(EditorText::finiteRange(2, 1), std::pair(1.0, 2.0));
    QCOMPARE(EditorText::finiteRange(noNumber, 2), std::pair(0.0, 2.0));
    const auto [lowest, highest] = EditorText::finiteRange(endless, -endless);
    QVERIFY(std::isfinite(lowest) && std::isfinite(highest));
    QVERIFY(lowest < highest);
}

void TestEditorText::sentNumbersHaveAPoint()
{
    QLocale::setDefault(german);
    QCOMPARE(EditorText::fixed(1.5), u"1.500"_s);
    QCOMPARE(EditorText::fixed(1234567.0), u"1234567.000"_s);
    QLocale::setDefault(QLocale::c());
}

void TestEditorText::shownNumbersFollowTheLocale()
{
    QCOMPARE(EditorText::shown(german, 1234.5, 2), u"1234,50"_s);
    QCOMPARE(EditorText::shown(QLocale::c(), 1234.5, 2), u"1234.50"_s);
}

void TestEditorText::listValues_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << u"fast"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("blanks") << u"two words"_s;
    QTest::newRow("quotes") << u"it's \"so\""_s;
    QTest::newRow("braces") << u"{a} [b]"_s;
    QTest::newRow("backslash") << u"a\\b\\"_s;
    QTest::newRow("another option") << u"x Other=1"_s;
    QTest::newRow("comma and equals sign") << u"a,b=c"_s;
    QTest::newRow("umlauts") << u"Größe"_s;
}

void TestEditorText::listValues()
{
    QFETCH(QString, text);
    Cups::OptionArray options;
    const QString list = u"First="_s + EditorText::escapedForList(text) + u" Last=1"_s;
    QCOMPARE(options.parse(list.toUtf8().constData()), 2);
    QCOMPARE(QString::fromUtf8(options.value("First")), text);
}

QTEST_APPLESS_MAIN(TestEditorText)
#include "tst_editortext.moc"
