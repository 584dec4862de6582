#include "Entry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace
{
/** Points a descriptor elsewhere while it lives. */
class Redirection
{
public:
    Redirection(int descriptor, int target)
        : m_descriptor(descriptor)
        , m_before(dup(descriptor))
    {
        dup2(target, descriptor);
    }
    Redirection(const Redirection &) = delete;
    Redirection &operator=(const Redirection &) = delete;
    ~Redirection()
    {
        dup2(m_before, m_descriptor);
        close(m_before);
    }

private:
    int m_descriptor;
    int m_before;
};

/** A pipe whose writing end holds `data` and is closed. */
int pipeWith(const QByteArray &data)
{
    int ends[2];
    if (pipe(ends) != 0 || write(ends[1], data.constData(), size_t(data.size())) != data.size())
        qFatal("no pipe");
    close(ends[1]);
    return ends[0];
}
} // namespace

/** Runs that are handed over, with a client that notes its arguments and its last one's contents.
 */
class TestEntry : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void handsOver_data();
    void handsOver();
    void capturesStandardInput();
    void keepsTheTitleOfTheCommandLine();
    void passesOnTheClientsStatus();
    void tellsThatTheClientIsMissing();
    void refusesInputThatItCannotStore();
    void truncatesTheLogs();
    void truncatesTheLogsWithoutInput();
    void saysThatThereAreNoSettings();

private:
    int run(const QList<QByteArray> &arguments, const QByteArray &input = QByteArray());
    void installClient(const QByteArray &end);
    QList<QByteArray> clientArguments() const;
    QByteArray read(const char *name) const;
    QString path(const char *name) const { return m_root.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_root;
    std::string m_title;
    QByteArray m_output;
    QByteArray m_errors;
};

void TestEntry::initTestCase()
{
    for (const char *folder : {"usr/bin", "var/tmp", "tmp"})
        QVERIFY(QDir(m_root.path()).mkpath(QString::fromLatin1(folder)));
    qputenv("VESK_RELOCATED_ROOT", QFile::encodeName(m_root.path()));
    qputenv("TMPDIR", QFile::encodeName(path("tmp")));
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        qunsetenv(variable);
}

void TestEntry::init()
{
    qunsetenv("PRINT_FROM_ORRN");
    installClient("exit 0");
    QFile::remove(path("argv"));
    QFile::remove(path("document"));
}

void TestEntry::installClient(const QByteArray &end)
{
    QFile client(path("usr/bin/lpr.orig"));
    QVERIFY(client.open(QIODevice::WriteOnly));
    client.write(
        "#!/bin/sh\nprintf '%s\\0' \"$@\" > \"$VESK_RELOCATED_ROOT/argv\"\n"
        "for last do :; done\n"
        "if [ -f \"$last\" ]; then cat \"$last\" > \"$VESK_RELOCATED_ROOT/document\"; fi\n" +
        end + '\n');
    QVERIFY(client.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner |
                                  QFileDevice::WriteOwner));
}

int TestEntry::run(const QList<QByteArray> &arguments, const QByteArray &input)
{
    QList<QByteArray> words = arguments;
    words.prepend("lpr");
    std::vector<char *> argv;
    for (QByteArray &word : words)
        argv.push_back(word.data());
    const int argc = int(argv.size());
    argv.push_back(nullptr);

    const int outputs[2] = {open(path("out").toLocal8Bit(), O_RDWR | O_CREAT | O_TRUNC, 0600),
                            open(path("err").toLocal8Bit(), O_RDWR | O_CREAT | O_TRUNC, 0600)};
    const int source = pipeWith(input);
    int status = 0;
    {
        std::fflush(nullptr);
        const Redirection in(STDIN_FILENO, source);
        const Redirection out(STDOUT_FILENO, outputs[0]);
        const Redirection err(STDERR_FILENO, outputs[1]);
        Entry entry(argc, argv.data());
        status = entry.run();
        m_title = entry.jobTitle();
        std::fflush(nullptr);
    }
    for (int descriptor : {source, outputs[0], outputs[1]})
        close(descriptor);
    m_output = read("out");
    m_errors = read("err");
    return status;
}

QByteArray TestEntry::read(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<QByteArray> TestEntry::clientArguments() const
{
    QList<QByteArray> arguments = read("argv").split('\0');
    arguments.removeLast();
    return arguments;
}

void TestEntry::handsOver_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<QList<QByteArray>>("passed");
    QTest::addColumn<bool>("companion");

    const auto same = [](const char *name, const QList<QByteArray> &arguments,
                         bool companion = false) {
        QTest::newRow(name) << arguments << arguments << companion;
    };
    same("unknown option", {"-Z", "file.ps"});
    same("unknown option after the file", {"file.ps", "-Z", "-P", "x"});
    same("missing argument", {"file.ps", "-P"});
    same("window off", {"--ui", "False", "file.ps"});
    same("window off with =", {"--ui=False", "file.ps"});
    same("companion", {"-P", "lp1", "file.ps"}, true);
    same("no display", {"a b", "-o", "x=\"1\" $`\\", "new\nline", "", "-T", "", "\xc3\xa4"});
    same("bytes that are no text", {"-T", "\xff\xfe", "f\xe4"});
    same("after the end of options", {"--", "-display", "-Z"});
    QTest::newRow("toolkit's options")
        << QList<QByteArray>{"-display", ":64321", "-P", "lp1", "-style=fusion", "file.ps"}
        << QList<QByteArray>{"-P", "lp1", "file.ps"} << false;
}

void TestEntry::handsOver()
{
    QFETCH(QList<QByteArray>, arguments);
    QFETCH(bool, companion);
    if (companion)
        qputenv("PRINT_FROM_ORRN", "");
    QCOMPARE(run(arguments), 0);
    QTEST(clientArguments(), "passed");
}

void TestEntry::capturesStandardInput()
{
    QCOMPARE(run({"-P", "lp1"}, "hi\n"), 0);
    QCOMPARE(clientArguments().size(), 3);
    QCOMPARE(clientArguments().mid(0, 2), (QList<QByteArray>{"-P", "lp1"}));
    QVERIFY(clientArguments().last().startsWith(QFile::encodeName(path("tmp"))));
    QCOMPARE(read("document"), QByteArray("hi\n"));
    QCOMPARE(m_title, std::string("(stdin)"));
    QCOMPARE(QDir(path("tmp")).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void TestEntry::keepsTheTitleOfTheCommandLine()
{
    QCOMPARE(run({"-T", "Letter"}, "hi\n"), 0);
    QCOMPARE(m_title, std::string("Letter"));
    QCOMPARE(run({"file"}), 0);
    QVERIFY(m_title.empty());
}

void TestEntry::passesOnTheClientsStatus()
{
    installClient("exit 42");
    QCOMPARE(run({"file"}), 42);
    installClient("kill -9 $$");
    QCOMPARE(run({"file"}), -1);
}

void TestEntry::tellsThatTheClientIsMissing()
{
    QVERIFY(QFile::remove(path("usr/bin/lpr.orig")));
    QCOMPARE(run({}, "hi\n"), -2);
    QCOMPARE(m_errors, QByteArray("ProcessEx::execute: failed to launch\n"));
    QCOMPARE(QDir(path("tmp")).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void TestEntry::refusesInputThatItCannotStore()
{
    const int directory = open("/", O_RDONLY | O_DIRECTORY);
    int status = 0;
    {
        std::vector<char> name = {'l', 'p', 'r', '\0'};
        char *argv[] = {name.data(), nullptr};
        const int errors = open(path("err").toLocal8Bit(), O_RDWR | O_CREAT | O_TRUNC, 0600);
        const Redirection in(STDIN_FILENO, directory);
        const Redirection err(STDERR_FILENO, errors);
        close(errors);
        status = Entry(1, argv).run();
    }
    close(directory);
    QCOMPARE(status, int(Entry::InputNotStored));
    QCOMPARE(read("err"),
             QByteArray("lpr: Nothing was printed: cannot read standard input: Is a directory\n"));
    QVERIFY(!QFile::exists(path("argv")));
}

namespace
{
const QStringList Logs = {QStringLiteral("PrinterOptions.log"), QStringLiteral("ipp_class.log"),
                          QStringLiteral("ipp_driver.log"),     QStringLiteral("ipp_job.log"),
                          QStringLiteral("ipp_printer.log"),    QStringLiteral("ipp_request.log")};

void fillLogs(const QDir &folder)
{
    for (const QString &name : Logs) {
        QFile log(folder.filePath(name));
        QVERIFY(log.open(QIODevice::WriteOnly));
        log.write("of the last run");
    }
}

void compareLogsWithNothing(const QDir &folder)
{
    for (const QString &name : Logs)
        QCOMPARE(QFileInfo(folder.filePath(name)).size(), 0);
}
} // namespace

void TestEntry::truncatesTheLogs()
{
    const QDir logs(path("var/tmp"));
    fillLogs(logs);
    QCOMPARE(run({"file"}), 0);
    compareLogsWithNothing(logs);
}

void TestEntry::truncatesTheLogsWithoutInput()
{
    const QDir logs(path("var/tmp"));
    fillLogs(logs);
    refusesInputThatItCannotStore();
    compareLogsWithNothing(logs);
}

void TestEntry::saysThatThereAreNoSettings()
{
    QVERIFY(QDir::setCurrent(m_root.path()));
    QCOMPARE(run({"file"}), 0);
    QCOMPARE(m_output, QByteArray("WARNING: configuration file not found\n"));

    QFile settings(path("OEM.ini"));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.close();
    QCOMPARE(run({"file"}), 0);
    QCOMPARE(m_output, QByteArray());
    QVERIFY(settings.remove());
}

QTEST_APPLESS_MAIN(TestEntry)
#include "tst_entry.moc"
