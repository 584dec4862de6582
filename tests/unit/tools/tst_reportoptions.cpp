#include "ReportOptions.h"

#include <QTest>

using Section = ReportOptions::Section;
using Sections = ReportOptions::Sections;
using Which = ReportOptions::Which;

namespace
{
QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts);
}

/** Every field as one text. */
QString described(const ReportOptions &options)
{
    return QStringLiteral("%1 name=%2 bits=%3/%4 model=%5 make=%6 which=%7 uris=%8 uri=%9 help=")
               .arg(options.sections.toInt(), 0, 16)
               .arg(options.name)
               .arg(options.type)
               .arg(options.mask)
               .arg(options.model.value_or(QStringLiteral("-")),
                    options.make.value_or(QStringLiteral("-")))
               .arg(static_cast<int>(options.which))
               .arg(options.hasJobUris)
               .arg(options.uri) +
           QString::number(options.wantsHelp);
}
} // namespace

class TestReportOptions : public QObject
{
    Q_OBJECT

private slots:
    void read_data();
    void read();
    void refused_data();
    void refused();
    void name_data();
    void name();
    void helpNamesEverything();
};

void TestReportOptions::read_data()
{
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *arguments, const char *expected) {
        QTest::addRow("%s", arguments) << QString::fromLatin1(expected);
    };
    row("", "f name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("default", "1 name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("printers", "2 name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("classes", "4 name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("jobs", "8 name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("drivers", "10 name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("drivers jobs drivers", "18 name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("--name L*", "f name=L* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("--name=", "f name= bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("--type 4", "f name=* bits=4/4 model=- make=- which=0 uris=0 uri= help=0");
    row("--type 0x10", "f name=* bits=16/16 model=- make=- which=0 uris=0 uri= help=0");
    row("--type 0xffffffff", "f name=* bits=-1/-1 model=- make=- which=0 uris=0 uri= help=0");
    row("--mask 0x1", "f name=* bits=0/1 model=- make=- which=0 uris=0 uri= help=0");
    row("--mask 3 --type 1", "f name=* bits=1/3 model=- make=- which=0 uris=0 uri= help=0");
    row("--model Tarvel", "f name=* bits=0/0 model=Tarvel make=- which=0 uris=0 uri= help=0");
    row("--make Tarvel", "f name=* bits=0/0 model=- make=Tarvel which=0 uris=0 uri= help=0");
    row("--which active", "f name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
    row("--which completed", "f name=* bits=0/0 model=- make=- which=1 uris=0 uri= help=0");
    row("--which all", "f name=* bits=0/0 model=- make=- which=2 uris=0 uri= help=0");
    row("--uris", "f name=* bits=0/0 model=- make=- which=0 uris=1 uri= help=0");
    row("--uris --which active", "f name=* bits=0/0 model=- make=- which=0 uris=1 uri= help=0");
    row("--uri ipp://h/printers/x",
        "f name=* bits=0/0 model=- make=- which=0 uris=0 uri=ipp://h/printers/x help=0");
    row("--help", "f name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=1");
    row("-- jobs", "8 name=* bits=0/0 model=- make=- which=0 uris=0 uri= help=0");
}

void TestReportOptions::read()
{
    QString error;
    const auto options = readReportOptions(words(QTest::currentDataTag()), error);
    QVERIFY2(options, qPrintable(error));
    QTEST(described(*options), "expected");
    QCOMPARE(error, QString());
}

void TestReportOptions::refused_data()
{
    QTest::addColumn<QString>("error");
    const auto row = [](const char *arguments, const char *error) {
        QTest::addRow("%s", arguments) << QString::fromLatin1(error);
    };
    row("printer", "unknown word: printer");
    row("jobs Jobs", "unknown word: Jobs");
    row("--type colour", "--type: not understood: colour");
    row("--type -1", "--type: not understood: -1");
    row("--mask 0x", "--mask: not understood: 0x");
    row("--mask 0x100000000", "--mask: not understood: 0x100000000");
    row("--which done", "--which: not understood: done");
    row("--uris --which all", "--uris lists active jobs only");
    row("--nmae x", "Unknown option 'nmae'.");
    row("--name", "Missing value after '--name'.");
    row("--uris=1", "Unexpected value after '--uris'.");
}

void TestReportOptions::refused()
{
    QString error;
    QVERIFY(!readReportOptions(words(QTest::currentDataTag()), error));
    QTEST(error, "error");
}

void TestReportOptions::name_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char *pattern, const char *text, bool matches) {
        QTest::addRow("%s: %s", pattern, text)
            << QString::fromUtf8(pattern) << QString::fromUtf8(text) << matches;
    };
    row("*", "", true);
    row("*", "any/thing", true);
    row("Laser", "Laser", true);
    row("Laser", "laser", false);
    row("Laser", "Laser2", false);
    row("L*", "Laser", true);
    row("L*r", "Laser2", false);
    row("L?ser", "L\u00e4ser", true);
    row("[LP]*", "Photo", true);
    row("[!LP]*", "Photo", false);
    row("*.ppd", "folder/laser.ppd", true);
    row("", "Laser", false);
}

void TestReportOptions::name()
{
    ReportOptions options;
    QFETCH(QString, pattern);
    options.name = pattern;
    QFETCH(QString, text);
    QTEST(options.matchesName(text), "matches");
}

void TestReportOptions::helpNamesEverything()
{
    const QString help = reportHelp();
    for (const char *word :
         {"default", "printers", "classes", "jobs", "drivers", "--name", "--type", "--mask",
          "--model", "--uri ", "--which", "--uris", "--make", "--help", "Exit status: 0"})
        QVERIFY2(help.contains(QLatin1String(word)), word);
    for (const QString &line : help.split(u'\n'))
        QVERIFY2(line.size() <= 80, qPrintable(line));
}

QTEST_GUILESS_MAIN(TestReportOptions)
#include "tst_reportoptions.moc"
