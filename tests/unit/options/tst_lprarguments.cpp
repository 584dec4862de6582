#include "LPRArguments.h"

#include "PrinterOptions.h"

#include <QTest>

#include <getopt.h>
#include <vector>

namespace
{
LPRArguments parsed(const QStringList &arguments)
{
    QList<QByteArray> bytes{"lpr"};
    for (const QString &argument : arguments)
        bytes.append(argument.toLocal8Bit());
    std::vector<char *> argv;
    for (QByteArray &each : bytes)
        argv.push_back(each.data());
    argv.push_back(nullptr);
    return LPRArguments(static_cast<int>(bytes.size()), argv.data());
}

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList entriesOf(const QMap<QString, QString> &options)
{
    QStringList entries;
    for (auto entry = options.cbegin(); entry != options.cend(); ++entry)
        entries.append(entry.value().isNull() ? entry.key()
                                              : entry.key() + QLatin1Char('=') + entry.value());
    return entries;
}

/** The CUPS options in the array's order, as "name=value". */
QStringList arrayOf(const PrinterOptions &options)
{
    QStringList entries;
    for (const cups_option_t &option : options.cupsOptions())
        entries.append(QString::fromLocal8Bit(option.name) + QLatin1Char('=') +
                       QString::fromLocal8Bit(option.value));
    return entries;
}

PrinterOptions optionsOf(const QStringList &entries)
{
    PrinterOptions options;
    for (const QString &entry : entries)
        options.setOption(entry.section(QLatin1Char('='), 0, 0),
                          entry.section(QLatin1Char('='), 1));
    return options;
}
} // namespace

class tst_LPRArguments : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { opterr = 0; }

    void optionsOfLpr_data();
    void optionsOfLpr();
    void parserStoresDirectly();
    void setOption_data();
    void setOption();
    void setOptionIsVirtual();
    void applyTo_data();
    void applyTo();
    void applyToKeepsOtherOptions();
    void constructionForACommandLine();
    void takeFrom_data();
    void takeFrom();
    void takeFromNeverRemovesCopiesAndBanner();
    void escaped_data();
    void escaped();
    void escapedValuesReadBack_data();
    void escapedValuesReadBack();
    void wholeWay();
};

void tst_LPRArguments::optionsOfLpr_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("o") << words("-o v w") << words("o=v");
    QTest::newRow("p") << words("-p w") << words("p");
    QTest::newRow("h") << words("-h w") << words("h");
    QTest::newRow("n") << words("-n 1 w") << words("n=1");
    QTest::newRow("#") << words("-# 1 w") << words("#=1");
    QTest::newRow("P") << words("-P v w") << words("P=v");
    QTest::newRow("C") << words("-C v w") << words("C=v");
    QTest::newRow("J") << words("-J v w") << words("J=v");
    QTest::newRow("T") << words("-T v w") << words("T=v");
    QTest::newRow("U") << words("-U v w") << words("U=v");
    QTest::newRow("ui") << words("--ui w") << words("ui");
}

void tst_LPRArguments::optionsOfLpr()
{
    QFETCH(QStringList, arguments);
    const LPRArguments options = parsed(arguments);
    QTEST(entriesOf(options), "entries");
    QCOMPARE(options.operands, words("w"));
    QVERIFY(!options.contains(CommandLineOptions::UnknownOption));
}

void tst_LPRArguments::parserStoresDirectly()
{
    const LPRArguments options = parsed(words("-C class -J name -n 2 -o a=1 -o b=2"));
    QCOMPARE(entriesOf(options), words("C=class J=name n=2 o=b=2"));
}

void tst_LPRArguments::setOption_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("after");

    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    QTest::newRow("plain") << words("-P a") << text("P") << text("b") << words("P=b");
    QTest::newRow("class names the job")
        << words("-T old") << text("C") << text("x") << words("C=x T=x");
    QTest::newRow("job name names the job")
        << words("") << text("J") << text("x") << words("J=x T=x");
    QTest::newRow("title alone") << words("-J j") << text("T") << text("x") << words("J=j T=x");
    QTest::newRow("n is copies") << words("-# 9") << text("n") << text("2") << words("#=2 n=2");
    QTest::newRow("copies alone") << words("-n 9") << text("#") << text("2") << words("#=2 n=9");
    QTest::newRow("first job options") << words("") << text("o") << text("a=1") << words("o=a=1");
    QTest::newRow("job options accumulate")
        << words("-o a=1") << text("o") << text("b=2 c=3") << QStringList{text("o=a=1 b=2 c=3")};
}

void tst_LPRArguments::setOption()
{
    QFETCH(QStringList, before);
    QFETCH(QString, key);
    QFETCH(QString, value);
    LPRArguments options = parsed(before);
    options.setOption(key, value);
    QTEST(entriesOf(options), "after");
}

void tst_LPRArguments::setOptionIsVirtual()
{
    LPRArguments options = parsed({});
    CommandLineOptions &base = options;
    base.setOption(QStringLiteral("n"), QStringLiteral("2"));
    QCOMPARE(entriesOf(options), words("#=2 n=2"));
}

void tst_LPRArguments::applyTo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("array");

    const auto list = [](std::initializer_list<const char *> texts) {
        QStringList result;
        for (const char *text : texts)
            result.append(QString::fromUtf8(text));
        return result;
    };
    QTest::newRow("nothing") << words("-P lp1 -U me -C c -J j --ui -n 4") << words("");
    // The library keeps the array in the order of the names.
    QTest::newRow("o") << list({"-o", "media=A4 sides=one-sided"})
                       << words("media=A4 sides=one-sided");
    QTest::newRow("o, flag") << list({"-o", "landscape nocollate"})
                             << words("collate=false landscape=true");
    QTest::newRow("o, escapes") << list({"-o", "a=b\\ c d='e f'"}) << list({"a=b c", "d=e f"});
    QTest::newRow("o, empty") << list({"-o", ""}) << words("");
    QTest::newRow("T") << list({"-T", "A \xc3\xa4 title"}) << list({"job-title=A \xc3\xa4 title"});
    QTest::newRow("p") << words("-p") << words("prettyprint=");
    QTest::newRow("h") << words("-h") << words("job-sheets=none");
    QTest::newRow("#") << words("-# 3") << words("copies=3");
    QTest::newRow("# in decimal") << words("-# +07") << words("copies=7");
    QTest::newRow("# is no number") << words("-# abc") << words("copies=1");
    QTest::newRow("letters replace -o")
        << list({"-o", "copies=9 job-sheets=a,b prettyprint=x job-title=y z=1", "-T", "t", "-p",
                 "-h", "-#", "2"})
        << words("copies=2 job-sheets=none job-title=t prettyprint= z=1");
}

void tst_LPRArguments::applyTo()
{
    QFETCH(QStringList, arguments);
    PrinterOptions options;
    parsed(arguments).applyTo(options);
    QTEST(arrayOf(options), "array");
    QCOMPARE(entriesOf(options), arrayOf(options));
}

void tst_LPRArguments::applyToKeepsOtherOptions()
{
    PrinterOptions options = optionsOf(words("copies=1 media=A5"));
    parsed(words("-# 2")).applyTo(options);
    QCOMPARE(entriesOf(options), words("copies=2 media=A5"));
}

void tst_LPRArguments::constructionForACommandLine()
{
    const QStringList arguments = words("-o media=A4 -T t -p -h -# 2");
    PrinterOptions applied;
    const LPRArguments commandLine = parsed(arguments);
    commandLine.applyTo(applied);
    const PrinterOptions constructed(commandLine);
    QCOMPARE(arrayOf(constructed),
             words("copies=2 job-sheets=none job-title=t media=A4 prettyprint="));
    QCOMPARE(arrayOf(constructed), arrayOf(applied));
    QCOMPARE(entriesOf(constructed), entriesOf(applied));

    // Any command line will do, not only that of lpr.
    char program[] = "x";
    char option[] = "-T";
    char title[] = "t";
    char *argv[] = {program, option, title, nullptr};
    const CommandLineOptions other(3, argv, "T:", "");
    QCOMPARE(arrayOf(PrinterOptions(other)), words("job-title=t"));
}

void tst_LPRArguments::takeFrom_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("after");

    const auto one = [](const char *text) { return QStringList{QString::fromUtf8(text)}; };
    QTest::newRow("typical") << words("-o old=1 -P lp1")
                             << words("copies=2 job-sheets=none,none media=A4")
                             << words("#=2 P=lp1 h o=media=A4");
    QTest::newRow("one name for no banners") << words("") << words("job-sheets=none") << words("h");
    QTest::newRow("banners") << words("") << words("job-sheets=none,secret")
                             << words("o=job-sheets=none,secret");
    QTest::newRow("nearly no banners")
        << words("") << words("job-sheets=none,none,none") << words("o=job-sheets=none,none,none");
    QTest::newRow("empty banners") << words("") << words("job-sheets=") << words("o=job-sheets=");
    QTest::newRow("copies alone remove the job options")
        << words("-o old=1") << words("copies=1") << words("#=1");
    QTest::newRow("nothing removes the job options") << words("-o old=1") << words("") << words("");
    QTest::newRow("in name order")
        << words("") << words("z=1 Z=2 b=3 media=4") << one("o=Z=2 b=3 media=4 z=1");
    QTest::newRow("empty value") << words("") << words("prettyprint= a=1")
                                 << one("o=a=1 prettyprint=");
    QTest::newRow("escaped") << words("") << one("a=x y$z") << one("o=a=x\\ y\\$z");
    QTest::newRow("copies are not escaped") << words("") << one("copies=1 2") << one("#=1 2");
}

void tst_LPRArguments::takeFrom()
{
    QFETCH(QStringList, before);
    QFETCH(QStringList, options);
    LPRArguments arguments = parsed(before);
    arguments.takeFrom(optionsOf(options));
    QTEST(entriesOf(arguments), "after");
}

void tst_LPRArguments::takeFromNeverRemovesCopiesAndBanner()
{
    LPRArguments arguments = parsed(words("-h -# 5"));
    arguments.takeFrom(optionsOf(words("job-sheets=secret,none")));
    QCOMPARE(entriesOf(arguments), words("#=5 h o=job-sheets=secret,none"));
}

void tst_LPRArguments::escaped_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *value, const char *text) {
        QTest::newRow(name) << QString::fromUtf8(value) << QString::fromUtf8(text);
    };
    row("double quote", "\"", "\\\"");
    row("backslash", "\\", "\\\\");
    row("backtick", "`", "\\`");
    row("space", " ", "\\ ");
    row("dollar", "$", "\\$");
    row("together", "a b$c", "a\\ b\\$c");
    row("twice", "  ", "\\ \\ ");
    row("all", "\"\\` $", "\\\"\\\\\\`\\ \\$");
    row("escaped already", "\\ ", "\\\\\\ ");
    row("others stay", "a'{}[]()<>|&;*?!#~=,:/%\xc3\xa4\xe2\x82\xac",
        "a'{}[]()<>|&;*?!#~=,:/%\xc3\xa4\xe2\x82\xac");
    row("tab and newline stay", "\t\n", "\t\n");
    row("empty", "", "");
}

void tst_LPRArguments::escaped()
{
    QFETCH(QString, value);
    QTEST(LPRArguments::escaped(value), "text");
}

void tst_LPRArguments::escapedValuesReadBack_data()
{
    QTest::addColumn<QString>("value");
    for (const char *value : {"a\"b", "a\\b", "a`b", "a b", "a$b", " ab ", "a\\ b", "\"ab\"",
                              "a \"b\" `c` $d \\e", "\xc3\xa4 \xe2\x82\xac"})
        QTest::newRow(value) << QString::fromUtf8(value);
}

/** What the system client parses out of `-o` is what the dialog held. */
void tst_LPRArguments::escapedValuesReadBack()
{
    QFETCH(QString, value);
    PrinterOptions options;
    options.setOption(QStringLiteral("first"), value);
    options.setOption(QStringLiteral("second"), QStringLiteral("2"));
    LPRArguments arguments = parsed({});
    arguments.takeFrom(options);

    Cups::OptionArray read;
    read.parse(arguments.value(QStringLiteral("o"), QString()).toLocal8Bit().constData());
    QCOMPARE(read.count(), 2);
    QCOMPARE(QString::fromLocal8Bit(read.value("first")), value);
    QCOMPARE(read.value("second"), "2");
}

void tst_LPRArguments::wholeWay()
{
    LPRArguments arguments = parsed(words("-P lp1 -o media=A4 -# 2 -h a.ps b.ps"));
    PrinterOptions options(arguments);
    options.setOption(QStringLiteral("sides"), QStringLiteral("two-sided-long-edge"));
    options.setOption(QStringLiteral("job-title"), QStringLiteral("my job"));
    arguments.takeFrom(options);
    QStringList expected = words("-# 2 -P lp1 -h -o");
    expected.append(QStringLiteral("job-title=my\\ job media=A4 sides=two-sided-long-edge"));
    QCOMPARE(arguments.toArguments(), expected + words("a.ps b.ps"));
}

QTEST_GUILESS_MAIN(tst_LPRArguments)
#include "tst_lprarguments.moc"
