#include "InstallationSettings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

/** Each test has an empty tree of its own, with the working directory in its folder `cwd`. */
class tst_InstallationSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsEmpty();
    void directories_data();
    void directories();
    void relativePath_data();
    void relativePath();
    void relativePathInTopFolder();
    void relativePathInRootDirectory();
    void nullPath();
    void removedWorkingDirectory();
    void longPath();
    void firstFileWins_data();
    void firstFileWins();
    void unreadableFileIsPassedOver();
    void folderIsPassedOver();
    void missingFile();
    void defaults();
    void numbers_data();
    void numbers();
    void numberText_data();
    void numberText();
    void lines_data();
    void lines();
    void keyOrder_data();
    void keyOrder();
    void ignoredLines_data();
    void ignoredLines();
    void laterLineOverrides();
    void truncation_data();
    void truncation();
    void longLineContinuesAsNext();
    void onlyOneNewlineIsRemoved();
    void lastLineWithoutNewline();
    void modelsInFileOrder();
    void pluginsInFileOrder();
    void loadStartsAfresh();
    void vendorText_data();
    void vendorText();
    void vendorTextFormat();
    void vendorTextTruncates();
    void vendorTextOfNull();
    void vendorMatches_data();
    void vendorMatches();
    void vendorMatchesWithoutSettings();
    void fileExists();
    void joinPath_data();
    void joinPath();
    void joinPathTruncates();
    void joinPathOfItsOwnResult();

private:
    QByteArray root() const { return QFile::encodeName(m_tree->path()); }
    void write(const QString &path, const QByteArray &text);
    int loadText(const QByteArray &text);

    std::unique_ptr<QTemporaryDir> m_tree;
    QString m_oldWorkingDirectory;
};

namespace
{
const InstallationSettings &settings()
{
    return InstallationSettings::instance();
}

/** The value of the field that a test row names. */
int number(const QByteArray &field)
{
    if (field == "multiVendor")
        return settings().multiVendor;
    if (field == "parallelPort")
        return settings().parallelPort;
    if (field == "portPlugin")
        return settings().portPlugin;
    if (field == "scanner")
        return settings().scanner;
    if (field == "updatePrinterGroup")
        return settings().updatePrinterGroup;
    return std::numeric_limits<int>::min();
}
} // namespace

void tst_InstallationSettings::init()
{
    m_tree = std::make_unique<QTemporaryDir>();
    QVERIFY(m_tree->isValid());
    for (const char *folder : {"bin", "share", "cwd"})
        QVERIFY(QDir(m_tree->path()).mkdir(QLatin1String(folder)));
    m_oldWorkingDirectory = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_tree->filePath(QStringLiteral("cwd"))));
}

void tst_InstallationSettings::cleanup()
{
    QVERIFY(QDir::setCurrent(m_oldWorkingDirectory));
    m_tree.reset();
}

void tst_InstallationSettings::write(const QString &path, const QByteArray &text)
{
    QFile file(m_tree->filePath(path));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
}

/** Loads the settings of a program in the tree whose settings file holds `text`. */
int tst_InstallationSettings::loadText(const QByteArray &text)
{
    write(QStringLiteral("share/OEM.ini"), text);
    return InstallationSettings::load((root() + "/bin/vesk").constData());
}

void tst_InstallationSettings::startsEmpty()
{
    // Runs first: nothing has been loaded yet.
    QCOMPARE(settings().shareDirectory, "");
    QCOMPARE(settings().parallelPort, 0);
    QCOMPARE(settings().modelCount, 0);
}

void tst_InstallationSettings::directories_data()
{
    QTest::addColumn<QByteArray>("programPath");
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<QByteArray>("root");
    QTest::addColumn<QByteArray>("share");

    using B = QByteArray;
    QTest::newRow("installed") << B("/opt/x/bin/vesk") << B("/opt/x/bin") << B("/opt/x")
                               << B("/opt/x/share");
    QTest::newRow("one level") << B("/tmp/vesk") << B("/tmp") << B("") << B("/share");
    QTest::newRow("top") << B("/vesk") << B("") << B("") << B("/share");
    QTest::newRow("slash at end") << B("/a/b/") << B("/a/b") << B("/a") << B("/a/share");
    QTest::newRow("double slash") << B("/a//b/vesk") << B("/a//b") << B("/a/") << B("/a//share");
}

void tst_InstallationSettings::directories()
{
    QFETCH(QByteArray, programPath);
    InstallationSettings::load(programPath.constData());
    QTEST(QByteArray(settings().programDirectory), "program");
    QTEST(QByteArray(settings().rootDirectory), "root");
    QTEST(QByteArray(settings().shareDirectory), "share");
}

void tst_InstallationSettings::relativePath_data()
{
    QTest::addColumn<QByteArray>("programPath");
    QTest::addColumn<QByteArray>("program");

    QTest::newRow("name") << QByteArray("vesk") << QByteArray("/cwd");
    QTest::newRow("dot") << QByteArray("./vesk") << QByteArray("/cwd");
    QTest::newRow("one dot only") << QByteArray("././vesk") << QByteArray("/cwd/.");
    QTest::newRow("folder") << QByteArray("sub/vesk") << QByteArray("/cwd/sub");
    QTest::newRow("parent") << QByteArray("../bin/vesk") << QByteArray("/cwd/../bin");
    QTest::newRow("empty") << QByteArray("") << QByteArray("/cwd");
}

void tst_InstallationSettings::relativePath()
{
    QFETCH(QByteArray, programPath);
    QFETCH(QByteArray, program);
    InstallationSettings::load(programPath.constData());
    QCOMPARE(QByteArray(settings().programDirectory), root() + program);
}

void tst_InstallationSettings::relativePathInTopFolder()
{
    QVERIFY(QDir::setCurrent(QStringLiteral("/tmp")));
    InstallationSettings::load("vesk");
    QCOMPARE(settings().programDirectory, "/tmp");
    QCOMPARE(settings().rootDirectory, "");
    QCOMPARE(settings().shareDirectory, "/share");
}

void tst_InstallationSettings::relativePathInRootDirectory()
{
    QVERIFY(QDir::setCurrent(QStringLiteral("/")));
    InstallationSettings::load("sub/vesk");
    QCOMPARE(settings().programDirectory, "/sub");
}

void tst_InstallationSettings::nullPath()
{
    QCOMPARE(InstallationSettings::load(nullptr), -1);
    QCOMPARE(QByteArray(settings().programDirectory), root() + "/cwd");
}

void tst_InstallationSettings::removedWorkingDirectory()
{
    QVERIFY(QDir(m_tree->path()).rmdir(QStringLiteral("cwd")));
    InstallationSettings::load("sub/vesk");
    QCOMPARE(settings().programDirectory, "/sub");
}

void tst_InstallationSettings::longPath()
{
    const QByteArray folder = '/' + QByteArray(5000, 'a');
    InstallationSettings::load((folder + "/bin/vesk").constData());
    // The path is cut to 4095 characters before it is taken apart.
    QCOMPARE(settings().programDirectory, "");

    const QByteArray fitting = '/' + QByteArray(4084, 'a');
    InstallationSettings::load((fitting + "/bin/vesk").constData());
    QCOMPARE(QByteArray(settings().programDirectory), fitting + "/bin");
    QCOMPARE(QByteArray(settings().rootDirectory), fitting);
    QCOMPARE(QByteArray(settings().shareDirectory), fitting + "/share");

    const QByteArray tooLong = '/' + QByteArray(4092, 'a');
    InstallationSettings::load((tooLong + "/b/vesk").constData());
    QCOMPARE(QByteArray(settings().rootDirectory), QByteArray());
    InstallationSettings::load((tooLong + "/v").constData());
    QCOMPARE(QByteArray(settings().programDirectory), tooLong);

    const QByteArray longRoot = '/' + QByteArray(4090, 'a');
    InstallationSettings::load((longRoot + "/b/").constData());
    QCOMPARE(QByteArray(settings().rootDirectory), longRoot);
    QCOMPARE(QByteArray(settings().shareDirectory), longRoot + "/sha");
}

void tst_InstallationSettings::firstFileWins_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QByteArray>("winner");

    const QString share = QStringLiteral("share/OEM.ini");
    const QString top = QStringLiteral("OEM.ini");
    const QString work = QStringLiteral("cwd/OEM.ini");
    QTest::newRow("all") << QStringList{share, top, work} << QByteArray("share/OEM.ini");
    QTest::newRow("root") << QStringList{top, work} << QByteArray("OEM.ini");
    QTest::newRow("working directory") << QStringList{work} << QByteArray("cwd/OEM.ini");
}

void tst_InstallationSettings::firstFileWins()
{
    QFETCH(QStringList, files);
    for (const QString &file : files)
        write(file, "VENDOR=" + file.toLatin1() + '\n');
    QCOMPARE(InstallationSettings::load((root() + "/bin/vesk").constData()), 0);
    QTEST(QByteArray(settings().vendor), "winner");
}

void tst_InstallationSettings::unreadableFileIsPassedOver()
{
    // A link into nowhere cannot be opened, for root neither.
    QVERIFY(QFile::link(QStringLiteral("/nonexistent/OEM.ini"),
                        m_tree->filePath(QStringLiteral("share/OEM.ini"))));
    write(QStringLiteral("OEM.ini"), "VENDOR=Second\n");
    QCOMPARE(InstallationSettings::load((root() + "/bin/vesk").constData()), 0);
    QCOMPARE(settings().vendor, "Second");
}

void tst_InstallationSettings::folderIsPassedOver()
{
    QVERIFY(QDir(m_tree->path()).mkdir(QStringLiteral("share/OEM.ini")));
    QCOMPARE(InstallationSettings::load((root() + "/bin/vesk").constData()), -1);
    QCOMPARE(number("parallelPort"), 0);
    write(QStringLiteral("OEM.ini"), "VENDOR=Second\n");
    QCOMPARE(InstallationSettings::load((root() + "/bin/vesk").constData()), 0);
    QCOMPARE(settings().vendor, "Second");
}

void tst_InstallationSettings::missingFile()
{
    QCOMPARE(loadText("VENDOR=Abc\nURL=u\nMODEL=m\nPLUGIN=p\nMULTIVENDOR=1\n"), 0);
    QVERIFY(QFile::remove(m_tree->filePath(QStringLiteral("share/OEM.ini"))));
    QCOMPARE(InstallationSettings::load((root() + "/bin/vesk").constData()), -1);

    QCOMPARE(QByteArray(settings().shareDirectory), root() + "/share");
    QCOMPARE(settings().vendor, "");
    QCOMPARE(settings().vendorLower, "");
    QCOMPARE(settings().vendorUpper, "");
    QCOMPARE(settings().url, "");
    QCOMPARE(settings().modelCount, 0);
    QCOMPARE(settings().pluginCount, 0);
    for (const char *field :
         {"multiVendor", "parallelPort", "portPlugin", "scanner", "updatePrinterGroup"})
        QCOMPARE(number(field), 0);
}

void tst_InstallationSettings::defaults()
{
    QCOMPARE(loadText(""), 0);
    QCOMPARE(settings().vendor, "");
    QCOMPARE(settings().vendorLower, "");
    QCOMPARE(settings().vendorUpper, "");
    QCOMPARE(settings().url, "");
    QCOMPARE(settings().modelCount, 0);
    QCOMPARE(settings().pluginCount, 0);
    QCOMPARE(settings().multiVendor, 0);
    QCOMPARE(settings().parallelPort, 1);
    QCOMPARE(settings().portPlugin, 1);
    QCOMPARE(settings().scanner, 1);
    QCOMPARE(settings().updatePrinterGroup, 1);
}

void tst_InstallationSettings::numbers_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("field");

    QTest::newRow("MULTIVENDOR") << QByteArray("MULTIVENDOR=") << QByteArray("multiVendor");
    QTest::newRow("PARPORT") << QByteArray("PARPORT=") << QByteArray("parallelPort");
    QTest::newRow("PORTPLUGIN") << QByteArray("PORTPLUGIN=") << QByteArray("portPlugin");
    QTest::newRow("SCANNER") << QByteArray("SCANNER=") << QByteArray("scanner");
    QTest::newRow("UPDATE_PRINTER_GROUP")
        << QByteArray("UPDATE_PRINTER_GROUP=") << QByteArray("updatePrinterGroup");
}

void tst_InstallationSettings::numbers()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, field);
    QCOMPARE(loadText(key + "7\n"), 0);
    for (const char *each :
         {"multiVendor", "parallelPort", "portPlugin", "scanner", "updatePrinterGroup"}) {
        const int untouched = qstrcmp(each, "multiVendor") == 0 ? 0 : 1;
        QCOMPARE(number(each), each == field ? 7 : untouched);
    }
    QCOMPARE(settings().vendor, "");
    QCOMPARE(settings().pluginCount, 0);
}

void tst_InstallationSettings::numberText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("blanks") << QByteArray(" \t 12") << 12;
    QTest::newRow("rest ignored") << QByteArray("34x5") << 34;
    QTest::newRow("not octal") << QByteArray("010") << 10;
    QTest::newRow("not hexadecimal") << QByteArray("0x10") << 0;
    QTest::newRow("negative") << QByteArray("-5") << -5;
    QTest::newRow("plus") << QByteArray("+5") << 5;
    QTest::newRow("nothing") << QByteArray("") << 0;
    QTest::newRow("no digits") << QByteArray("yes") << 0;
    QTest::newRow("too large") << QByteArray("99999999999999999999")
                               << std::numeric_limits<int>::max();
}

void tst_InstallationSettings::numberText()
{
    QFETCH(QByteArray, text);
    QCOMPARE(loadText("SCANNER=" + text + "\n"), 0);
    QTEST(settings().scanner, "expected");
}

void tst_InstallationSettings::lines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("vendor");
    QTest::addColumn<QByteArray>("lower");
    QTest::addColumn<QByteArray>("upper");
    QTest::addColumn<QByteArray>("url");

    using B = QByteArray;
    QTest::newRow("vendor") << B("VENDOR=Abc") << B("Abc") << B("abc") << B("ABC") << B();
    QTest::newRow("vendor in the line")
        << B("  my VENDOR=Abc") << B("Abc") << B("abc") << B("ABC") << B();
    QTest::newRow("blanks stay") << B("VENDOR= A b ") << B(" A b ") << B(" a b ") << B(" A B ")
                                 << B();
    QTest::newRow("ASCII alone changes case") << B("VENDOR=\xc3\x84z9-I") << B("\xc3\x84z9-I")
                                              << B("\xc3\x84z9-i") << B("\xc3\x84Z9-I") << B();
    QTest::newRow("carriage return stays")
        << B("VENDOR=A\r") << B("A\r") << B("a\r") << B("A\r") << B();
    QTest::newRow("url") << B("URL=http://a/?b=c") << B() << B() << B() << B("http://a/?b=c");
    QTest::newRow("lower-case key") << B("vendor=Abc") << B() << B() << B() << B();
    QTest::newRow("blank before the sign") << B("VENDOR =Abc") << B() << B() << B() << B();
}

void tst_InstallationSettings::lines()
{
    QFETCH(QByteArray, line);
    QCOMPARE(loadText(line + '\n'), 0);
    QTEST(QByteArray(settings().vendor), "vendor");
    QTEST(QByteArray(settings().vendorLower), "lower");
    QTEST(QByteArray(settings().vendorUpper), "upper");
    QTEST(QByteArray(settings().url), "url");
}

void tst_InstallationSettings::keyOrder_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("result");

    // The text is what describes the record: five numbers, vendor, URL, models, plug-ins.
    const QByteArray keys[] = {
        "MULTIVENDOR=", "PARPORT=", "PORTPLUGIN=", "SCANNER=", "UPDATE_PRINTER_GROUP=",
        "VENDOR=",      "URL=",     "MODEL=",      "PLUGIN="};
    const QByteArray results[] = {"5 1 1 1 1", "0 5 1 1 1", "0 1 5 1 1", "0 1 1 5 1", "0 1 1 1 5"};
    // Of two keys in a line, the one that is tested first acts, wherever it stands.
    for (size_t first = 0; first < std::size(results); ++first) {
        for (size_t later = first + 1; later < std::size(keys); ++later) {
            const QByteArray line = keys[later] + "9 " + keys[first] + '5';
            QTest::newRow(line.constData()) << line << results[first] + ",,,0,0";
        }
    }
    QTest::newRow("vendor") << QByteArray("PLUGIN=9 MODEL=9 URL=9 VENDOR=5")
                            << QByteArray("0 1 1 1 1,5,,0,0");
    QTest::newRow("url") << QByteArray("PLUGIN=9 MODEL=9 URL=5") << QByteArray("0 1 1 1 1,,5,0,0");
    QTest::newRow("model") << QByteArray("PLUGIN=9 MODEL=5") << QByteArray("0 1 1 1 1,,,1,0");
}

void tst_InstallationSettings::keyOrder()
{
    QFETCH(QByteArray, line);
    QCOMPARE(loadText(line + '\n'), 0);
    const InstallationSettings &s = settings();
    const QString result = QStringLiteral("%1 %2 %3 %4 %5,%6,%7,%8,%9")
                               .arg(s.multiVendor)
                               .arg(s.parallelPort)
                               .arg(s.portPlugin)
                               .arg(s.scanner)
                               .arg(s.updatePrinterGroup)
                               .arg(QLatin1String(s.vendor), QLatin1String(s.url))
                               .arg(s.modelCount)
                               .arg(s.pluginCount);
    QTEST(result.toLatin1(), "result");
}

void tst_InstallationSettings::ignoredLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("comment") << QByteArray("# a comment");
    QTest::newRow("section") << QByteArray("[General]");
    QTest::newRow("unknown key") << QByteArray("COLOUR=3");
    QTest::newRow("no sign") << QByteArray("VENDOR");
}

void tst_InstallationSettings::ignoredLines()
{
    QFETCH(QByteArray, line);
    QCOMPARE(loadText(line + "\nURL=kept\n"), 0);
    QCOMPARE(settings().vendor, "");
    QCOMPARE(settings().url, "kept");
    QCOMPARE(settings().modelCount, 0);
    QCOMPARE(settings().pluginCount, 0);
}

void tst_InstallationSettings::laterLineOverrides()
{
    QCOMPARE(loadText("VENDOR=Longer name\nSCANNER=4\nURL=a\nVENDOR=B\nSCANNER=0\nURL=b\n"), 0);
    QCOMPARE(settings().vendor, "B");
    QCOMPARE(settings().vendorLower, "b");
    QCOMPARE(settings().vendorUpper, "B");
    QCOMPARE(settings().url, "b");
    QCOMPARE(settings().scanner, 0);
}

void tst_InstallationSettings::truncation_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("length");
    QTest::newRow("VENDOR") << QByteArray("VENDOR=") << 31;
    QTest::newRow("URL") << QByteArray("URL=") << 255;
    QTest::newRow("MODEL") << QByteArray("MODEL=") << 15;
    // What a line of 511 characters leaves for the value.
    QTest::newRow("PLUGIN") << QByteArray("PLUGIN=") << 504;
}

void tst_InstallationSettings::truncation()
{
    QFETCH(QByteArray, key);
    QFETCH(int, length);
    const QByteArray fitting(length, 'x');
    for (const QByteArray &value : {fitting, fitting + 'y'}) {
        QCOMPARE(loadText(key + value + '\n'), 0);
        const QByteArray stored = QByteArray(settings().vendor) + settings().url +
                                  settings().models[0] + settings().plugins[0];
        QCOMPARE(stored, fitting);
    }
}

void tst_InstallationSettings::longLineContinuesAsNext()
{
    QCOMPARE(loadText("#" + QByteArray(510, 'x') + "VENDOR=Abc\n"), 0);
    QCOMPARE(settings().vendor, "Abc");
    QCOMPARE(loadText("#" + QByteArray(508, 'x') + "VENDOR=Abc\n"), 0);
    QCOMPARE(settings().vendor, "");
}

void tst_InstallationSettings::onlyOneNewlineIsRemoved()
{
    // 511 characters and the newline, which makes a line of its own.
    const QByteArray value(504, 'p');
    QCOMPARE(loadText("PLUGIN=" + value + "\nPLUGIN=next\n"), 0);
    QCOMPARE(settings().pluginCount, 2);
    QCOMPARE(QByteArray(settings().plugins[0]), value);
    QCOMPARE(settings().plugins[1], "next");
}

void tst_InstallationSettings::lastLineWithoutNewline()
{
    QCOMPARE(loadText("URL=a\nVENDOR=Abc"), 0);
    QCOMPARE(settings().vendor, "Abc");
}

void tst_InstallationSettings::modelsInFileOrder()
{
    QByteArray text;
    for (int i = 1; i <= 33; ++i)
        text += "MODEL=m" + QByteArray::number(i) + '\n';
    QCOMPARE(loadText(text + "URL=after\n"), 0);
    QCOMPARE(settings().modelCount, 32);
    for (int i = 0; i < 32; ++i)
        QCOMPARE(QByteArray(settings().models[i]), "m" + QByteArray::number(i + 1));
    QCOMPARE(settings().pluginCount, 0);
    QCOMPARE(settings().url, "after");
}

void tst_InstallationSettings::pluginsInFileOrder()
{
    QByteArray text;
    for (int i = 1; i <= 6; ++i)
        text += "PLUGIN=p" + QByteArray::number(i) + '\n';
    QCOMPARE(loadText(text + "URL=after\n"), 0);
    QCOMPARE(settings().pluginCount, 5);
    for (int i = 0; i < 5; ++i)
        QCOMPARE(QByteArray(settings().plugins[i]), "p" + QByteArray::number(i + 1));
    QCOMPARE(settings().url, "after");
}

void tst_InstallationSettings::loadStartsAfresh()
{
    QCOMPARE(loadText("VENDOR=Abc\nMODEL=a\nPLUGIN=b\nSCANNER=0\n"), 0);
    QCOMPARE(loadText("MODEL=c\n"), 0);
    QCOMPARE(settings().vendor, "");
    QCOMPARE(settings().modelCount, 1);
    QCOMPARE(settings().models[0], "c");
    QCOMPARE(settings().pluginCount, 0);
    QCOMPARE(settings().scanner, 1);
}

void tst_InstallationSettings::vendorText_data()
{
    QTest::addColumn<QByteArray>("selector");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("lc") << QByteArray("lc") << QByteArray("abc");
    QTest::newRow("uc") << QByteArray("uc") << QByteArray("ABC");
    QTest::newRow("other first character") << QByteArray("xc") << QByteArray("Abc");
    QTest::newRow("other second character") << QByteArray("lx") << QByteArray("Abc");
    QTest::newRow("capitals") << QByteArray("LC") << QByteArray("Abc");
    QTest::newRow("too short") << QByteArray("l") << QByteArray("Abc");
    QTest::newRow("too long") << QByteArray("lcx") << QByteArray("Abc");
    QTest::newRow("empty") << QByteArray("") << QByteArray("Abc");
    QTest::newRow("none") << QByteArray() << QByteArray("Abc");
}

void tst_InstallationSettings::vendorText()
{
    QFETCH(QByteArray, selector);
    QFETCH(QByteArray, name);
    QCOMPARE(loadText("VENDOR=Abc\n"), 0);
    const char *argument = selector.isNull() ? nullptr : selector.constData();
    const char *text = InstallationSettings::vendorText(argument, "<%s>");
    QCOMPARE(QByteArray(text), '<' + name + '>');
}

void tst_InstallationSettings::vendorTextFormat()
{
    QCOMPARE(loadText("VENDOR=Abc\n"), 0);
    QCOMPARE(InstallationSettings::vendorText("lc", "100%% %6s!"), "100%    abc!");
    const char *first = InstallationSettings::vendorText(nullptr, "%s");
    QCOMPARE(InstallationSettings::vendorText(nullptr, "no name"), "no name");
    // One buffer for all calls.
    QCOMPARE(first, "no name");
}

void tst_InstallationSettings::vendorTextTruncates()
{
    QCOMPARE(loadText("VENDOR=Abc\n"), 0);
    const QByteArray filling(1022, 'x');
    QCOMPARE(QByteArray(InstallationSettings::vendorText("uc", (filling + "%s").constData())),
             filling + 'A');
}

void tst_InstallationSettings::vendorTextOfNull()
{
    QCOMPARE(loadText("VENDOR=Abc\n"), 0);
    QCOMPARE(InstallationSettings::vendorText("lc", nullptr), "");
}

void tst_InstallationSettings::vendorMatches_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("matches");

    using B = QByteArray;
    const B one("VENDOR=Abc\n");
    QTest::newRow("capitals") << one << B("ABC Laser 100") << true;
    QTest::newRow("small") << one << B("an abc printer") << true;
    QTest::newRow("at the end") << one << B("printer by aBc") << true;
    QTest::newRow("equal") << one << B("Abc") << true;
    QTest::newRow("inside a word") << one << B("xabcx") << true;
    QTest::newRow("other") << one << B("Other 100") << false;
    QTest::newRow("part of the name") << one << B("Ab") << false;
    QTest::newRow("empty name") << one << B("") << false;
    QTest::newRow("null") << one << B() << false;
    const B none("URL=x\n");
    QTest::newRow("no vendor") << none << B("anything") << true;
    QTest::newRow("no vendor, empty name") << none << B("") << true;
    QTest::newRow("no vendor, null") << none << B() << false;
    const B several("VENDOR=Abc\nMULTIVENDOR=1\n");
    QTest::newRow("several vendors") << several << B("Other 100") << true;
    QTest::newRow("several vendors, null") << several << B() << true;
    QTest::newRow("negative is not zero") << B("VENDOR=Abc\nMULTIVENDOR=-1\n") << B() << true;
}

void tst_InstallationSettings::vendorMatches()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, name);
    QCOMPARE(loadText(text), 0);
    QTEST(InstallationSettings::vendorMatches(name.isNull() ? nullptr : name.constData()),
          "matches");
}

void tst_InstallationSettings::vendorMatchesWithoutSettings()
{
    QCOMPARE(InstallationSettings::load("/nonexistent/bin/vesk"), -1);
    QVERIFY(InstallationSettings::vendorMatches("anything"));
    QVERIFY(!InstallationSettings::vendorMatches(nullptr));
}

void tst_InstallationSettings::fileExists()
{
    write(QStringLiteral("file"), "");
    QVERIFY(::fileExists((root() + "/file").constData()));
    QVERIFY(::fileExists((root() + "/share").constData()));
    QVERIFY(!::fileExists((root() + "/missing").constData()));
    QVERIFY(!::fileExists(""));
    QVERIFY(!::fileExists(nullptr));
    // stat follows a link: one into nowhere names no file.
    QVERIFY(QFile::link(QStringLiteral("/nonexistent"), m_tree->filePath(QStringLiteral("link"))));
    QVERIFY(!::fileExists((root() + "/link").constData()));
}

void tst_InstallationSettings::joinPath_data()
{
    QTest::addColumn<QByteArray>("directory");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("path");

    using B = QByteArray;
    QTest::newRow("plain") << B("/a/b") << B("c") << B("/a/b/c");
    QTest::newRow("slash") << B("/a/b/") << B("c") << B("/a/b/c");
    QTest::newRow("root") << B("/") << B("c") << B("/c");
    QTest::newRow("empty directory") << B("") << B("c") << B("/c");
    QTest::newRow("empty name") << B("/a") << B("") << B("/a/");
    QTest::newRow("slash in the name") << B("/a") << B("/c") << B("/a//c");
    QTest::newRow("null directory") << B() << B("c") << B("/c");
    QTest::newRow("null name") << B("/a") << B() << B("/a/");
}

void tst_InstallationSettings::joinPath()
{
    QFETCH(QByteArray, directory);
    QFETCH(QByteArray, name);
    QTEST(QByteArray(::joinPath(directory.isNull() ? nullptr : directory.constData(),
                                name.isNull() ? nullptr : name.constData())),
          "path");
}

void tst_InstallationSettings::joinPathTruncates()
{
    const QByteArray directory = '/' + QByteArray(4092, 'd');
    QCOMPARE(QByteArray(::joinPath(directory.constData(), "name")), directory + "/n");
}

void tst_InstallationSettings::joinPathOfItsOwnResult()
{
    QCOMPARE(::joinPath(::joinPath("/a", "b"), "c"), "/a/b/c");
    QCOMPARE(::joinPath("/a", ::joinPath("b", "c")), "/a/b/c");
}

QTEST_GUILESS_MAIN(tst_InstallationSettings)
#include "tst_installationsettings.moc"
