#include "AttributeLog.h"
#include "CUPSManager.h"
#include "FakeIppServer.h"
#include "IppBytes.h"
#include "LogTail.h"
#include "OwnProcess.h"
#include "RecordDumps.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <dlfcn.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

/** The five logs of the requests: as files, and what stands in them after recorded replies. */

namespace
{
const std::array LogNames = {"ipp_request.log", "ipp_printer.log", "ipp_driver.log", "ipp_job.log",
                             "ipp_class.log"};
/** Where the test that watches the end of a process wants to know what was closed. */
constexpr char ClosedFile[] = "VESK_TEST_CLOSED";
/** Set in a process whose logs are to be written to a full disk. */
constexpr char FullDisk[] = "VESK_TEST_FULL_DISK";
/** Set in a process that may not write to files, and is told so by a signal. */
constexpr char NoFileSize[] = "VESK_TEST_NO_FILE_SIZE";

QByteArray pathOf(int descriptor)
{
    std::array<char, 4096> path = {};
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(descriptor);
    const ssize_t size = readlink(link.constData(), path.data(), path.size());
    return QByteArray(path.data(), std::max<ssize_t>(size, 0));
}

/** Notes the path of a file that the process closes. */
void noteClosed(FILE *file)
{
    const char *notes = std::getenv(ClosedFile);
    const int descriptor = fileno(file);
    if (!notes || descriptor < 0)
        return;
    const QByteArray line = pathOf(descriptor) + '\n';
    const int output = open(notes, O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (write(output, line.constData(), static_cast<size_t>(line.size())) != line.size())
        std::abort();
    close(output);
}
} // namespace

/** In place of the library's, to see what a process closes when it ends. */
extern "C" int fclose(FILE *file)
{
    static const auto real = reinterpret_cast<int (*)(FILE *)>(dlsym(RTLD_NEXT, "fclose"));
    noteClosed(file);
    return real(file);
}

namespace
{
QByteArray fixture(const char *name)
{
    QFile file(QStringLiteral(VESK_REPLIES "/") + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/** The descriptor of a log of this process, -1 when it has none. */
int descriptorOf(const char *log)
{
    const QByteArray end = QByteArray("/var/tmp/") + log;
    for (int descriptor = 0; descriptor < 256; ++descriptor) {
        if (pathOf(descriptor).endsWith(end))
            return descriptor;
    }
    return -1;
}

/** The flags with which a descriptor was opened. */
int openingFlags(int descriptor)
{
    return fcntl(descriptor, F_GETFL);
}

/** From now on nothing can be written to the logs of this process. */
void fillDisk()
{
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    for (const char *log : LogNames) {
        const int descriptor = descriptorOf(log);
        if (full < 0 || descriptor < 0 || dup2(full, descriptor) < 0)
            qFatal("%s is not open", log);
    }
    close(full);
}

/** What the facade makes of the replies, all records in full. */
using Listing = std::function<QStringList()>;

template <typename Records> QStringList dumped(const Records &records, auto dump)
{
    QStringList texts;
    for (const auto &record : records)
        texts.append(dump(record));
    return texts;
}

QStringList printers()
{
    QMap<QString, CUPSPrinter> all;
    _CUPS->getPrinters(all, 0, 0, nullptr);
    return dumped(all, [](const CUPSPrinter &printer) { return dumpPrinter(printer.attributes); });
}

QStringList classes()
{
    QMap<QString, ClassInfo> all;
    _CUPS->getClasses(all);
    return dumped(all, dumpClass);
}

QStringList drivers()
{
    return dumped(_CUPS->getPPDs(nullptr), dumpDriver);
}

QStringList jobs()
{
    QMap<int, JobInfo> all;
    _CUPS->getJobsWithUris(all);
    return dumped(all, [](const JobInfo &job) {
        return QStringLiteral("%1 %2 %3").arg(job.jobId).arg(job.name, job.uri);
    });
}

const QMap<int, const char *> ServerReplies = {{0x4001, "default.ipp"},
                                               {0x4002, "printers.ipp"},
                                               {0x4005, "classes.ipp"},
                                               {0x400C, "drivers.ipp"},
                                               {0x000A, "jobs.ipp"}};
} // namespace

Q_DECLARE_METATYPE(QStringList (*)())

class TestLogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void repliesAreLogged_data();
    void repliesAreLogged();
    void records_data();
    void records();
    void logsThatCannotBeWrittenChangeNothing_data();
    void logsThatCannotBeWrittenChangeNothing();
    void areOpenedInOrder();
    void areOpenedForWritingAlone();
    void areClosedAtTheEnd();
    void areTruncatedBeforeMain();
    void areSkippedWhereSomethingElseLies_data();
    void areSkippedWhereSomethingElseLies();

private:
    std::unique_ptr<FakeIppServer> m_server;
};

void TestLogs::initTestCase()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    if (qEnvironmentVariableIsSet(FullDisk))
        fillDisk();
    const rlimit none = {0, 0};
    if (qEnvironmentVariableIsSet(NoFileSize))
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &none), 0);
}

void TestLogs::init()
{
    m_server = std::make_unique<FakeIppServer>();
    m_server->use();
    m_server->setHandler([](const FakeIppServer::Request &request) {
        return FakeIppServer::ok(fixture(ServerReplies.value(request.operation(), "unknown")));
    });
}

void TestLogs::cleanup()
{
    m_server.reset();
}

void TestLogs::repliesAreLogged_data()
{
    QTest::addColumn<Listing>("listing");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QList<int>>("operations");
    QTest::addColumn<QByteArrayList>("logs");
    // What is expected in the logs of printers, drivers, jobs and classes.
    const auto row = [](const char *title, const Listing &listing, const char *reply,
                        const QList<int> &operations, const QByteArrayList &logs) {
        QTest::addRow("%s", title) << listing << QByteArray(reply) << operations << logs;
    };
    row("printers", printers, "", {0x4002, 0x4001}, {"printers.log default.log", "", "", ""});
    row("classes", classes, "", {0x4005}, {"classes-handed-on.log", "", "", "classes.log"});
    row("drivers", drivers, "", {0x400C}, {"", "drivers.log", "", ""});
    row("jobs", jobs, "", {0x000A}, {"", "", "jobs.log", ""});
    const char *every = "every-tag.ipp";
    row("printers: every tag", printers, every, {0x4002, 0x4001},
        {"every-tag.log every-tag.log", "", "", ""});
    row("classes: every tag", classes, every, {0x4005},
        {"every-tag-handed-on.log", "", "", "every-tag.log"});
    row("drivers: every tag", drivers, every, {0x400C}, {"", "every-tag.log", "", ""});
    row("jobs: every tag", jobs, every, {0x000A}, {"", "", "every-tag.log", ""});
}

void TestLogs::repliesAreLogged()
{
    QFETCH(QByteArray, reply);
    if (!reply.isEmpty())
        m_server->setHandler(
            [reply](const auto &) { return FakeIppServer::ok(fixture(reply.constData())); });
    QFETCH(QList<int>, operations);
    QByteArray requestText;
    for (const int operation : operations)
        requestText += "Requesting operation 0x" + QByteArray::number(operation, 16) +
                       "...\r\nResult status: OK\n\r\n";

    const LogTail requestLog("ipp_request.log");
    const std::array recordLogs = {LogTail("ipp_printer.log"), LogTail("ipp_driver.log"),
                                   LogTail("ipp_job.log"), LogTail("ipp_class.log")};
    QFETCH(Listing, listing);
    QVERIFY(!listing().isEmpty());
    QCOMPARE(requestLog.added(), requestText);
    QFETCH(QByteArrayList, logs);
    for (size_t i = 0; i < recordLogs.size(); ++i) {
        QByteArray expected;
        for (const QByteArray &name : logs.at(static_cast<qsizetype>(i)).split(' '))
            expected += name.isEmpty() ? QByteArray() : fixture(name.constData());
        QVERIFY2(!expected.contains("no file"), logs.at(static_cast<qsizetype>(i)).constData());
        QCOMPARE(recordLogs.at(i).added(), expected);
    }
}

void TestLogs::records_data()
{
    QTest::addColumn<Listing>("listing");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("last");
    QTest::addRow("printers") << Listing(printers) << 6
                              << QStringLiteral("\n\tName/Description/Location: "
                                                "<Stopped/Printer in repair/Workshop>"
                                                "\n\tInfo/ModelInfo: "
                                                "</Tarvel CL 4200, sample driver 1.0>"
                                                "\n\tLocalURI: <tofile:/dev/null/Stopped>"
                                                "\n\tUri: <ipp://localhost/printers/Stopped>"
                                                "\n\tURIs: <ipp://localhost/printers/Stopped>"
                                                "\n\tPrinterType: 0x00a030dc");
    QTest::addRow("classes") << Listing(classes) << 1
                             << QStringLiteral("\n\tName/Description/Location: "
                                               "<Office/Any printer of the office/First floor>"
                                               "\n\tInfo/ModelInfo: </Local Printer Class>"
                                               "\n\tLocalURI: <file:///dev/null>"
                                               "\n\tUri: <ipp://localhost/classes/Office>"
                                               "\n\tURIs: <ipp://localhost/classes/Office>"
                                               "\n\tPrinterType: 0x0000104d"
                                               "\n\tprinters: <Laser|Photo>");
    QTest::addRow("drivers") << Listing(drivers) << 7
                             << QStringLiteral("Manufacturer=<Generic> "
                                               "Model=<Generic UBRL generator, 1.0> "
                                               "DriverFile=<drv:///generic-ubrl.drv/gen-ubrl.ppd> "
                                               "Language=<en>");
    QTest::addRow("jobs") << Listing(jobs) << 2
                          << QStringLiteral("2 Gr\u00fc\u00dfe ipp://localhost/jobs/2");
}

void TestLogs::records()
{
    QFETCH(Listing, listing);
    QFETCH(int, count);
    QFETCH(QString, last);
    const QStringList found = listing();
    QCOMPARE(found.size(), count);
    QCOMPARE(found.constLast(), last);
    QCOMPARE(m_server->requestCount(), QTest::currentDataTag() == QByteArray("printers") ? 2 : 1);
    if (qEnvironmentVariableIsSet(FullDisk) || qEnvironmentVariableIsSet(NoFileSize))
        QCOMPARE(std::fflush(nullptr), EOF);
}

void TestLogs::logsThatCannotBeWrittenChangeNothing_data()
{
    QTest::addColumn<QString>("logFolder");
    QTest::addColumn<QStringList>("settings");
    const QString none;
    const QString yes = QStringLiteral("=yes");
    QTest::addRow("disk full") << none << QStringList(QString::fromLatin1(FullDisk) + yes);
    QTest::addRow("no file size") << none << QStringList(QString::fromLatin1(NoFileSize) + yes);
    QTest::addRow("no folder") << QStringLiteral("/nonexistent") << QStringList();
    QTest::addRow("no files allowed") << QStringLiteral("/proc") << QStringList();
    QTest::addRow("no folder but a file") << QStringLiteral("/dev/null") << QStringList();
}

void TestLogs::logsThatCannotBeWrittenChangeNothing()
{
    QFETCH(QString, logFolder);
    QFETCH(QStringList, settings);
    QTemporaryDir root;
    const QString logs = root.filePath(QStringLiteral("var/tmp"));
    QVERIFY(QDir(root.path()).mkpath(QStringLiteral("var")));
    if (logFolder.isEmpty())
        QVERIFY(QDir().mkdir(logs));
    else
        QVERIFY(QFile::link(logFolder, logs));
    const auto run = OwnProcess::run(root.path(), {QStringLiteral("records")}, settings);
    QVERIFY2(run.status == 0, run.output.constData());
    QCOMPARE(run.errors, "");
    QVERIFY(run.output.contains("Totals: 6 passed, 0 failed, 0 skipped"));
    // Where the folder is whole, the logs of that process are there, and nothing is in them.
    for (const char *name : LogNames) {
        const QFileInfo log(logs + u'/' + QString::fromLatin1(name));
        QCOMPARE(log.exists(), logFolder.isEmpty());
        QCOMPARE(log.size(), 0);
    }
}

void TestLogs::areOpenedInOrder()
{
    int before = descriptorOf("ipp_printer.log");
    QVERIFY(before > STDERR_FILENO);
    for (const char *log : {"ipp_driver.log", "ipp_job.log", "ipp_class.log"}) {
        const int descriptor = descriptorOf(log);
        QVERIFY2(descriptor > before, log); // the least free number was taken
        before = descriptor;
    }
}

void TestLogs::areOpenedForWritingAlone()
{
    for (const char *log : LogNames) {
        const int descriptor = descriptorOf(log);
        QVERIFY2(descriptor > STDERR_FILENO, log);
        QCOMPARE(openingFlags(descriptor) & (O_ACCMODE | O_APPEND | O_NOFOLLOW),
                 O_WRONLY | O_NOFOLLOW);
        QCOMPARE(fcntl(descriptor, F_GETFD), FD_CLOEXEC);
        struct stat status = {};
        QCOMPARE(fstat(descriptor, &status), 0);
        QVERIFY(S_ISREG(status.st_mode));
        QCOMPARE(status.st_mode & (S_IWGRP | S_IWOTH), 0U);
    }
}

void TestLogs::areClosedAtTheEnd()
{
    QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkpath(QStringLiteral("var/tmp")));
    const QString notes = root.filePath(QStringLiteral("closed"));
    const auto run =
        OwnProcess::run(root.path(), {QStringLiteral("-functions")},
                        {QStringLiteral("%1=%2").arg(QString::fromLatin1(ClosedFile), notes)});
    QCOMPARE(run.status, 0);
    QFile file(notes);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray closed = file.readAll();
    for (const char *log : LogNames)
        QCOMPARE(closed.count(QByteArray("/var/tmp/") + log + '\n'), 1);
}

void TestLogs::areTruncatedBeforeMain()
{
    QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkpath(QStringLiteral("var/tmp")));
    for (const char *name : LogNames) {
        QFile log(root.filePath(QStringLiteral("var/tmp/") + QString::fromLatin1(name)));
        QVERIFY(log.open(QIODevice::WriteOnly));
        log.write("of the run before");
    }
    QCOMPARE(OwnProcess::run(root.path(), {QStringLiteral("-functions")}).status, 0);
    for (const char *name : LogNames) {
        const QFileInfo log(root.filePath(QStringLiteral("var/tmp/") + QString::fromLatin1(name)));
        QVERIFY2(log.exists() && log.size() == 0, name);
    }
}

namespace
{
using PutThere = bool (*)(const QByteArray &log, const QByteArray &precious);

bool linkThere(const QByteArray &log, const QByteArray &precious)
{
    return symlink(precious.constData(), log.constData()) == 0;
}

bool nameThere(const QByteArray &log, const QByteArray &precious)
{
    return link(precious.constData(), log.constData()) == 0;
}

bool pipeThere(const QByteArray &log, const QByteArray &)
{
    return mkfifo(log.constData(), 0600) == 0;
}

bool folderThere(const QByteArray &log, const QByteArray &)
{
    return mkdir(log.constData(), 0700) == 0;
}
} // namespace

void TestLogs::areSkippedWhereSomethingElseLies_data()
{
    QTest::addColumn<PutThere>("putThere");
    QTest::addRow("link") << PutThere(linkThere);
    QTest::addRow("second name") << PutThere(nameThere);
    QTest::addRow("pipe") << PutThere(pipeThere);
    QTest::addRow("folder") << PutThere(folderThere);
}

void TestLogs::areSkippedWhereSomethingElseLies()
{
    QFETCH(PutThere, putThere);
    QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkpath(QStringLiteral("var/tmp")));
    const QString precious = root.filePath(QStringLiteral("precious"));
    QFile file(precious);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    for (const char *name : LogNames)
        QVERIFY(putThere(QFile::encodeName(root.filePath(QStringLiteral("var/tmp/"))) + name,
                         QFile::encodeName(precious)));
    const auto run = OwnProcess::run(root.path(), {QStringLiteral("records")});
    QVERIFY2(run.status == 0, run.output.constData());
    QCOMPARE(run.errors, "");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "precious");
}

QTEST_GUILESS_MAIN(TestLogs)
#include "tst_logs.moc"
