#include "PrinterOptions.h"

#include "DecimalCommaLocale.h"
#include "OptionsTestSupport.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <cstring>
#include <memory>
#include <unistd.h>

using TestSupport::arrayOf;
using TestSupport::entriesOf;
using TestSupport::markedChoice;
using TestSupport::words;

namespace
{
const QString duplex = QStringLiteral("Duplex");
const QString pageSize = QStringLiteral("PageSize");
const QString mediaType = QStringLiteral("MediaType");
const QString other = QStringLiteral("other");

PrinterOptions withPpd()
{
    PrinterOptions options;
    options.usePPD(TestSupport::openMarksPpd());
    return options;
}

PrinterOptions withOptions(const QStringList &entries)
{
    PrinterOptions options;
    for (const QString &entry : entries)
        options.setOption(entry.section(QLatin1Char('='), 0, 0),
                          entry.section(QLatin1Char('='), 1));
    return options;
}

QMap<QString, QString> tableOf(const QStringList &entries)
{
    return withOptions(entries);
}
} // namespace

/** The option set without a server: what it keeps together, with and without a PPD. */
class tst_PrinterOptions : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void startsEmpty();
    void defaults();
    void destructorIsVirtual();
    void setOption();
    void setOptionReplaces();
    void setOptionWithPpd();
    void setOptionMarksAsTheLibraryDoes();
    void setOptionEncodesLocally();
    void setOptionWithoutName();
    void valuePrefersTheMark();
    void intValue_data();
    void intValue();
    void intValueOfAMark();
    void valueAsTextOfAMark();
    void valueAsTextOfTheMap();
    void valueAsTextFails_data();
    void valueAsTextFails();
    void setValueAsText();
    void setValueAsTextWithoutPpd();
    void setValueAsTextWithoutMap();
    void setValueAsTextOfUnknownText();
    void choicesOfThePpd();
    void choicesOfTheMap();
    void removeOption();
    void removeOptionOfThePpd();
    void setOptions();
    void setOptionsResolvesMedia_data();
    void setOptionsResolvesMedia();
    void setOptionsResolvesMediaInTheTableOnly();
    void clearCupsOptions();
    void usePpdMarksDefaultsThenOptions();
    void usePpdTakesTheMarkedChoicesOver();
    void usePpdKeepsCustomPageSize();
    void usePpdReadsPointsInEveryLocale();
    void usePpdOfNull();
    void closePpd();
    void copyConstruction();
    void copySharesThePpd();
    void assignment();
    void assignmentToItself();
    void assignmentMarksTheCurrentPpd();
    void assignmentAppliesTheTable();
    void assignmentTakesTheTextMapsOver();
    void copyMediaOptions();
    void copyMediaOptionsOfATable();
    void hasOptions();
    void volatileOptions();
    void describe();
    void describeEmpty();
    void describeWithPpd();
    void invalidDestination_data();
    void invalidDestination();
    void openPpdWithoutDestination();
    void unreachableServer();
    void logIsTruncatedAtStart();
};

void tst_PrinterOptions::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_PrinterOptions::startsEmpty()
{
    const PrinterOptions options;
    QVERIFY(options.isEmpty());
    QCOMPARE(options.cupsOptions().count(), 0);
    QVERIFY(!options.ppd());
    QCOMPARE(options.destination(), QString());
    QCOMPARE(options.volatileOptions(), QStringList());
}

void tst_PrinterOptions::defaults()
{
    QCOMPARE(PrinterOptions::defaultNumberUp, 1);
    QCOMPARE(PrinterOptions::defaultCpi, 10);
    QCOMPARE(PrinterOptions::defaultLpi, 6);
    QCOMPARE(PrinterOptions::defaultColumns, 1);
    QCOMPARE(PrinterOptions::defaultBrightness, 100);
    QCOMPARE(PrinterOptions::defaultGamma, 1000);
    QCOMPARE(PrinterOptions::defaultHue, 0);
    QCOMPARE(PrinterOptions::defaultSaturation, 100);
    QCOMPARE(PrinterOptions::defaultResolution, 128);
    QCOMPARE(PrinterOptions::defaultScaling, 100);
}

void tst_PrinterOptions::destructorIsVirtual()
{
    QVERIFY(std::has_virtual_destructor_v<PrinterOptions>);
}

void tst_PrinterOptions::setOption()
{
    PrinterOptions options;
    QVERIFY(options.setOption(QStringLiteral("b"), QStringLiteral("2")));
    QVERIFY(options.setOption(QStringLiteral("a"), QString()));
    QCOMPARE(entriesOf(options), words("a= b=2"));
    QCOMPARE(arrayOf(options), words("a= b=2"));
}

void tst_PrinterOptions::setOptionReplaces()
{
    PrinterOptions options = withOptions(words("a=1 b=2"));
    QVERIFY(options.setOption(QStringLiteral("a"), QStringLiteral("3")));
    QCOMPARE(entriesOf(options), words("a=3 b=2"));
    QCOMPARE(arrayOf(options), words("a=3 b=2"));
}

void tst_PrinterOptions::setOptionWithPpd()
{
    PrinterOptions options = withPpd();
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("None"));
    QVERIFY(options.setOption(duplex, QStringLiteral("DuplexNoTumble")));
    QCOMPARE(options[duplex], QStringLiteral("DuplexNoTumble"));
    QCOMPARE(options.cupsOptions().value("Duplex"), "DuplexNoTumble");
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexNoTumble"));
}

void tst_PrinterOptions::setOptionMarksAsTheLibraryDoes()
{
    PrinterOptions options = withPpd();
    QVERIFY(options.setOption(QStringLiteral("sides"), QStringLiteral("two-sided-short-edge")));
    QVERIFY(options.setOption(QStringLiteral("media"), QStringLiteral("Letter")));
    // One pair at a time: neither mark depends on the options set before.
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexTumble"));
    QCOMPARE(markedChoice(options.ppd(), "PageSize"), QStringLiteral("Letter"));
    // A choice that the PPD does not have leaves its mark where it is.
    QVERIFY(options.setOption(duplex, QStringLiteral("Nowhere")));
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexTumble"));
    QCOMPARE(options[duplex], QStringLiteral("Nowhere"));
}

void tst_PrinterOptions::setOptionEncodesLocally()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("job-title"), QStringLiteral("ä €"));
    QCOMPARE(options.cupsOptions().value("job-title"), "\xc3\xa4 \xe2\x82\xac");
}

void tst_PrinterOptions::setOptionWithoutName()
{
    PrinterOptions options;
    QVERIFY(options.setOption(QString(), QStringLiteral("1")));
    QCOMPARE(options.cupsOptions().count(), 0);

    options.usePPD(TestSupport::openMarksPpd());
    QTest::ignoreMessage(QtWarningMsg, "cupsAddOption failed:");
    QVERIFY(!options.setOption(QString(), QStringLiteral("2")));
    QCOMPARE(options[QString()], QStringLiteral("2"));
}

void tst_PrinterOptions::valuePrefersTheMark()
{
    PrinterOptions options = withPpd();
    options.insert(pageSize, QStringLiteral("Letter"));
    QCOMPARE(options.value(pageSize, other), QStringLiteral("A4"));

    options.insert(QStringLiteral("free"), QStringLiteral("text"));
    QCOMPARE(options.value(QStringLiteral("free"), other), QStringLiteral("text"));
    QCOMPARE(options.value(QStringLiteral("missing"), other), other);
    QVERIFY(options.value(QStringLiteral("missing"), QString()).isNull());
    // An option of the PPD without a mark is answered by the table.
    options.insert(QStringLiteral("Undefined"), QStringLiteral("x"));
    QCOMPARE(options.value(QStringLiteral("Undefined"), other), QStringLiteral("x"));

    options.closePPD();
    QCOMPARE(options.value(pageSize, other), QStringLiteral("Letter"));
}

void tst_PrinterOptions::intValue_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("number");
    QTest::newRow("number") << QStringLiteral("12") << 12;
    QTest::newRow("negative") << QStringLiteral("-12") << -12;
    QTest::newRow("leading zero") << QStringLiteral("012") << 12;
    QTest::newRow("text") << QStringLiteral("abc") << 77;
    QTest::newRow("mixed") << QStringLiteral("1a") << 77;
    QTest::newRow("fraction") << QStringLiteral("1.0") << 77;
    QTest::newRow("too large") << QStringLiteral("99999999999") << 77;
    QTest::newRow("empty") << QStringLiteral("") << 77;
}

void tst_PrinterOptions::intValue()
{
    QFETCH(QString, value);
    PrinterOptions options;
    const QString name = QStringLiteral("number-up");
    QCOMPARE(options.intValue(name, 77), 77);
    options.setOption(name, value);
    QTEST(options.intValue(name, 77), "number");
}

void tst_PrinterOptions::intValueOfAMark()
{
    PrinterOptions options = withPpd();
    std::strcpy(ppdFindMarkedChoice(options.ppd(), "Plainly")->choice, "3");
    QCOMPARE(options.intValue(QStringLiteral("Plainly"), 77), 3);
}

void tst_PrinterOptions::valueAsTextOfAMark()
{
    PrinterOptions options = withPpd();
    options.setOption(mediaType, QStringLiteral("Glossy"));
    QCOMPARE(options.valueAsText(mediaType), QStringLiteral("Fotopapier, glänzend"));
    QCOMPARE(options.valueAsText(pageSize), QStringLiteral("A4 (210 × 297 mm)"));
    // Not only the two options that have a map.
    QCOMPARE(options.valueAsText(duplex), QStringLiteral("Off"));
}

void tst_PrinterOptions::valueAsTextOfTheMap()
{
    PrinterOptions options = withPpd();
    options.closePPD();
    QCOMPARE(options.valueAsText(pageSize), QStringLiteral("A4 (210 × 297 mm)"));
    options.setOption(pageSize, QStringLiteral("Unheard"));
    QVERIFY(options.valueAsText(pageSize).isNull());
}

void tst_PrinterOptions::valueAsTextFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("open");
    QTest::newRow("unknown option, PPD open") << QStringLiteral("missing") << true;
    QTest::newRow("unknown option") << QStringLiteral("missing") << false;
    QTest::newRow("no map") << QStringLiteral("free") << false;
    QTest::newRow("no map, PPD open") << QStringLiteral("free") << true;
    QTest::newRow("empty value") << pageSize << false;
}

void tst_PrinterOptions::valueAsTextFails()
{
    QFETCH(QString, name);
    QFETCH(bool, open);
    PrinterOptions options = withPpd();
    options.setOption(QStringLiteral("free"), QStringLiteral("text"));
    if (!open) {
        options.closePPD();
        options.setOption(pageSize, QString());
    }
    QTest::ignoreMessage(QtWarningMsg, "Failed to get value as text");
    QVERIFY(options.valueAsText(name).isNull());
}

void tst_PrinterOptions::setValueAsText()
{
    PrinterOptions options = withPpd();
    QVERIFY(options.setValueAsText(mediaType, QStringLiteral("Fotopapier, glänzend")));
    QCOMPARE(options[mediaType], QStringLiteral("Glossy"));
    QCOMPARE(options.cupsOptions().value("MediaType"), "Glossy");
    QCOMPARE(markedChoice(options.ppd(), "MediaType"), QStringLiteral("Glossy"));
}

void tst_PrinterOptions::setValueAsTextWithoutPpd()
{
    PrinterOptions options = withPpd();
    options.closePPD();
    QVERIFY(options.setValueAsText(pageSize, QStringLiteral("Letter")));
    QCOMPARE(options[pageSize], QStringLiteral("Letter"));
}

void tst_PrinterOptions::setValueAsTextWithoutMap()
{
    PrinterOptions options = withPpd();
    const QStringList before = entriesOf(options);
    QTest::ignoreMessage(QtWarningMsg, "Failed to set value by text");
    QVERIFY(!options.setValueAsText(duplex, QStringLiteral("Off")));
    QCOMPARE(entriesOf(options), before);
}

void tst_PrinterOptions::setValueAsTextOfUnknownText()
{
    PrinterOptions options = withPpd();
    const QStringList before = entriesOf(options);
    QTest::ignoreMessage(QtWarningMsg, "Failed to set value by text: can't map text to key");
    QVERIFY(!options.setValueAsText(pageSize, QStringLiteral("A4")));
    QCOMPARE(entriesOf(options), before);
}

void tst_PrinterOptions::choicesOfThePpd()
{
    PrinterOptions options = withPpd();
    QCOMPARE(options.choices(mediaType),
             (QStringList{QStringLiteral("Plain"), QStringLiteral("Fotopapier, glänzend")}));
    QCOMPARE(options.choices(duplex),
             (QStringList{QStringLiteral("Off"), QStringLiteral("Long Edge"),
                          QStringLiteral("Short Edge")}));
    QCOMPARE(options.choices(QStringLiteral("missing")), QStringList());
}

void tst_PrinterOptions::choicesOfTheMap()
{
    PrinterOptions options = withPpd();
    options.closePPD();
    QCOMPARE(options.choices(pageSize),
             (QStringList{QStringLiteral("A4 (210 × 297 mm)"), QStringLiteral("Letter"),
                          QStringLiteral("Custom")}));
    QCOMPARE(options.choices(duplex), QStringList());

    // With a PPD open that lacks the option, the map of an earlier one does not answer.
    const Cups::PpdPtr ppd = TestSupport::openMarksPpd();
    options.usePPD(ppd);
    cupsArrayRemove(ppd->options, ppdFindOption(ppd.get(), "MediaType"));
    QCOMPARE(options.choices(mediaType), QStringList());
}

void tst_PrinterOptions::removeOption()
{
    PrinterOptions options = withOptions(words("a=1 b=2"));
    options.removeOption(QStringLiteral("a"));
    QCOMPARE(entriesOf(options), words("b=2"));
    QCOMPARE(arrayOf(options), words("a=a- b=2"));

    options.removeOption(QStringLiteral("c"));
    QCOMPARE(entriesOf(options), words("b=2"));
    QCOMPARE(arrayOf(options), words("a=a- b=2 c=c-"));
}

void tst_PrinterOptions::removeOptionOfThePpd()
{
    PrinterOptions options = withPpd();
    options.setOption(duplex, QStringLiteral("DuplexTumble"));
    options.removeOption(duplex);
    QVERIFY(!options.contains(duplex));
    QCOMPARE(options.cupsOptions().value("Duplex"), "Duplex-");
    // The library knows no choice "Duplex-": the mark stays.
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexTumble"));
}

void tst_PrinterOptions::setOptions()
{
    PrinterOptions options = withPpd();
    options.setOptions(tableOf(words("Duplex=DuplexTumble a=1")));
    QCOMPARE(options[duplex], QStringLiteral("DuplexTumble"));
    QCOMPARE(options[QStringLiteral("a")], QStringLiteral("1"));
    QCOMPARE(options.cupsOptions().value("a"), "1");
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexTumble"));
    // What was there before stays.
    QCOMPARE(options[pageSize], QStringLiteral("A4"));
}

void tst_PrinterOptions::setOptionsResolvesMedia_data()
{
    QTest::addColumn<QString>("media");
    QTest::addColumn<QStringList>("left");

    const auto row = [](const char *media, const char *left) {
        QTest::newRow(media) << QString::fromLatin1(media) << words(left);
    };
    row("A4", "InputSlot MediaType media");
    row("A4.Plain", "InputSlot media");
    row("A4.Plain.Tray1", "media");
    row("A4.Plain.Tray1.More", "media");
    row("..A4..Plain.", "InputSlot media");
    row("", "InputSlot MediaType PageSize media");
    row("...", "InputSlot MediaType PageSize media");
    row("A4,Plain", "InputSlot MediaType media");
}

void tst_PrinterOptions::setOptionsResolvesMedia()
{
    QFETCH(QString, media);
    PrinterOptions options;
    QMap<QString, QString> table = tableOf(words("InputSlot=i MediaType=m PageSize=p"));
    table.insert(QStringLiteral("media"), media);
    options.setOptions(table);
    QTEST(options.keys(), "left");
}

void tst_PrinterOptions::setOptionsResolvesMediaInTheTableOnly()
{
    PrinterOptions options = withPpd();
    options.setOption(QStringLiteral("media"), QStringLiteral("Letter.Glossy.Tray2"));
    options.setOptions(tableOf(words("InputSlot=Tray2 MediaType=Glossy PageSize=Letter")));
    for (const char *name : {"InputSlot", "MediaType", "PageSize"}) {
        QVERIFY(!options.contains(QLatin1String(name)));
        QVERIFY(options.hasCupsOption(QLatin1String(name)));
    }
    QCOMPARE(markedChoice(options.ppd(), "PageSize"), QStringLiteral("Letter"));
    QCOMPARE(markedChoice(options.ppd(), "MediaType"), QStringLiteral("Glossy"));
    QCOMPARE(markedChoice(options.ppd(), "InputSlot"), QStringLiteral("Tray2"));
}

void tst_PrinterOptions::clearCupsOptions()
{
    PrinterOptions options = withPpd();
    options.setDestination(QStringLiteral("Laser"));
    options.setOption(duplex, QStringLiteral("DuplexTumble"));
    options.clearCupsOptions();
    QVERIFY(options.isEmpty());
    QCOMPARE(options.cupsOptions().count(), 0);
    // Neither the PPD nor the destination is touched, and the set can be filled again.
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexTumble"));
    QCOMPARE(options.destination(), QStringLiteral("Laser"));
    options.setOption(QStringLiteral("a"), QStringLiteral("1"));
    QCOMPARE(arrayOf(options), words("a=1"));
}

void tst_PrinterOptions::usePpdMarksDefaultsThenOptions()
{
    PrinterOptions options = withOptions(words("Duplex=DuplexTumble MediaType=Glossy"));
    const Cups::PpdPtr ppd = TestSupport::openMarksPpd();
    ppdMarkOption(ppd.get(), "InputSlot", "Tray2");
    ppdMarkOption(ppd.get(), "MediaType", "Plain");
    options.usePPD(ppd);
    QCOMPARE(options.ppd(), ppd.get());
    QCOMPARE(markedChoice(options.ppd(), "InputSlot"), QStringLiteral("Tray1"));
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexTumble"));
    QCOMPARE(markedChoice(options.ppd(), "MediaType"), QStringLiteral("Glossy"));
}

void tst_PrinterOptions::usePpdTakesTheMarkedChoicesOver()
{
    PrinterOptions options = withOptions(words("MediaType=Glossy copies=2"));
    options.usePPD(TestSupport::openMarksPpd());
    QCOMPARE(entriesOf(options), words("MediaType=Glossy PageSize=A4 copies=2"));
    QCOMPARE(arrayOf(options), words("copies=2 MediaType=Glossy PageSize=A4"));
}

void tst_PrinterOptions::usePpdKeepsCustomPageSize()
{
    PrinterOptions options = withOptions(words("PageSize=Custom.300x400"));
    options.usePPD(TestSupport::openMarksPpd());
    QCOMPARE(options[pageSize], QStringLiteral("Custom"));
    const ppd_size_t *size = ppdPageSize(options.ppd(), nullptr);
    QVERIFY(size);
    QCOMPARE(size->width, 300.0F);
    QCOMPARE(size->length, 400.0F);
}

void tst_PrinterOptions::usePpdReadsPointsInEveryLocale()
{
    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    PrinterOptions options = withOptions(words("PageSize=Custom.300.5x400.25 AReal=Custom.-1.25"));
    options.usePPD(TestSupport::openMarksPpd());
    QCOMPARE(ppdPageSize(options.ppd(), nullptr)->width, 300.5F);
    ppd_coption_t *real = ppdFindCustomOption(options.ppd(), "AReal");
    QCOMPARE(ppdFindCustomParam(real, "Real")->current.custom_real, -1.25F);
}

void tst_PrinterOptions::usePpdOfNull()
{
    PrinterOptions options = withPpd();
    options.usePPD(nullptr);
    QVERIFY(!options.ppd());
    QCOMPARE(entriesOf(options), words("MediaType=Plain PageSize=A4"));
}

void tst_PrinterOptions::closePpd()
{
    PrinterOptions options = withPpd();
    options.closePPD();
    QVERIFY(!options.ppd());
    options.closePPD();
    QVERIFY(!options.hasOption(duplex));
    QVERIFY(options.setOption(duplex, QStringLiteral("None")));
}

void tst_PrinterOptions::copyConstruction()
{
    PrinterOptions options = withPpd();
    options.setDestination(QStringLiteral("Laser/draft"));
    options.setVolatileOptions(words("x y"));
    options.setOption(QStringLiteral("b"), QStringLiteral("2"));
    options.removeOption(QStringLiteral("a"));

    PrinterOptions copy(options);
    QCOMPARE(entriesOf(copy), entriesOf(options));
    QCOMPARE(arrayOf(copy), arrayOf(options));
    QCOMPARE(copy.ppd(), options.ppd());
    QCOMPARE(copy.destination(), options.destination());
    QCOMPARE(copy.volatileOptions(), options.volatileOptions());
    QVERIFY(copy.setValueAsText(pageSize, QStringLiteral("Letter")));

    // The two go on apart, except for the marks of the PPD that they share.
    copy.setOption(QStringLiteral("b"), QStringLiteral("3"));
    QCOMPARE(options[QStringLiteral("b")], QStringLiteral("2"));
    QCOMPARE(options.cupsOptions().value("b"), "2");
    QCOMPARE(options.value(pageSize, QString()), QStringLiteral("Letter"));
}

void tst_PrinterOptions::copySharesThePpd()
{
    auto first = std::make_unique<PrinterOptions>(withPpd());
    auto second = std::make_unique<PrinterOptions>(*first);
    PrinterOptions third;
    third = *second;
    first.reset();
    QCOMPARE(markedChoice(second->ppd(), "PageSize"), QStringLiteral("A4"));
    second->closePPD();
    second.reset();
    QCOMPARE(markedChoice(third.ppd(), "PageSize"), QStringLiteral("A4"));
    third.closePPD();
    QVERIFY(!third.ppd());
}

void tst_PrinterOptions::assignment()
{
    PrinterOptions source = withPpd();
    source.setDestination(QStringLiteral("Laser"));
    source.setVolatileOptions(words("x"));
    source.setOption(QStringLiteral("a"), QStringLiteral("1"));
    PrinterOptions target = withOptions(words("old=1"));
    target.setDestination(QStringLiteral("Photo"));
    target.setVolatileOptions(words("y"));

    PrinterOptions &result = (target = source);
    QCOMPARE(&result, &target);
    QCOMPARE(entriesOf(target), words("MediaType=Plain PageSize=A4 a=1"));
    QCOMPARE(arrayOf(target), words("a=1 MediaType=Plain PageSize=A4"));
    QCOMPARE(target.ppd(), source.ppd());
    QCOMPARE(target.destination(), QStringLiteral("Laser"));
    QCOMPARE(target.volatileOptions(), words("x"));
}

void tst_PrinterOptions::assignmentToItself()
{
    PrinterOptions options = withPpd();
    options.removeOption(QStringLiteral("a"));
    const QStringList array = arrayOf(options);
    const PrinterOptions &same = options;
    options = same;
    QCOMPARE(arrayOf(options), array);
    QVERIFY(options.ppd());
}

void tst_PrinterOptions::assignmentMarksTheCurrentPpd()
{
    const Cups::PpdPtr old = TestSupport::openMarksPpd();
    PrinterOptions target;
    target.usePPD(old);
    PrinterOptions source = withPpd();
    source.setOption(duplex, QStringLiteral("DuplexTumble"));
    source.setOption(pageSize, QStringLiteral("Letter"));

    target = source;
    QCOMPARE(markedChoice(old.get(), "Duplex"), QStringLiteral("DuplexTumble"));
    QCOMPARE(markedChoice(old.get(), "PageSize"), QStringLiteral("Letter"));
    QCOMPARE(target.ppd(), source.ppd());

    // In name order: the later of two options that mark the same thing has the last word.
    const Cups::PpdPtr again = TestSupport::openMarksPpd();
    target.usePPD(again);
    target = withOptions(words("sides=two-sided-long-edge Duplex=DuplexTumble"));
    QCOMPARE(markedChoice(again.get(), "Duplex"), QStringLiteral("DuplexNoTumble"));
    QVERIFY(!target.ppd());
}

void tst_PrinterOptions::assignmentAppliesTheTable()
{
    PrinterOptions source = withOptions(words("b=2 c=3"));
    source.removeOption(QStringLiteral("b"));
    PrinterOptions target;
    target = source;
    QCOMPARE(arrayOf(target), words("c=3"));
}

void tst_PrinterOptions::assignmentTakesTheTextMapsOver()
{
    PrinterOptions target;
    target = withPpd();
    QVERIFY(target.setValueAsText(pageSize, QStringLiteral("Letter")));
    target = PrinterOptions();
    QTest::ignoreMessage(QtWarningMsg, "Failed to set value by text");
    QVERIFY(!target.setValueAsText(pageSize, QStringLiteral("Letter")));
}

void tst_PrinterOptions::copyMediaOptions()
{
    const PrinterOptions source =
        withOptions(words("media=m PageSize=p MediaType=t InputSlot=i sides=s"));
    PrinterOptions target = withOptions(words("PageSize=old copies=2"));
    target.copyMediaOptions(source);
    QCOMPARE(entriesOf(target), words("InputSlot=i MediaType=t PageSize=p copies=2 media=m"));
    QCOMPARE(arrayOf(target), words("copies=2 InputSlot=i media=m MediaType=t PageSize=p"));

    target.copyMediaOptions(withOptions(words("MediaType=new")));
    QCOMPARE(entriesOf(target), words("InputSlot=i MediaType=new PageSize=p copies=2 media=m"));
}

void tst_PrinterOptions::copyMediaOptionsOfATable()
{
    // What the source holds in its table counts, not what its PPD has marked.
    PrinterOptions source = withPpd();
    source.remove(pageSize);
    PrinterOptions target;
    target.copyMediaOptions(source);
    QCOMPARE(entriesOf(target), words("MediaType=Plain"));
}

void tst_PrinterOptions::hasOptions()
{
    PrinterOptions options = withPpd();
    QVERIFY(!options.hasCupsOption(duplex));
    QVERIFY(options.hasOption(duplex));
    QVERIFY(!options.hasOption(QStringLiteral("copies")));
    options.setOption(QStringLiteral("copies"), QStringLiteral("2"));
    QVERIFY(options.hasCupsOption(QStringLiteral("copies")));
    QVERIFY(options.hasOption(QStringLiteral("copies")));
    // The table alone does not count.
    options.insert(QStringLiteral("table"), QString());
    QVERIFY(!options.hasOption(QStringLiteral("table")));
    options.closePPD();
    QVERIFY(!options.hasOption(duplex));
    QVERIFY(options.hasOption(pageSize));
}

void tst_PrinterOptions::volatileOptions()
{
    PrinterOptions options;
    options.setVolatileOptions(words("a b"));
    options.setVolatileOptions(words("c"));
    QCOMPARE(options.volatileOptions(), words("c"));
}

void tst_PrinterOptions::describe()
{
    PrinterOptions options = withOptions(words("b=%1 a=1"));
    options.removeOption(QStringLiteral("c"));
    QCOMPARE(options.describe(),
             QStringLiteral("map(2):\n\t<a>=<1>\n\t<b>=<%1>\n"
                            "cupsOptions(3):\n\t<a>=<1>\n\t<b>=<%1>\n\t<c>=<c->\n"
                            "ppdOptions(0):\n\t"));
}

void tst_PrinterOptions::describeEmpty()
{
    QCOMPARE(PrinterOptions().describe(),
             QStringLiteral("map(0):\n\t\ncupsOptions(0):\n\t\nppdOptions(0):\n\t"));
}

void tst_PrinterOptions::describeWithPpd()
{
    PrinterOptions options = withPpd();
    options.setOption(duplex, QStringLiteral("DuplexTumble"));
    const QString text = options.describe();
    QVERIFY2(text.startsWith(QStringLiteral("map(3):\n\t<Duplex>=<DuplexTumble>\n")),
             qPrintable(text));
    const QString ppdPart = text.mid(text.indexOf(QStringLiteral("\nppdOptions(")));
    QCOMPARE(ppdPart,
             QStringLiteral("\nppdOptions(16):\n\tPageSize=A4\n\tMediaType=Plain\n\t"
                            "Duplex=DuplexTumble\n\tInputSlot=Tray1\n\tManualFeed=False\n\t"
                            "Extras=Dotss in colour\n\tPlainly=Standard\n\tACurve=None\n\t"
                            "AnInt=None\n\tAnInvCurve=None\n\tAPasscode=None\n\t"
                            "APassword=None\n\tAPoints=None\n\tAReal=None\n\t"
                            "AString=None\n\tSeveral=None"));
}

void tst_PrinterOptions::invalidDestination_data()
{
    QTest::addColumn<QString>("destination");
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("null") << QString();
    QTest::newRow("instance alone") << QStringLiteral("/inst");
    QTest::newRow("slash") << QStringLiteral("/");
}

void tst_PrinterOptions::invalidDestination()
{
    QFETCH(QString, destination);
    PrinterOptions options = withOptions(words("a=1"));
    options.setDestination(QStringLiteral("before"));
    const QByteArray warning = '<' + destination.toLocal8Bit() + "> - invalid destination";
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    QVERIFY(!options.load(destination));
    QTest::ignoreMessage(QtWarningMsg, warning.constData());
    QVERIFY(!options.save(destination));
    QCOMPARE(options.destination(), QStringLiteral("before"));
    QCOMPARE(entriesOf(options), words("a=1"));
}

void tst_PrinterOptions::openPpdWithoutDestination()
{
    PrinterOptions options = withPpd();
    QVERIFY(!options.openPPD());
    QVERIFY(!options.ppd());
}

void tst_PrinterOptions::unreachableServer()
{
    PrinterOptions options = withOptions(words("a=1"));
    QVERIFY(!options.load(QStringLiteral("Laser")));
    QCOMPARE(options.destination(), QString());
    options.setDestination(QStringLiteral("Laser"));
    QVERIFY(!options.openPPD());
    QCOMPARE(entriesOf(options), words("a=1"));
}

void tst_PrinterOptions::logIsTruncatedAtStart()
{
    QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkpath(QStringLiteral("var/tmp")));
    QFile log(root.filePath(QStringLiteral("var/tmp/PrinterOptions.log")));
    QVERIFY(log.open(QIODevice::WriteOnly));
    QCOMPARE(log.write("of an earlier run\n"), 18);
    log.close();

    QProcess self;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VESK_RELOCATED_ROOT"), root.path());
    self.setProcessEnvironment(environment);
    self.start(QCoreApplication::applicationFilePath(), {QStringLiteral("-functions")});
    QVERIFY(self.waitForFinished());
    QCOMPARE(self.exitCode(), 0);
    QVERIFY(log.exists());
    QCOMPARE(log.size(), 0);
}

QTEST_GUILESS_MAIN(tst_PrinterOptions)
#include "tst_printeroptions.moc"
