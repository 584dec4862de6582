#include "CommandLineOptions.h"

#include <QTest>

#include <getopt.h>
#include <unistd.h>
#include <vector>

/** An argument vector as main gets it: the program's name first, a null pointer at the end. */
class ArgumentVector
{
public:
    explicit ArgumentVector(const QList<QByteArray> &arguments)
        : m_texts(arguments)
    {
        m_texts.prepend("lpr");
        for (QByteArray &text : m_texts)
            m_pointers.push_back(text.data());
        m_pointers.push_back(nullptr);
    }
    int argc() const { return static_cast<int>(m_texts.size()); }
    char **argv() { return m_pointers.data(); }
    QList<QByteArray> current() const
    {
        QList<QByteArray> arguments;
        for (int i = 0; i < argc(); ++i)
            arguments.append(m_pointers[static_cast<size_t>(i)]);
        return arguments;
    }

private:
    QList<QByteArray> m_texts;
    std::vector<char *> m_pointers;
};

using Table = QMap<QString, QString>;
Q_DECLARE_METATYPE(QList<QByteArray>)

namespace
{
constexpr char lprOptions[] = "o:phn:#:P:C:J:T:U:";

CommandLineOptions parsed(const QList<QByteArray> &arguments, const char *shortOptions = lprOptions,
                          const char *longOptions = "ui")
{
    ArgumentVector vector(arguments);
    return CommandLineOptions(vector.argc(), vector.argv(), shortOptions, longOptions);
}

/** Table rows are written as "key=value", and as "key" for a null value. */
Table table(const QStringList &entries)
{
    Table result;
    for (const QString &entry : entries) {
        const qsizetype sign = entry.indexOf(QLatin1Char('='));
        result.insert(entry.left(sign), sign < 0 ? QString() : entry.mid(sign + 1));
    }
    return result;
}

/** The inverse of `table`. Tells a null value from an empty one, which comparing maps does not. */
QStringList entriesOf(const Table &options)
{
    QStringList entries;
    for (auto entry = options.cbegin(); entry != options.cend(); ++entry)
        entries.append(entry.value().isNull() ? entry.key()
                                              : entry.key() + QLatin1Char('=') + entry.value());
    return entries;
}

QStringList texts(const char *words)
{
    return QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
} // namespace

class tst_CommandLineOptions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { opterr = 0; }

    void parse_data();
    void parse();
    void permutesACopy();
    void parsesRepeatedly();
    void longOptions_data();
    void longOptions();
    void longOptionsAreCutAt1023Bytes();
    void longOptionsEndInTheMiddle();
    void noArguments();
    void localEncoding();
    void printsGetoptsMessage();
    void setOption();
    void value();
    void intValue_data();
    void intValue();
    void uintValue_data();
    void uintValue();
    void toArguments_data();
    void toArguments();
    void describe_data();
    void describe();
    void ascendingOrder();
};

void tst_CommandLineOptions::parse_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("operands");

    using A = QList<QByteArray>;
    QTest::newRow("typical") << A{"-P", "lp1", "-#", "3", "a.ps", "b.ps"} << texts("#=3 P=lp1")
                             << texts("a.ps b.ps");
    QTest::newRow("nothing") << A{} << texts("") << texts("");
    QTest::newRow("o") << A{"-o", "a=1"} << texts("o=a=1") << texts("");
    QTest::newRow("p") << A{"-p"} << texts("p") << texts("");
    QTest::newRow("h") << A{"-h"} << texts("h") << texts("");
    QTest::newRow("n") << A{"-n", "4"} << texts("n=4") << texts("");
    QTest::newRow("#") << A{"-#", "4"} << texts("#=4") << texts("");
    QTest::newRow("P") << A{"-P", "lp"} << texts("P=lp") << texts("");
    QTest::newRow("C") << A{"-C", "cls"} << texts("C=cls") << texts("");
    QTest::newRow("J") << A{"-J", "job"} << texts("J=job") << texts("");
    QTest::newRow("T") << A{"-T", "title"} << texts("T=title") << texts("");
    QTest::newRow("U") << A{"-U", "user"} << texts("U=user") << texts("");
    QTest::newRow("ui") << A{"--ui"} << texts("ui") << texts("");
    QTest::newRow("ui takes no argument")
        << A{"--ui", "False", "a.ps"} << texts("ui") << texts("False a.ps");
    QTest::newRow("ui with an attached argument")
        << A{"--ui=False", "a.ps"} << texts("-") << texts("a.ps");
    QTest::newRow("ui shortened") << A{"--u"} << texts("ui") << texts("");
    QTest::newRow("attached arguments") << A{"-Plp1", "-#3"} << texts("#=3 P=lp1") << texts("");
    QTest::newRow("grouped") << A{"-hpPlp1"} << texts("P=lp1 h p") << texts("");
    QTest::newRow("empty argument") << A{"-T", ""} << texts("T=") << texts("");
    QTest::newRow("later replaces earlier")
        << A{"-o", "a=1", "-o", "b=2"} << texts("o=b=2") << texts("");
    QTest::newRow("options after operands")
        << A{"a.ps", "-P", "lp1", "b.ps", "-h"} << texts("P=lp1 h") << texts("a.ps b.ps");
    QTest::newRow("end of options") << A{"-h", "--", "-P", "lp1"} << texts("h") << texts("-P lp1");
    QTest::newRow("operand, then end of options")
        << A{"a", "--", "-p"} << texts("") << texts("a -p");
    QTest::newRow("dash is an operand") << A{"-"} << texts("") << texts("-");
    QTest::newRow("unknown letter") << A{"-x", "file"} << texts("- x") << texts("file");
    QTest::newRow("unknown letter among known")
        << A{"-hxp", "-P", "lp1"} << texts("- P=lp1 h p x") << texts("");
    QTest::newRow("unknown question mark") << A{"-?"} << texts("- ?") << texts("");
    QTest::newRow("unknown long option") << A{"--other", "file"} << texts("-") << texts("file");
    QTest::newRow("unknown long option with value")
        << A{"--other=1", "file"} << texts("-") << texts("file");
    QTest::newRow("missing argument") << A{"file", "-P"} << texts("- P") << texts("file");
    QTest::newRow("missing argument after a value")
        << A{"-P", "lp1", "-P"} << texts("- P") << texts("");
}

void tst_CommandLineOptions::parse()
{
    QFETCH(QList<QByteArray>, arguments);
    const CommandLineOptions options = parsed(arguments);
    QTEST(entriesOf(options), "entries");
    QTEST(options.operands, "operands");
}

void tst_CommandLineOptions::permutesACopy()
{
    const QList<QByteArray> arguments{"a.ps", "-P", "lp1", "b.ps"};
    ArgumentVector vector(arguments);
    const CommandLineOptions options(vector.argc(), vector.argv(), lprOptions, "ui");
    QCOMPARE(options.operands, texts("a.ps b.ps"));
    QCOMPARE(vector.current(), QList<QByteArray>{"lpr"} + arguments);
}

void tst_CommandLineOptions::parsesRepeatedly()
{
    // The second vector is longer than what getopt remembers, and the first one is gone.
    QCOMPARE(parsed({"a", "-h"}).operands, texts("a"));
    QCOMPARE(parsed({"-hx"}).size(), 3);
    const CommandLineOptions options = parsed({"b", "-P", "lp1", "c", "-p"});
    QCOMPARE(entriesOf(options), texts("P=lp1 p"));
    QCOMPARE(options.operands, texts("b c"));
}

void tst_CommandLineOptions::longOptions_data()
{
    QTest::addColumn<QByteArray>("longOptions");
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("operands");

    using A = QList<QByteArray>;
    using B = QByteArray;
    QTest::newRow("no argument") << B("one|two") << A{"--two", "x"} << texts("two") << texts("x");
    QTest::newRow("no argument, one given") << B("one") << A{"--one=x"} << texts("-") << texts("");
    QTest::newRow("argument attached") << B("one:") << A{"--one=x"} << texts("one=x") << texts("");
    QTest::newRow("argument follows")
        << B("one:") << A{"--one", "x", "y"} << texts("one=x") << texts("y");
    QTest::newRow("argument missing") << B("one:") << A{"--one"} << texts("-") << texts("");
    QTest::newRow("argument missing, character")
        << B("one:=z") << A{"--one"} << texts("- z") << texts("");
    QTest::newRow("argument empty") << B("one:") << A{"--one="} << texts("one=") << texts("");
    QTest::newRow("optional argument attached")
        << B("one::") << A{"--one=x"} << texts("one=x") << texts("");
    QTest::newRow("optional argument left out")
        << B("one::") << A{"--one", "x"} << texts("one") << texts("x");
    QTest::newRow("character") << B("one=z") << A{"--one"} << texts("one z") << texts("");
    QTest::newRow("character and argument")
        << B("one:=z") << A{"--one=x"} << texts("one=x z=x") << texts("");
    QTest::newRow("character and optional argument")
        << B("one::=z|two") << A{"--one=x", "--two"} << texts("one=x two z=x") << texts("");
    QTest::newRow("first character after the sign")
        << B("one=zy") << A{"--one"} << texts("one z") << texts("");
    QTest::newRow("nothing after the sign") << B("one=") << A{"--one"} << texts("one") << texts("");
    QTest::newRow("colon after the sign is the character")
        << B("one=:") << A{"--one", "x"} << texts(": one") << texts("x");
    QTest::newRow("text between the colons")
        << B("one:x:") << A{"--one", "v"} << texts("one=v") << texts("");
    QTest::newRow("empty list") << B("") << A{"--one"} << texts("-") << texts("");
    QTest::newRow("null list") << B() << A{"--one", "-h"} << texts("- h") << texts("");
    QTest::newRow("empty entries") << B("|one||two|") << A{"--two"} << texts("two") << texts("");
    QTest::newRow("no value of an earlier option")
        << B("one:|two") << A{"--one=x", "--two", "-h"} << texts("h one=x two") << texts("");
}

void tst_CommandLineOptions::longOptions()
{
    QFETCH(QByteArray, longOptions);
    QFETCH(QList<QByteArray>, arguments);
    const CommandLineOptions options =
        parsed(arguments, "h", longOptions.isNull() ? nullptr : longOptions.constData());
    QTEST(entriesOf(options), "entries");
    QTEST(options.operands, "operands");
}

void tst_CommandLineOptions::longOptionsAreCutAt1023Bytes()
{
    // 1018 bytes and five more: the list that fits holds all of "last".
    const QByteArray filling(1018, 'x');
    const QByteArray fitting = filling + "|last";
    QCOMPARE(fitting.size(), 1023);
    QCOMPARE(entriesOf(parsed({"--last"}, "", fitting.constData())), texts("last"));
    // One byte more cuts the argument's mark off.
    QCOMPARE(entriesOf(parsed({"--last", "v"}, "", (fitting + ':').constData())), texts("last"));
    QCOMPARE(parsed({"--last", "v"}, "", (fitting + ':').constData()).operands, texts("v"));
}

void tst_CommandLineOptions::longOptionsEndInTheMiddle()
{
    const QByteArray list = QByteArray(1018, 'x') + "|later";
    QCOMPARE(entriesOf(parsed({"--later"}, "", list.constData())), texts("-"));
    QCOMPARE(entriesOf(parsed({"--late"}, "", list.constData())), texts("late"));
}

void tst_CommandLineOptions::noArguments()
{
    char *none[] = {nullptr};
    const CommandLineOptions options(0, none, lprOptions, "ui");
    QVERIFY(options.isEmpty());
    QVERIFY(options.operands.isEmpty());
}

void tst_CommandLineOptions::localEncoding()
{
    const CommandLineOptions options = parsed({"-T", "\xc3\xa4 \xe2\x82\xac", "\xc3\x9c.ps"});
    QCOMPARE(options.value(QStringLiteral("T"), QString()), QStringLiteral("ä €"));
    QCOMPARE(options.operands, QStringList{QStringLiteral("Ü.ps")});
    // An unknown option that is no ASCII character: each of its bytes is recorded.
    QCOMPARE(parsed({"-\xc3\xa4"}).keys(),
             (QStringList{QStringLiteral("-"), QString(QChar(0xa4)), QString(QChar(0xc3))}));
}

void tst_CommandLineOptions::printsGetoptsMessage()
{
    FILE *capture = tmpfile();
    QVERIFY(capture);
    const int standardError = dup(STDERR_FILENO);
    fflush(stderr);
    dup2(fileno(capture), STDERR_FILENO);
    opterr = 1;
    parsed({"-x"});
    opterr = 0;
    fflush(stderr);
    dup2(standardError, STDERR_FILENO);
    close(standardError);

    rewind(capture);
    char line[128] = "";
    QVERIFY(fgets(line, sizeof line, capture));
    fclose(capture);
    QVERIFY2(QByteArray(line).startsWith("lpr: ") && QByteArray(line).contains('x'), line);
}

void tst_CommandLineOptions::setOption()
{
    CommandLineOptions options = parsed({"-o", "a=1"});
    options.setOption(QStringLiteral("o"), QStringLiteral("b=2"));
    options.setOption(QStringLiteral("C"), QStringLiteral("c"));
    options.setOption(QStringLiteral("n"), QStringLiteral("2"));
    QCOMPARE(entriesOf(options), texts("C=c n=2 o=b=2"));
}

void tst_CommandLineOptions::value()
{
    const CommandLineOptions options = parsed({"-h", "-T", "", "-P", "lp1"});
    const QString other = QStringLiteral("other");
    QCOMPARE(options.value(QStringLiteral("P"), other), QStringLiteral("lp1"));
    QCOMPARE(options.value(QStringLiteral("U"), other), other);
    QVERIFY(options.value(QStringLiteral("U"), QString()).isNull());
    QVERIFY(options.value(QStringLiteral("h"), other).isNull());
    const QString empty = options.value(QStringLiteral("T"), other);
    QVERIFY(empty.isEmpty() && !empty.isNull());
}

void tst_CommandLineOptions::intValue_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<int>("number");
    QTest::newRow("number") << texts("#=3") << 3;
    QTest::newRow("negative") << texts("#=-3") << -3;
    QTest::newRow("plus") << texts("#=+3") << 3;
    QTest::newRow("zero") << texts("#=0") << 0;
    QTest::newRow("leading zero") << texts("#=010") << 10;
    QTest::newRow("largest") << texts("#=2147483647") << 2147483647;
    QTest::newRow("too large") << texts("#=2147483648") << 77;
    QTest::newRow("letters") << texts("#=abc") << 77;
    QTest::newRow("letters behind") << texts("#=3a") << 77;
    QTest::newRow("hexadecimal") << texts("#=0x3") << 77;
    QTest::newRow("fraction") << texts("#=1.5") << 77;
    QTest::newRow("empty") << texts("#=") << 77;
    QTest::newRow("null") << texts("#") << 77;
    QTest::newRow("absent") << texts("") << 77;
}

void tst_CommandLineOptions::intValue()
{
    QFETCH(QStringList, entries);
    CommandLineOptions options = parsed({});
    options.insert(table(entries));
    QTEST(options.intValue(QStringLiteral("#"), 77), "number");
}

void tst_CommandLineOptions::uintValue_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<unsigned>("number");
    QTest::newRow("number") << texts("#=3") << 3U;
    QTest::newRow("largest") << texts("#=4294967295") << 4294967295U;
    QTest::newRow("too large") << texts("#=4294967296") << 77U;
    QTest::newRow("negative") << texts("#=-3") << 77U;
    QTest::newRow("letters") << texts("#=abc") << 77U;
    QTest::newRow("empty") << texts("#=") << 77U;
    QTest::newRow("absent") << texts("") << 77U;
}

void tst_CommandLineOptions::uintValue()
{
    QFETCH(QStringList, entries);
    CommandLineOptions options = parsed({});
    options.insert(table(entries));
    QTEST(options.uintValue(QStringLiteral("#"), 77), "number");
}

void tst_CommandLineOptions::toArguments_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("operands");
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("typical") << texts("o=sides=two-sided-long-edge h #=2 P=lp1") << texts("file")
                             << texts("-# 2 -P lp1 -h -o sides=two-sided-long-edge file");
    QTest::newRow("edge") << texts("#=3 P=lp1") << texts("a.ps b.ps")
                          << texts("-# 3 -P lp1 a.ps b.ps");
    QTest::newRow("flags") << texts("p h") << texts("") << texts("-h -p");
    QTest::newRow("long name") << texts("p ui P=x") << texts("") << texts("-P x -p --ui");
    QTest::newRow("long name with value") << texts("ui=False") << texts("") << texts("--ui False");
    QTest::newRow("empty value") << texts("T= P=x") << texts("") << texts("-P x -T");
    QTest::newRow("unknown option") << texts("- x") << texts("") << texts("-- -x");
    QTest::newRow("nothing") << texts("") << texts("") << texts("");
    QTest::newRow("operands keep their order") << texts("") << texts("z a -P") << texts("z a -P");
    QTest::newRow("a value is one argument")
        << QStringList{QStringLiteral("T=a b  c")} << texts("")
        << QStringList{QStringLiteral("-T"), QStringLiteral("a b  c")};
}

void tst_CommandLineOptions::toArguments()
{
    QFETCH(QStringList, entries);
    CommandLineOptions options = parsed({});
    options.insert(table(entries));
    QFETCH(QStringList, operands);
    options.operands = operands;
    QTEST(options.toArguments(), "arguments");
}

void tst_CommandLineOptions::describe_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("operands");
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << texts("") << texts("")
                             << QStringLiteral("options(0):\n\t\nnone-options(0):\n\t<>");
    QTest::newRow("one each") << texts("P=lp1") << texts("a.ps")
                              << QStringLiteral(
                                     "options(1):\n\t<P>=<lp1>\nnone-options(1):\n\t<a.ps>");
    QTest::newRow("several") << texts("h #=2") << texts("a b c")
                             << QStringLiteral("options(2):\n\t<#>=<2>\n\t<h>=<>\n"
                                               "none-options(3):\n\t<a>\n\t<b>\n\t<c>");
    QTest::newRow("place markers in values")
        << texts("P=%2 T=%1") << texts("%1 %2")
        << QStringLiteral("options(2):\n\t<P>=<%2>\n\t<T>=<%1>\nnone-options(2):\n\t<%1>\n\t<%2>");
}

void tst_CommandLineOptions::describe()
{
    QFETCH(QStringList, entries);
    CommandLineOptions options = parsed({});
    options.insert(table(entries));
    QFETCH(QStringList, operands);
    options.operands = operands;
    QTEST(options.describe(), "text");
}

void tst_CommandLineOptions::ascendingOrder()
{
    CommandLineOptions options = parsed({"--ui", "-p", "-h", "-U", "u", "-#", "1", "-C", "c"});
    QCOMPARE(options.keys(), texts("# C U h p ui"));
}

QTEST_GUILESS_MAIN(tst_CommandLineOptions)
#include "tst_commandlineoptions.moc"
