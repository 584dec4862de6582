#include "ProcessEx.h"
#include "SignalDisposition.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

class tst_ProcessEx : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void exitStatus_data();
    void exitStatus();
    void killed_data();
    void killed();
    void failsToLaunch_data();
    void failsToLaunch();
    void missingClientIsNotStatus127();
    void argumentsArriveUnchanged_data();
    void argumentsArriveUnchanged();
    void bytesArriveUnchanged();
    void programNameIsTheFirstArgument();
    void standardInputIsEmpty();
    void outputIsDropped();
    void waitsThroughSignals();
    void leavesNoChild();
    void limitEndsTheProgram_data();
    void limitEndsTheProgram();
    void limitLeavesTimelyProgramsAlone();
    void keepsTheStatusWhereChildrenAreIgnored();
    void childIgnoresNoSignal_data();
    void childIgnoresNoSignal();
};

namespace
{
const QString shell = QStringLiteral("/bin/sh");

int runShell(const QString &script, const QStringList &arguments = {})
{
    return ProcessEx::execute(
        shell, QStringList{QStringLiteral("-c"), script, QStringLiteral("sh")} + arguments);
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}
} // namespace

void tst_ProcessEx::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_ProcessEx::exitStatus_data()
{
    QTest::addColumn<int>("status");
    for (const int status : {0, 1, 2, 7, 126, 127, 128, 255})
        QTest::addRow("%d", status) << status;
}

void tst_ProcessEx::exitStatus()
{
    QFETCH(int, status);
    QCOMPARE(runShell(QStringLiteral("exit $1"), {QString::number(status)}), status);
}

void tst_ProcessEx::killed_data()
{
    QTest::addColumn<QString>("signal");
    for (const char *signal : {"KILL", "TERM", "SEGV"})
        QTest::newRow(signal) << QString::fromLatin1(signal);
}

void tst_ProcessEx::killed()
{
    QFETCH(QString, signal);
    QCOMPARE(runShell(QStringLiteral("ulimit -c 0; kill -$1 $$"), {signal}), -1);
    QCOMPARE(ProcessEx::DidNotExit, -1);
}

void tst_ProcessEx::failsToLaunch_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("missing") << QStringLiteral("/nonexistent/lpr.orig");
    QTest::newRow("missing in the path") << QStringLiteral("no-program-of-this-name");
    QTest::newRow("folder") << QStringLiteral("/");
    QTest::newRow("not executable") << QStringLiteral("/etc/passwd");
    QTest::newRow("empty") << QString();
}

void tst_ProcessEx::failsToLaunch()
{
    QFETCH(QString, program);
    QTest::ignoreMessage(QtWarningMsg, "ProcessEx::execute: failed to launch");
    QCOMPARE(ProcessEx::execute(program, {QStringLiteral("argument")}), -2);
    QCOMPARE(ProcessEx::FailedToLaunch, -2);
}

void tst_ProcessEx::missingClientIsNotStatus127()
{
    // The program's own 127 is a status like any other, without a warning.
    QCOMPARE(runShell(QStringLiteral("/nonexistent/program")), 127);
}

void tst_ProcessEx::argumentsArriveUnchanged_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList{};
    QTest::newRow("empty") << QStringList{QString(), QStringLiteral("")};
    QTest::newRow("blanks") << QStringList{QStringLiteral("a  b "), QStringLiteral("\t\n")};
    QTest::newRow("shell") << QStringList{QStringLiteral("$HOME `id` $(id) ; & | > <"),
                                          QStringLiteral("'\"\\"), QStringLiteral("*?[a]{b,c}~")};
    QTest::newRow("letters") << QStringList{QStringLiteral("ä € 日本")};
    QTest::newRow("options") << QStringList{QStringLiteral("-o"), QStringLiteral("a=b\\ c"),
                                            QStringLiteral("--")};
    QTest::newRow("long") << QStringList{QString(100000, QLatin1Char('x'))};
}

void tst_ProcessEx::argumentsArriveUnchanged()
{
    QFETCH(QStringList, arguments);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("arguments"));
    QCOMPARE(runShell(QStringLiteral("f=$1; shift; printf '%s\\0' $# \"$@\" > \"$f\""),
                      QStringList{file} + arguments),
             0);
    QByteArray expected = QByteArray::number(arguments.size()) + '\0';
    for (const QString &argument : arguments)
        expected += argument.toUtf8() + '\0';
    // Without arguments, printf still prints the number alone.
    QCOMPARE(contentsOf(file), expected);
}

void tst_ProcessEx::bytesArriveUnchanged()
{
    const QTemporaryDir folder;
    const QByteArray file = QFile::encodeName(folder.filePath(QStringLiteral("arguments")));
    const QByteArray broken("\xff\xfe\xc3", 3);
    QCOMPARE(ProcessEx::execute(QByteArray("/bin/sh"),
                                {"-c", "printf '%s' \"$2\" > \"$1\"", "sh", file, broken}),
             0);
    QCOMPARE(contentsOf(QFile::decodeName(file)), broken);
}

void tst_ProcessEx::programNameIsTheFirstArgument()
{
    // Found through PATH, and started under the name that was given.
    QCOMPARE(ProcessEx::execute(QStringLiteral("sh"),
                                {QStringLiteral("-c"), QStringLiteral("test \"$0\" = sh")}),
             0);
}

void tst_ProcessEx::standardInputIsEmpty()
{
    QCOMPARE(runShell(QStringLiteral("test -z \"$(cat)\"")), 0);
}

void tst_ProcessEx::outputIsDropped()
{
    FILE *capture = tmpfile();
    QVERIFY(capture);
    const int output = dup(STDOUT_FILENO);
    const int error = dup(STDERR_FILENO);
    fflush(stdout);
    fflush(stderr);
    dup2(fileno(capture), STDOUT_FILENO);
    dup2(fileno(capture), STDERR_FILENO);
    const int status = runShell(QStringLiteral("echo text; echo text >&2"));
    dup2(output, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    close(output);
    close(error);
    QCOMPARE(status, 0);
    QCOMPARE(fseek(capture, 0, SEEK_END), 0);
    QCOMPARE(ftell(capture), 0L);
    fclose(capture);
}

void tst_ProcessEx::waitsThroughSignals()
{
    struct sigaction action = {};
    static volatile sig_atomic_t count = 0;
    // No SA_RESTART: each of them interrupts the wait.
    action.sa_handler = [](int) { count = count + 1; };
    struct sigaction before;
    sigaction(SIGALRM, &action, &before);
    itimerval timer = {};
    timer.it_interval.tv_usec = timer.it_value.tv_usec = 1000;
    setitimer(ITIMER_REAL, &timer, nullptr);
    const int status = runShell(QStringLiteral("sleep 0.2; exit 9"));
    timer = {};
    setitimer(ITIMER_REAL, &timer, nullptr);
    sigaction(SIGALRM, &before, nullptr);
    QCOMPARE(status, 9);
    QVERIFY(count > 0);
}

void tst_ProcessEx::keepsTheStatusWhereChildrenAreIgnored()
{
    const SignalDisposition ignored(SIGCHLD, SIG_IGN);
    QCOMPARE(ProcessEx::execute(QByteArray("/bin/sh"), {"-c", "exit 7"}), 7);
    struct sigaction after = {};
    QCOMPARE(sigaction(SIGCHLD, nullptr, &after), 0);
    QVERIFY(after.sa_handler == SIG_IGN);
}

void tst_ProcessEx::childIgnoresNoSignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("broken pipe") << SIGPIPE;
    QTest::newRow("file size") << SIGXFSZ;
}

void tst_ProcessEx::childIgnoresNoSignal()
{
    QFETCH(int, signal);
    const SignalDisposition ignored(signal, SIG_IGN);
    const QByteArray script = "ulimit -c 0; kill -" + QByteArray::number(signal) + " $$; exit 0";
    QCOMPARE(ProcessEx::execute(QByteArray("/bin/sh"), {"-c", script}), ProcessEx::DidNotExit);
}

void tst_ProcessEx::limitEndsTheProgram_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("asked") << "while :; do sleep 0.05; done";
    QTest::newRow("forced") << "trap '' TERM; while :; do sleep 0.05; done";
    QTest::newRow("asked, and exits") << "trap 'exit 0' TERM; while :; do sleep 0.05; done";
}

void tst_ProcessEx::limitEndsTheProgram()
{
    QFETCH(QString, script);
    using namespace std::chrono_literals;
    QTest::ignoreMessage(QtWarningMsg, "ProcessEx::execute: /bin/sh took too long and was ended");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(ProcessEx::execute(shell, {QStringLiteral("-c"), script}, 300ms),
             ProcessEx::DidNotExit);
    QVERIFY(timer.elapsed() >= 300);
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void tst_ProcessEx::limitLeavesTimelyProgramsAlone()
{
    using namespace std::chrono_literals;
    QCOMPARE(ProcessEx::execute(shell, {QStringLiteral("-c"), QStringLiteral("exit 5")}, 60s), 5);
    QCOMPARE(
        ProcessEx::execute(shell, {QStringLiteral("-c"), QStringLiteral("kill -KILL $$")}, 60s),
        ProcessEx::DidNotExit);
}

void tst_ProcessEx::leavesNoChild()
{
    QCOMPARE(runShell(QStringLiteral("exit 3")), 3);
    QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

QTEST_GUILESS_MAIN(tst_ProcessEx)
#include "tst_processex.moc"
