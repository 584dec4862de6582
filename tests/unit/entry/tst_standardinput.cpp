#include "StandardInput.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using StandardInput::Result;

namespace
{
constexpr int ShortPatienceMs = 50;

/** A pipe that another thread writes `data` to and closes. */
class Feed
{
public:
    explicit Feed(const QByteArray &data)
    {
        if (pipe(m_ends) != 0)
            qFatal("no pipe");
        m_writer = std::thread([this, data] {
            qsizetype done = 0;
            while (done < data.size()) {
                const ssize_t written =
                    write(m_ends[1], data.constData() + done, size_t(data.size() - done));
                if (written <= 0)
                    break;
                done += written;
            }
            close(m_ends[1]);
        });
    }
    ~Feed()
    {
        close(m_ends[0]);
        waitUntilWritten();
    }
    /** For data that the pipe holds whole. */
    void waitUntilWritten()
    {
        if (m_writer.joinable())
            m_writer.join();
    }
    int descriptor() const { return m_ends[0]; }

private:
    int m_ends[2];
    std::thread m_writer;
};

QByteArray contents(const char *name)
{
    QFile file(QFile::decodeName(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}
} // namespace

class TestStandardInput : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { std::signal(SIGPIPE, SIG_IGN); }
    void init();
    void cleanup() { StandardInput::removeFile(); }
    void captures_data();
    void captures();
    void givesUpOnASilentInput();
    void takesAnEmptyInputAsNothing();
    void takesAClosedDescriptorAsNothing();
    void takesAWriteOnlyInputAsNothing();
    void waitsWhereReadingDoesNotBlock();
    void refusesWhatCannotBeRead();
    void refusesWhatCannotBeStored();
    void dropsTheInputWithoutATemporaryFile();
    void removesTheFileOnAnAbort();
    void removesTheFileOnASignal_data();
    void removesTheFileOnASignal();

private:
    QStringList filesLeft() const
    {
        return QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden);
    }
    std::unique_ptr<QTemporaryDir> m_directory;
    std::string m_error;
};

void TestStandardInput::init()
{
    qunsetenv("TMPDIR"); // the new folder must not be made in the old one
    m_directory = std::make_unique<QTemporaryDir>();
    qputenv("TMPDIR", QFile::encodeName(m_directory->path()));
    m_error.clear();
}

void TestStandardInput::captures_data()
{
    QTest::addColumn<int>("size");
    for (int size : {1, 4095, 4096, 4097, 8192, 65535, 65536, 65537, 3000000})
        QTest::addRow("%d bytes", size) << size;
}

void TestStandardInput::captures()
{
    QFETCH(int, size);
    QByteArray data(size, '\0');
    for (int i = 0; i < size; ++i)
        data[i] = char(i * 7 + i / 251);
    const Feed feed(data);
    QVERIFY(StandardInput::capture(feed.descriptor(), 10000, m_error) == Result::Captured);
    QCOMPARE(contents(StandardInput::fileName()), data);
    QCOMPARE(filesLeft().size(), 1);

    StandardInput::removeFile();
    QCOMPARE(filesLeft(), QStringList());
    QCOMPARE(QByteArray(StandardInput::fileName()), QByteArray());
}

void TestStandardInput::givesUpOnASilentInput()
{
    int ends[2];
    QCOMPARE(pipe(ends), 0);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(StandardInput::capture(ends[0], ShortPatienceMs, m_error) == Result::Nothing);
    QVERIFY(timer.elapsed() >= ShortPatienceMs - 1);
    QCOMPARE(filesLeft(), QStringList());
    close(ends[0]);
    close(ends[1]);
}

void TestStandardInput::takesAnEmptyInputAsNothing()
{
    const Feed feed{QByteArray()};
    QVERIFY(StandardInput::capture(feed.descriptor(), 10000, m_error) == Result::Nothing);
    QCOMPARE(filesLeft(), QStringList());
}

void TestStandardInput::takesAClosedDescriptorAsNothing()
{
    int ends[2];
    QCOMPARE(pipe(ends), 0);
    close(ends[0]);
    close(ends[1]);
    QVERIFY(StandardInput::capture(ends[0], ShortPatienceMs, m_error) == Result::Nothing);
}

void TestStandardInput::takesAWriteOnlyInputAsNothing()
{
    const int writeOnly = open("/dev/null", O_WRONLY);
    QVERIFY(StandardInput::capture(writeOnly, ShortPatienceMs, m_error) == Result::Nothing);
    close(writeOnly);
}

void TestStandardInput::waitsWhereReadingDoesNotBlock()
{
    int ends[2];
    QCOMPARE(pipe2(ends, O_NONBLOCK), 0);
    QCOMPARE(write(ends[1], "one", 3), ssize_t(3));
    std::thread writer([&] {
        // The reader has drained the pipe once nothing can be read any more.
        pollfd readable = {ends[0], POLLIN, 0};
        while (poll(&readable, 1, 0) > 0)
            std::this_thread::yield();
        if (write(ends[1], "two", 3) != 3)
            qFatal("cannot write");
        close(ends[1]);
    });
    const Result result = StandardInput::capture(ends[0], 10000, m_error);
    writer.join();
    close(ends[0]);
    QVERIFY(result == Result::Captured);
    QCOMPARE(contents(StandardInput::fileName()), QByteArray("onetwo"));
}

void TestStandardInput::refusesWhatCannotBeRead()
{
    const int directory = open("/", O_RDONLY | O_DIRECTORY);
    QVERIFY(StandardInput::capture(directory, ShortPatienceMs, m_error) == Result::Failed);
    QCOMPARE(m_error, std::string("cannot read standard input: Is a directory"));
    close(directory);
}

void TestStandardInput::refusesWhatCannotBeStored()
{
    // The limit on a file's size stands for a full disk: the write fails in the middle of the data.
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, SIG_DFL);
    const rlimit small = {10000, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    const Feed feed(QByteArray(100000, 'x'));
    const Result result = StandardInput::capture(feed.descriptor(), 10000, m_error);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    QVERIFY(result == Result::Failed);
    QCOMPARE(m_error, std::string("cannot write the temporary file: File too large"));
    QCOMPARE(filesLeft(), QStringList());
    QCOMPARE(QByteArray(StandardInput::fileName()), QByteArray());
}

void TestStandardInput::dropsTheInputWithoutATemporaryFile()
{
    // With every descriptor in use no temporary file can be created.
    Feed feed(QByteArray("data"));
    feed.waitUntilWritten(); // it closes a descriptor
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit few = {64, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &few), 0);
    QList<int> fillers;
    for (int filler = open("/dev/null", O_RDONLY); filler >= 0;
         filler = open("/dev/null", O_RDONLY))
        fillers.append(filler);
    const Result result = StandardInput::capture(feed.descriptor(), 10000, m_error);
    for (int filler : fillers)
        close(filler);
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
    QVERIFY(!fillers.isEmpty());
    QVERIFY(result == Result::Dropped);
    QCOMPARE(m_error, std::string("cannot create a temporary file: Too many open files"));
    QCOMPARE(QByteArray(StandardInput::fileName()), QByteArray());
    QCOMPARE(filesLeft(), QStringList());
}

void TestStandardInput::removesTheFileOnAnAbort()
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore = {0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        StandardInput::installSignalHandlers();
        Feed feed(QByteArray("data"));
        const bool captured =
            StandardInput::capture(feed.descriptor(), 10000, m_error) == Result::Captured;
        if (captured)
            std::abort();
        _exit(1);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGABRT);
    QCOMPARE(filesLeft(), QStringList());
}

void TestStandardInput::removesTheFileOnASignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("whileReading");
    for (bool whileReading : {true, false}) {
        for (int signal : {SIGHUP, SIGINT, SIGTERM})
            QTest::addRow("signal %d, %s", signal, whileReading ? "reading" : "afterwards")
                << signal << whileReading;
    }
}

void TestStandardInput::removesTheFileOnASignal()
{
    QFETCH(int, signal);
    QFETCH(bool, whileReading);
    int ends[2];
    QCOMPARE(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[1]);
        StandardInput::installSignalHandlers();
        StandardInput::capture(ends[0], 10000, m_error);
        for (;;)
            pause();
    }
    close(ends[0]);
    QCOMPARE(write(ends[1], "data", 4), ssize_t(4));
    if (!whileReading)
        close(ends[1]);
    QTRY_COMPARE(filesLeft().size(), 1);
    QCOMPARE(kill(child, signal), 0);
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), signal);
    QCOMPARE(filesLeft(), QStringList());
    if (whileReading)
        close(ends[1]);
}

QTEST_GUILESS_MAIN(TestStandardInput)
#include "tst_standardinput.moc"
