#include "PrinterOptions.h"

#include "DecimalCommaLocale.h"
#include "OptionsTestSupport.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using TestSupport::arrayOf;
using TestSupport::entriesOf;
using TestSupport::markedChoice;
using TestSupport::words;

namespace
{
/** What one saved destination is before each test, as the user's own file has it. */
constexpr char initialFile[] = "Dest Laser/draft Duplex=DuplexNoTumble InputSlot=Tray2 "
                               "Resolution=300dpi\n";

QString inHome(const char *name)
{
    return QDir::homePath() + QLatin1Char('/') + QLatin1String(name);
}

QString savedOptionsFile()
{
    return inHome(".cups/lpoptions");
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}

/** Runs a program, which must succeed, and returns what it printed. */
QByteArray run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/** Options in the syntax of a saved-options file, as "name=value" in name order. */
QStringList parsed(const QByteArray &text)
{
    Cups::OptionArray options;
    options.parse(text.constData());
    QStringList entries;
    for (const cups_option_t &option : options)
        entries.append(QString::fromLatin1(option.name) + QLatin1Char('=') +
                       QString::fromLocal8Bit(option.value));
    return sorted(entries);
}

/** What `lpoptions -p` prints for the destination. */
QStringList printedOptions(const QString &destination)
{
    return parsed(run(QStringLiteral("lpoptions"), {QStringLiteral("-p"), destination}).trimmed());
}

/** The options on the line of the saved-options file for the destination; empty without a line. */
QStringList fileOptions(const QByteArray &destination)
{
    for (const QByteArray &line : contentsOf(savedOptionsFile()).split('\n')) {
        for (const QByteArray &start : {"Dest " + destination, "Default " + destination}) {
            if (line == start || line.startsWith(start + ' '))
                return parsed(line.mid(start.size()).trimmed());
        }
    }
    return {};
}

/** Of `entries`, those that are not among the options that the server gives the destination. */
QStringList without(QStringList entries, const QStringList &dropped)
{
    entries.removeIf([&](const QString &entry) { return dropped.contains(entry); });
    return entries;
}

PrinterOptions loaded(const QString &destination)
{
    PrinterOptions options;
    if (!options.load(destination))
        qFatal("cannot load %s", qPrintable(destination));
    return options;
}

/** With the PPD open. */
PrinterOptions opened(const QString &destination)
{
    PrinterOptions options = loaded(destination);
    if (!options.openPPD() || !options.ppd())
        qFatal("cannot open the PPD of %s", qPrintable(destination));
    return options;
}

/** Makes the server unreachable while it lives. */
class ServerDown
{
public:
    ServerDown()
        : m_server(cupsServer())
    {
        cupsSetServer("/nonexistent/cups.sock");
    }
    ServerDown(const ServerDown &) = delete;
    ServerDown &operator=(const ServerDown &) = delete;
    ~ServerDown() { cupsSetServer(m_server.constData()); }

private:
    QByteArray m_server;
};

const QString plain = QStringLiteral("Plain");
const QString laser = QStringLiteral("Laser");
const QString photo = QStringLiteral("Photo");
const QString draft = QStringLiteral("Laser/draft");
} // namespace

/** The option set with the private world's server and the saved options of its user. */
class tst_PrinterOptionsServer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void loadGivesWhatLpoptionsPrints_data();
    void loadGivesWhatLpoptionsPrints();
    void loadUnknown_data();
    void loadUnknown();
    void loadWithoutServer();
    void loadAddsToTheSet();
    void loadsWhatLpoptionsWrote();
    void loadsVolatileOptions();
    void saveIsWhatLpoptionsPrints();
    void saveKeepsEveryCharacter_data();
    void saveKeepsEveryCharacter();
    void saveEscapesForTheLibrary();
    void saveLeavesLineFeedsOut();
    void saveReplacesWhatWasSaved();
    void saveLoadSave_data();
    void saveLoadSave();
    void saveOfAnInstance();
    void saveOfANewInstance();
    void saveKeepsOtherDestinations();
    void saveKeepsTheDefault();
    void saveWithoutServerChangesNothing();
    void saveSkipsRemovedOptions();
    void saveWritesVolatileOptions();
    void saveWritesTheMarksOfThePpd();
    void saveLeavesDefaultsOut();
    void saveNeverWritesDuplexAndPageRegion();
    void saveWritesNothingForAnOptionWithoutMark();
    void savePrefersTheMarkToTheArray();
    void saveWritesSeveralChoices();
    void saveWritesCustomValues_data();
    void saveWritesCustomValues();
    void savedCustomValuesMarkAgain_data();
    void savedCustomValuesMarkAgain();
    void savesPointsInEveryLocale();
    void saveLogsUnknownTypes();
    void saveWithoutPpdWritesPpdOptions();
    void openPpdOfAPrinter();
    void openPpdOfAnInstance();
    void openPpdMarksSavedOptions();
    void openPpdOfAPrinterWithoutPpd();
    void openPpdOfAnUnknownDestination();
    void openPpdOfAClass();
    void openPpdOfAClassWithoutPpd();
    void openPpdWithoutServer();
    void openPpdAgain();
    void openPpdWithADownloadedFile();
    void copiesCloseOnce();

private:
    static QString temporaryFolder() { return qEnvironmentVariable("TMPDIR"); }
    static QStringList temporaryFiles();

    QStringList m_temporaryFiles;
};

void tst_PrinterOptionsServer::initTestCase()
{
    // Everything below changes saved options and queues: never outside a private world.
    QVERIFY2(qEnvironmentVariableIsSet("VESK_WORLD"), "start this test with world/world");
    QVERIFY(QDir::homePath().startsWith(qEnvironmentVariable("VESK_WORLD")));
    QVERIFY(!temporaryFolder().isEmpty());
    // Built now: later its folder would be taken for a file that was left behind.
    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    m_temporaryFiles = temporaryFiles();
}

void tst_PrinterOptionsServer::init()
{
    QVERIFY(writeFile(savedOptionsFile(), initialFile));
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_PrinterOptionsServer::cleanup()
{
    QCOMPARE(temporaryFiles(), m_temporaryFiles);
}

QStringList tst_PrinterOptionsServer::temporaryFiles()
{
    return QDir(temporaryFolder())
        .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
}

void tst_PrinterOptionsServer::loadGivesWhatLpoptionsPrints_data()
{
    QTest::addColumn<QString>("destination");
    for (const char *name :
         {"Laser", "Photo", "Plain", "Stopped", "Rejecting", "Office", "Laser/draft"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_PrinterOptionsServer::loadGivesWhatLpoptionsPrints()
{
    QFETCH(QString, destination);
    PrinterOptions options;
    QVERIFY(options.load(destination));
    QCOMPARE(options.destination(), destination);
    QCOMPARE(sorted(entriesOf(options)), printedOptions(destination));
    QCOMPARE(sorted(arrayOf(options)), sorted(entriesOf(options)));
    QVERIFY(!options.ppd());
}

void tst_PrinterOptionsServer::loadUnknown_data()
{
    QTest::addColumn<QString>("destination");
    QTest::newRow("printer") << QStringLiteral("Nowhere");
    QTest::newRow("instance") << QStringLiteral("Laser/nowhere");
    QTest::newRow("instance of another printer") << QStringLiteral("Photo/draft");
}

void tst_PrinterOptionsServer::loadUnknown()
{
    QFETCH(QString, destination);
    PrinterOptions options = loaded(plain);
    const QStringList before = entriesOf(options);
    QVERIFY(!options.load(destination));
    QCOMPARE(options.destination(), plain);
    QCOMPARE(entriesOf(options), before);
}

void tst_PrinterOptionsServer::loadWithoutServer()
{
    PrinterOptions options;
    {
        const ServerDown down;
        QVERIFY(!options.load(laser));
    }
    QVERIFY(options.isEmpty());
    QVERIFY(options.load(laser));
}

void tst_PrinterOptionsServer::loadAddsToTheSet()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("own"), QStringLiteral("1"));
    options.setOption(QStringLiteral("InputSlot"), QStringLiteral("Tray1"));
    QVERIFY(options.load(draft));
    QCOMPARE(options[QStringLiteral("own")], QStringLiteral("1"));
    QCOMPARE(options[QStringLiteral("InputSlot")], QStringLiteral("Tray2"));
}

void tst_PrinterOptionsServer::loadsWhatLpoptionsWrote()
{
    run(QStringLiteral("lpoptions"),
        {QStringLiteral("-p"), plain, QStringLiteral("-o"),
         QStringLiteral("sides=two-sided-long-edge"), QStringLiteral("-o"),
         QStringLiteral("job-title='ä \"quoted\" $title'"), QStringLiteral("-o"),
         QStringLiteral("page-ranges=1-4,7"), QStringLiteral("-o"), QStringLiteral("landscape")});
    const PrinterOptions options = loaded(plain);
    QCOMPARE(options[QStringLiteral("sides")], QStringLiteral("two-sided-long-edge"));
    QCOMPARE(options[QStringLiteral("job-title")], QStringLiteral("ä \"quoted\" $title"));
    QCOMPARE(options[QStringLiteral("page-ranges")], QStringLiteral("1-4,7"));
    QCOMPARE(options[QStringLiteral("landscape")], QStringLiteral("true"));
    QCOMPARE(sorted(entriesOf(options)), printedOptions(plain));
}

void tst_PrinterOptionsServer::loadsVolatileOptions()
{
    run(QStringLiteral("lpoptions"),
        {QStringLiteral("-p"), plain, QStringLiteral("-o"),
         QStringLiteral("volatile-qfax-number=12 34"), QStringLiteral("-o"),
         QStringLiteral("volatile-qfax=on"), QStringLiteral("-o"), QStringLiteral("volatile-foo=1"),
         QStringLiteral("-o"), QStringLiteral("volatile-=2")});
    const PrinterOptions options = loaded(plain);
    QCOMPARE(options.value(QStringLiteral("qfax-number"), QString()), QStringLiteral("12"));
    QCOMPARE(options.value(QStringLiteral("qfax"), QString()), QStringLiteral("on"));
    QCOMPARE(options.value(QStringLiteral("volatile-foo"), QString()), QStringLiteral("1"));
    QCOMPARE(options.value(QStringLiteral("volatile-"), QString()), QStringLiteral("2"));
    QVERIFY(!options.contains(QStringLiteral("volatile-qfax-number")));
    QVERIFY(!options.contains(QStringLiteral("foo")));
    QVERIFY(options.hasCupsOption(QStringLiteral("qfax-number")));
}

void tst_PrinterOptionsServer::saveIsWhatLpoptionsPrints()
{
    const QStringList fromServer = printedOptions(plain);
    PrinterOptions options;
    options.setOption(QStringLiteral("sides"), QStringLiteral("one-sided"));
    options.setOption(QStringLiteral("job-title"), QStringLiteral("ä \"q\" `b` $d x=y"));
    options.setOption(QStringLiteral("page-ranges"), QStringLiteral("1-4,7"));
    options.setOption(QStringLiteral("landscape"), QStringLiteral("true"));
    QVERIFY(options.save(plain));
    QCOMPARE(without(printedOptions(plain), fromServer), sorted(arrayOf(options)));
    QCOMPARE(fileOptions("Plain"), sorted(arrayOf(options)));
    // Saving does not load: neither the destination nor the set has changed.
    QCOMPARE(options.destination(), QString());
    QCOMPARE(options.size(), 4);
}

void tst_PrinterOptionsServer::saveKeepsEveryCharacter_data()
{
    QTest::addColumn<QString>("value");
    for (const char *value : {"two words",
                              "it's",
                              "\"quoted\"",
                              "back\\slash",
                              "`tick`",
                              "$dollar",
                              "a,b,c",
                              "x=y",
                              "{a=1 b=2}",
                              "100%",
                              "#1",
                              "1#",
                              "#1#2",
                              "back\\#slash",
                              "back\\\\#slash",
                              "two #words",
                              "it's #1",
                              "\"#\"",
                              "\xc3\xa4 \xe2\x82\xac",
                              " blanks ",
                              "a-"})
        QTest::newRow(value) << QString::fromUtf8(value);
}

void tst_PrinterOptionsServer::saveKeepsEveryCharacter()
{
    QFETCH(QString, value);
    PrinterOptions options;
    options.setOption(QStringLiteral("job-title"), value);
    options.setOption(QStringLiteral("zz"), QStringLiteral("last"));
    options.setOption(QStringLiteral("zy"), QStringLiteral("#2"));
    QVERIFY(options.save(plain));
    // Saving another destination changes nothing for this one.
    PrinterOptions other;
    other.setOption(QStringLiteral("other"), QStringLiteral("1"));
    QVERIFY(other.save(laser));
    const PrinterOptions again = loaded(plain);
    QCOMPARE(again[QStringLiteral("zy")], QStringLiteral("#2"));
    QCOMPARE(again[QStringLiteral("job-title")], value);
    QCOMPARE(again[QStringLiteral("zz")], QStringLiteral("last"));
}

/** The library's own reader understands it as well. */
void tst_PrinterOptionsServer::saveEscapesForTheLibrary()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("job-title"), QStringLiteral("a #1"));
    options.setOption(QStringLiteral("zy"), QStringLiteral("#2"));
    options.setOption(QStringLiteral("zz"), QStringLiteral("last"));
    QVERIFY(options.save(plain));
    const QStringList printed = printedOptions(plain);
    for (const char *option : {"job-title=a #1", "zy=#2", "zz=last"})
        QVERIFY2(printed.contains(QString::fromUtf8(option)), option);
}

void tst_PrinterOptionsServer::saveLeavesLineFeedsOut()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("job-title"), QStringLiteral("two\nDefault Photo"));
    options.setOption(QStringLiteral("zz"), QStringLiteral("last"));
    QTest::ignoreMessage(QtWarningMsg, "Destinations: <job-title> of <Plain> has more than one "
                                       "line and is not saved");
    QVERIFY(options.save(plain));
    QCOMPARE(fileOptions("Plain"), words("zz=last"));
    QVERIFY(!contentsOf(savedOptionsFile()).contains("Photo"));
}

void tst_PrinterOptionsServer::saveReplacesWhatWasSaved()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("a"), QStringLiteral("1"));
    options.setOption(QStringLiteral("b"), QStringLiteral("2"));
    QVERIFY(options.save(plain));
    PrinterOptions later;
    later.setOption(QStringLiteral("b"), QStringLiteral("3"));
    QVERIFY(later.save(plain));
    QCOMPARE(fileOptions("Plain"), words("b=3"));
}

void tst_PrinterOptionsServer::saveLoadSave_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<bool>("withPpd");
    for (const char *name : {"Laser", "Photo", "Plain", "Office", "Laser/draft"}) {
        QTest::addRow("%s", name) << QString::fromLatin1(name) << false;
        if (qstrcmp(name, "Plain") != 0)
            QTest::addRow("%s, PPD open", name) << QString::fromLatin1(name) << true;
    }
}

/** Load, change, save and load again give the same set, and so does each further round. */
void tst_PrinterOptionsServer::saveLoadSave()
{
    QFETCH(QString, destination);
    QFETCH(bool, withPpd);
    PrinterOptions first = loaded(destination);
    if (withPpd)
        QVERIFY(first.openPPD());
    first.setOption(QStringLiteral("number-up"), QStringLiteral("4"));
    first.setOption(QStringLiteral("job-title"), QStringLiteral("ä title"));
    first.setOption(QStringLiteral("Resolution"), QStringLiteral("1200dpi"));
    first.setOption(QStringLiteral("MediaType"), QStringLiteral("Plain"));
    QVERIFY(first.save(destination));

    const PrinterOptions second = loaded(destination);
    QCOMPARE(second[QStringLiteral("number-up")], QStringLiteral("4"));
    QCOMPARE(second[QStringLiteral("job-title")], QStringLiteral("ä title"));
    QCOMPARE(second[QStringLiteral("Resolution")], QStringLiteral("1200dpi"));
    if (!withPpd)
        QCOMPARE(entriesOf(second), entriesOf(first));

    PrinterOptions third(second);
    if (withPpd)
        QVERIFY(third.openPPD());
    const QByteArray file = contentsOf(savedOptionsFile());
    QVERIFY(third.save(destination));
    QCOMPARE(contentsOf(savedOptionsFile()), file);
    QCOMPARE(entriesOf(loaded(destination)), entriesOf(second));
}

void tst_PrinterOptionsServer::saveOfAnInstance()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("a"), QStringLiteral("1"));
    QVERIFY(options.save(draft));
    QCOMPARE(fileOptions("Laser/draft"), words("a=1"));
    QCOMPARE(fileOptions("Laser"), QStringList());
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"), words("a=1"));
    QCOMPARE(fileOptions("Laser/draft"), words("a=1"));
}

void tst_PrinterOptionsServer::saveOfANewInstance()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("a"), QStringLiteral("1"));
    QVERIFY(options.save(QStringLiteral("Photo/best")));
    QCOMPARE(loaded(QStringLiteral("Photo/best"))[QStringLiteral("a")], QStringLiteral("1"));
    QCOMPARE(fileOptions("Photo"), QStringList());
}

void tst_PrinterOptionsServer::saveKeepsOtherDestinations()
{
    QVERIFY(
        writeFile(savedOptionsFile(), QByteArray(initialFile) +
                                          "Dest Gone a=1 title=\"two words\"\nDest Gone/inst b=2\n"
                                          "Dest Photo MediaType=Glossy volatile-foo=1\n"
                                          "Dest Plain old=1\nDest Plain/kept c=3\n"));
    PrinterOptions options;
    options.setOption(QStringLiteral("new"), QStringLiteral("1"));
    QVERIFY(options.save(plain));

    QCOMPARE(fileOptions("Plain"), words("new=1"));
    QCOMPARE(fileOptions("Plain/kept"), words("c=3"));
    QCOMPARE(fileOptions("Laser/draft"),
             words("Duplex=DuplexNoTumble InputSlot=Tray2 Resolution=300dpi"));
    QCOMPARE(fileOptions("Photo"), words("MediaType=Glossy volatile-foo=1"));
    // Queues that the server does not know (any more).
    QCOMPARE(fileOptions("Gone"),
             (QStringList{QStringLiteral("a=1"), QStringLiteral("title=two words")}));
    QCOMPARE(fileOptions("Gone/inst"), words("b=2"));
}

void tst_PrinterOptionsServer::saveKeepsTheDefault()
{
    run(QStringLiteral("lpoptions"), {QStringLiteral("-d"), photo});
    QVERIFY(contentsOf(savedOptionsFile()).contains("Default Photo"));
    PrinterOptions options;
    options.setOption(QStringLiteral("a"), QStringLiteral("1"));
    QVERIFY(options.save(plain));
    QVERIFY(contentsOf(savedOptionsFile()).contains("Default Photo"));
    QVERIFY(options.save(photo));
    QVERIFY(contentsOf(savedOptionsFile()).contains("Default Photo a=1"));
}

void tst_PrinterOptionsServer::saveWithoutServerChangesNothing()
{
    QVERIFY(
        writeFile(savedOptionsFile(), QByteArray(initialFile) + "Dest Gone a=1\nDest Plain b=2\n"));
    const QByteArray before = contentsOf(savedOptionsFile());
    PrinterOptions options;
    options.setOption(QStringLiteral("c"), QStringLiteral("3"));
    const ServerDown down;
    QVERIFY(!options.save(plain));
    QCOMPARE(contentsOf(savedOptionsFile()), before);
}

void tst_PrinterOptionsServer::saveSkipsRemovedOptions()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("a"), QStringLiteral("1"));
    options.setOption(QStringLiteral("b"), QStringLiteral("a-"));
    options.setOption(QStringLiteral("c"), QStringLiteral("c--"));
    options.setOption(QStringLiteral("sides"), QStringLiteral("two-sided-long-edge"));
    options.removeOption(QStringLiteral("sides"));
    options.removeOption(QStringLiteral("Duplex"));
    QVERIFY(options.save(plain));
    QCOMPARE(fileOptions("Plain"), words("a=1 b=a- c=c--"));
}

void tst_PrinterOptionsServer::saveWritesVolatileOptions()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("qfax-number"), QStringLiteral("123"));
    options.setOption(QStringLiteral("foo"), QStringLiteral("1"));
    options.setOption(QStringLiteral("bar"), QStringLiteral("2"));
    options.setVolatileOptions(words("qfax-number foo unset"));
    QVERIFY(options.save(plain));
    QCOMPARE(fileOptions("Plain"), words("bar=2 volatile-foo=1 volatile-qfax-number=123"));

    const PrinterOptions again = loaded(plain);
    QCOMPARE(again[QStringLiteral("qfax-number")], QStringLiteral("123"));
    QCOMPARE(again[QStringLiteral("volatile-foo")], QStringLiteral("1"));
    QVERIFY(!again.contains(QStringLiteral("foo")));
}

void tst_PrinterOptionsServer::saveWritesTheMarksOfThePpd()
{
    PrinterOptions options = opened(laser);
    const QStringList fromServer = printedOptions(laser);
    options.setOption(QStringLiteral("InputSlot"), QStringLiteral("Tray2"));
    ppdMarkOption(options.ppd(), "Resolution", "1200dpi");
    options.setOption(QStringLiteral("PageSize"), QStringLiteral("Letter"));
    options.setOption(QStringLiteral("own"), QStringLiteral("1"));
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"),
             words("InputSlot=Tray2 PageSize=Letter Resolution=1200dpi own=1"));
    QCOMPARE(without(printedOptions(laser), fromServer), fileOptions("Laser"));
}

void tst_PrinterOptionsServer::saveLeavesDefaultsOut()
{
    PrinterOptions options = opened(laser);
    options.setOption(QStringLiteral("InputSlot"), QStringLiteral("Tray2"));
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"), words("InputSlot=Tray2"));
    options.setOption(QStringLiteral("InputSlot"), QStringLiteral("Auto"));
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"), QStringList());
}

void tst_PrinterOptionsServer::saveNeverWritesDuplexAndPageRegion()
{
    PrinterOptions options = opened(laser);
    options.setOption(QStringLiteral("Duplex"), QStringLiteral("DuplexTumble"));
    options.setOption(QStringLiteral("PageRegion"), QStringLiteral("Letter"));
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexTumble"));
    QCOMPARE(markedChoice(options.ppd(), "PageRegion"), QStringLiteral("Letter"));
    QVERIFY(options.save(laser));
    for (const QString &entry : fileOptions("Laser"))
        QVERIFY2(!entry.startsWith(QStringLiteral("Duplex")) &&
                     !entry.startsWith(QStringLiteral("PageRegion")),
                 qPrintable(entry));

    // Nor does one that was saved before stay.
    options = opened(draft);
    QCOMPARE(markedChoice(options.ppd(), "Duplex"), QStringLiteral("DuplexNoTumble"));
    QVERIFY(options.save(draft));
    QCOMPARE(fileOptions("Laser/draft"), words("InputSlot=Tray2 Resolution=300dpi"));
}

void tst_PrinterOptionsServer::saveWritesNothingForAnOptionWithoutMark()
{
    PrinterOptions options = opened(laser);
    for (ppd_choice_t *choice = ppdFindMarkedChoice(options.ppd(), "Resolution"); choice;
         choice = ppdFindMarkedChoice(options.ppd(), "Resolution")) {
        cupsArrayRemove(options.ppd()->marked, choice);
        choice->marked = 0;
    }
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"), QStringList());
}

void tst_PrinterOptionsServer::savePrefersTheMarkToTheArray()
{
    PrinterOptions options = opened(laser);
    options.setOption(QStringLiteral("Resolution"), QStringLiteral("300dpi"));
    ppdMarkOption(options.ppd(), "Resolution", "1200dpi");
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"), words("Resolution=1200dpi"));
}

void tst_PrinterOptionsServer::saveWritesSeveralChoices()
{
    PrinterOptions options = opened(laser);
    ppdFindChoice(ppdFindOption(options.ppd(), "Enhancements"), "Lines")->marked = 1;
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"), words("Enhancements=Edges,Lines"));
}

void tst_PrinterOptionsServer::saveWritesCustomValues_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("saved");

    const auto row = [](const char *title, const char *name, const char *value, const char *saved) {
        QTest::newRow(title) << QString::fromUtf8(name) << QString::fromUtf8(value)
                             << QString::fromUtf8(saved);
    };
    row("curve", "ToneCurve", "Custom.1.5", "Custom.1.500");
    row("inverse curve", "InkLimit", "Custom.0.25", "Custom.0.250");
    row("passcode", "Release", "Custom.0042", "Custom.0042");
    row("password", "Lock", "Custom.geh\xc3\xa4im", "Custom.geh\xc3\xa4im");
    row("string", "Watermark", "Custom.Zwei W\xc3\xb6rter", "Custom.Zwei W\xc3\xb6rter");
    row("integer and real", "Screen", "{Ruling=85 Angle=12.5}", "{Ruling=85,Angle=12.500}");
    row("points", "Shift", "{Across=1in Up=2.5}", "{Across=72.000,Up=2.500}");
    row("real", "Sharpness", "Custom.2.5", "Custom.2.500");
    row("reals", "Zoom", "{Factor=0.5 Fixed=1}", "{Factor=0.500,Fixed=1.000}");
    row("page size", "PageSize", "Custom.300.5x400", "Custom.300.5x400pt");
    row("page size in mm", "PageSize", "Custom.100x150mm", "Custom.283.46457x425.19684pt");
}

void tst_PrinterOptionsServer::saveWritesCustomValues()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    QFETCH(QString, saved);
    PrinterOptions options = opened(photo);
    options.setOption(name, value);
    QVERIFY(options.save(photo));
    QCOMPARE(fileOptions("Photo"), QStringList{name + QLatin1Char('=') + saved});
}

void tst_PrinterOptionsServer::savedCustomValuesMarkAgain_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, const char *value) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(value);
    };
    row("ToneCurve", "Custom.1.5");
    row("InkLimit", "Custom.0.25");
    row("Sharpness", "Custom.2.5");
    row("Release", "Custom.0042");
    row("Lock", "Custom.geheim");
    row("Watermark", "Custom.Zwei W\xc3\xb6rter");
    row("PageSize", "Custom.100x150mm");
    row("Screen", "{Ruling=85 Angle=12.5}");
    row("Shift", "{Across=36.5 Up=72.25}");
    row("Zoom", "{Factor=0.5 Fixed=1}");
}

void tst_PrinterOptionsServer::savedCustomValuesMarkAgain()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    PrinterOptions options = opened(photo);
    options.setOption(name, value);
    QVERIFY(options.save(photo));
    const QByteArray first = contentsOf(savedOptionsFile());
    PrinterOptions again = opened(photo);
    QVERIFY(again.save(photo));
    QCOMPARE(contentsOf(savedOptionsFile()), first);
}

void tst_PrinterOptionsServer::savesPointsInEveryLocale()
{
    const DecimalCommaLocale locale;
    QVERIFY2(locale.isActive(), locale.error());
    PrinterOptions options = opened(photo);
    options.setOption(QStringLiteral("PageSize"), QStringLiteral("Custom.300.5x400.25"));
    options.setOption(QStringLiteral("ToneCurve"), QStringLiteral("Custom.1.5"));
    QVERIFY(options.save(photo));
    const QStringList saved = words("PageSize=Custom.300.5x400.25pt ToneCurve=Custom.1.500");
    QCOMPARE(fileOptions("Photo"), saved);
    QVERIFY(opened(photo).save(photo));
    QCOMPARE(fileOptions("Photo"), saved);
}

void tst_PrinterOptionsServer::saveLogsUnknownTypes()
{
    const QString log =
        qEnvironmentVariable("VESK_RELOCATED_ROOT") + QStringLiteral("/var/tmp/PrinterOptions.log");
    PrinterOptions options = opened(photo);
    options.setOption(QStringLiteral("ToneCurve"), QStringLiteral("Custom.1.5"));
    ppd_coption_t *curve = ppdFindCustomOption(options.ppd(), "ToneCurve");
    QVERIFY(curve);
    ppdFindCustomParam(curve, "Curve")->type = PPD_CUSTOM_UNKNOWN;
    QCOMPARE(contentsOf(log), QByteArray());
    QVERIFY(options.save(photo));
    QCOMPARE(contentsOf(log), QByteArray("Unknown type -1!\n"));
    QCOMPARE(fileOptions("Photo"), words("ToneCurve=Custom."));
}

void tst_PrinterOptionsServer::saveWithoutPpdWritesPpdOptions()
{
    PrinterOptions options;
    options.setOption(QStringLiteral("Duplex"), QStringLiteral("DuplexTumble"));
    options.setOption(QStringLiteral("InputSlot"), QStringLiteral("Auto"));
    QVERIFY(options.save(laser));
    QCOMPARE(fileOptions("Laser"), words("Duplex=DuplexTumble InputSlot=Auto"));
}

void tst_PrinterOptionsServer::openPpdOfAPrinter()
{
    PrinterOptions options = loaded(photo);
    QVERIFY(options.openPPD());
    QVERIFY(options.ppd());
    QVERIFY(ppdFindOption(options.ppd(), "Watermark"));
    QCOMPARE(options[QStringLiteral("PageSize")], QStringLiteral("A4"));
    QCOMPARE(options[QStringLiteral("MediaType")], QStringLiteral("Plain"));
    QCOMPARE(options.valueAsText(QStringLiteral("MediaType")), QStringLiteral("Plain Paper"));
    QVERIFY(
        options.setValueAsText(QStringLiteral("MediaType"), QStringLiteral("Glossy Photo Paper")));
    QCOMPARE(markedChoice(options.ppd(), "MediaType"), QStringLiteral("Glossy"));
}

void tst_PrinterOptionsServer::openPpdOfAnInstance()
{
    PrinterOptions options = loaded(draft);
    QVERIFY(options.openPPD());
    QVERIFY(options.ppd());
    QCOMPARE(markedChoice(options.ppd(), "InputSlot"), QStringLiteral("Tray2"));
}

void tst_PrinterOptionsServer::openPpdMarksSavedOptions()
{
    run(QStringLiteral("lpoptions"), {QStringLiteral("-p"), photo, QStringLiteral("-o"),
                                      QStringLiteral("PageSize=Custom.300x400")});
    const PrinterOptions options = opened(photo);
    QCOMPARE(markedChoice(options.ppd(), "PageSize"), QStringLiteral("Custom"));
    QCOMPARE(ppdPageSize(options.ppd(), nullptr)->width, 300.0F);
    QCOMPARE(markedChoice(options.ppd(), "Resolution"), QStringLiteral("600dpi"));
}

void tst_PrinterOptionsServer::openPpdOfAPrinterWithoutPpd()
{
    PrinterOptions options = opened(laser);
    options.setDestination(plain);
    QVERIFY(!options.openPPD());
    QVERIFY(!options.ppd());
    QVERIFY(options.setOption(QStringLiteral("a"), QStringLiteral("1")));
}

void tst_PrinterOptionsServer::openPpdOfAnUnknownDestination()
{
    PrinterOptions options;
    options.setDestination(QStringLiteral("Nowhere"));
    QVERIFY(!options.openPPD());
    QVERIFY(!options.ppd());
}

void tst_PrinterOptionsServer::openPpdOfAClass()
{
    PrinterOptions options = loaded(QStringLiteral("Office"));
    QVERIFY(options.openPPD());
    QVERIFY(options.ppd());
    // The first member's: Laser has a duplexer, Photo has none.
    QVERIFY(ppdFindOption(options.ppd(), "Duplex"));
}

void tst_PrinterOptionsServer::openPpdOfAClassWithoutPpd()
{
    run(QStringLiteral("lpadmin"),
        {QStringLiteral("-U"), QStringLiteral("root"), QStringLiteral("-p"), plain,
         QStringLiteral("-c"), QStringLiteral("Bare")});
    PrinterOptions options = loaded(QStringLiteral("Bare"));
    QVERIFY(options.openPPD());
    QVERIFY(!options.ppd());
}

void tst_PrinterOptionsServer::openPpdWithoutServer()
{
    PrinterOptions options = loaded(laser);
    {
        const ServerDown down;
        QVERIFY(!options.openPPD());
        QVERIFY(!options.ppd());
    }
    QVERIFY(options.openPPD());
}

void tst_PrinterOptionsServer::openPpdAgain()
{
    PrinterOptions options = opened(laser);
    const PrinterOptions copy(options);
    ppd_file_t *first = options.ppd();
    options.setDestination(photo);
    QVERIFY(options.openPPD());
    QVERIFY(options.ppd() != first);
    QVERIFY(ppdFindOption(options.ppd(), "Watermark"));
    // The copy's is still the first one, and it is open.
    QCOMPARE(copy.ppd(), first);
    QCOMPARE(markedChoice(copy.ppd(), "InputSlot"), QStringLiteral("Auto"));
}

/** A server whose files this machine cannot read sends the PPD: it must not stay behind either. */
void tst_PrinterOptionsServer::openPpdWithADownloadedFile()
{
    if (qEnvironmentVariableIsSet("TST_DOWNLOADS")) {
        opened(laser);
        return;
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("CUPS_SERVERROOT"), QStringLiteral("/nonexistent"));
    environment.insert(QStringLiteral("TST_DOWNLOADS"), QStringLiteral("1"));
    QProcess self;
    self.setProcessChannelMode(QProcess::MergedChannels);
    self.setProcessEnvironment(environment);
    self.start(QCoreApplication::applicationFilePath(),
               {QStringLiteral("openPpdWithADownloadedFile")});
    QVERIFY(self.waitForFinished());
    QVERIFY2(self.exitStatus() == QProcess::NormalExit && self.exitCode() == 0,
             self.readAllStandardOutput().constData());
}

void tst_PrinterOptionsServer::copiesCloseOnce()
{
    PrinterOptions last;
    {
        PrinterOptions options = opened(laser);
        PrinterOptions copy(options);
        PrinterOptions assigned;
        assigned = copy;
        last = assigned;
        last = last.ppd() == options.ppd() ? copy : last;
        options.closePPD();
    }
    QCOMPARE(markedChoice(last.ppd(), "InputSlot"), QStringLiteral("Auto"));
    last.closePPD();
    last.closePPD();
}

QTEST_GUILESS_MAIN(tst_PrinterOptionsServer)
#include "tst_printeroptions_server.moc"
