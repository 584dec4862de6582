#include "CUPSManager.h"
#include "FakeIppServer.h"
#include "IPPRequest.h"
#include "IppBytes.h"
#include "PasswordPrompt.h"

#include <QApplication>
#include <QFile>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <array>
#include <csignal>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

/** Where in the memory of the process the password is, while it is needed and afterwards. */

namespace
{
/** The password, character by character changed, so that this is no place where it is found. */
constexpr std::array<char, 12> Changed = {'p' ^ 1, 'a' ^ 1, 'l' ^ 1, 'i' ^ 1, 'm' ^ 1, 'p' ^ 1,
                                          's' ^ 1, 'e' ^ 1, 's' ^ 1, 't' ^ 1, '4' ^ 1, '2' ^ 1};

constexpr char character(size_t index)
{
    return static_cast<char>(Changed.at(index) ^ 1);
}

constexpr char FirstCharacter = character(0);

/** Whether the password begins there, with characters of `width` bytes. */
bool isAt(const char *place, size_t width)
{
    if (*place != FirstCharacter)
        return false;
    for (size_t i = 0; i < Changed.size(); ++i) {
        if (place[i * width] != character(i) || (width > 1 && place[i * width + 1] != '\0'))
            return false;
    }
    return true;
}

/** How the password of root goes over the wire, changed in the same way. */
QByteArray changedCredentials()
{
    QByteArray text("root:");
    for (size_t i = 0; i < Changed.size(); ++i)
        text += character(i);
    QByteArray encoded = text.toBase64();
    text.fill('\0');
    for (char &c : encoded)
        c = static_cast<char>(c ^ 1);
    return encoded;
}

/** Whether the credentials begin there, from the first character that depends on the password. */
bool areAt(const char *place, const QByteArray &credentials)
{
    constexpr qsizetype First = 7;
    const char *const changed = credentials.constData();
    for (qsizetype i = First; i < credentials.size(); ++i) {
        if (place[i - First] != static_cast<char>(changed[i] ^ 1))
            return false;
    }
    return true;
}

/** Memory that is not part of what is searched. */
class Window
{
public:
    Window()
        : m_place(static_cast<char *>(mmap(nullptr, Size + Overlap, PROT_READ | PROT_WRITE,
                                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)))
    {
    }
    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;
    ~Window() { munmap(m_place, Size + Overlap); }

    /** Shows the process's memory from there on; how many bytes of it. */
    size_t show(quintptr address, size_t size)
    {
        const size_t wanted = std::min(size, Size + Overlap);
        const iovec here = {m_place, wanted};
        const iovec there = {reinterpret_cast<void *>(address), wanted};
        const ssize_t count = process_vm_readv(getpid(), &here, 1, &there, 1, 0);
        return count < 0 ? 0 : static_cast<size_t>(count);
    }
    const char *data() const { return m_place; }
    bool isAt(quintptr address) const { return reinterpret_cast<quintptr>(m_place) == address; }

    static constexpr size_t Size = 1 << 20;
    static constexpr size_t Overlap = 64;

private:
    char *m_place;
};

int countIn(Window &window, const QByteArray &credentials, quintptr begin, quintptr end)
{
    int count = 0;
    for (quintptr address = begin; address < end; address += Window::Size) {
        const size_t size = window.show(address, end - address);
        const char *place = window.data();
        const char *const last =
            place + std::min(Window::Size, size - std::min(size, Window::Overlap));
        for (; place < last; ++place)
            count += isAt(place, 1) || isAt(place, 2) || areAt(place, credentials);
    }
    return count;
}

/** How often the password is in the memory that the process can write. */
int occurrences()
{
    // What a sanitizer reserves for itself is terabytes.
    constexpr quintptr Huge = 1 << 30;
    // Needed until the very end.
    static const QByteArray &credentials = *new QByteArray(changedCredentials());
    Window window;
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        return -1;
    int count = 0;
    for (const QByteArray &line : maps.readAll().split('\n')) {
        const QList<QByteArray> range = line.left(line.indexOf(' ')).split('-');
        const quintptr begin = range.value(0).toULongLong(nullptr, 16);
        const quintptr end = range.value(1).toULongLong(nullptr, 16);
        if (line.contains(" rw") && end - begin < Huge && !window.isAt(begin))
            count += countIn(window, credentials, begin, end);
    }
    return count;
}

/** Lives longer than what is made when it is first used: looks once more when that has gone. */
struct AtTheEnd {
    ~AtTheEnd()
    {
        if (occurrences() != 0)
            _exit(99);
    }
} atTheEnd;

/** A server that wants a password, in a process of its own: it keeps what it is sent. */
class OtherProcess
{
public:
    OtherProcess()
    {
        int ends[2] = {};
        if (pipe(ends) != 0)
            return;
        m_pid = fork();
        if (m_pid == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            serve(ends[1]);
        }
        close(ends[1]);
        char address[200] = {};
        if (read(ends[0], address, sizeof address - 1) > 0)
            cupsSetServer(address);
        close(ends[0]);
    }
    OtherProcess(const OtherProcess &) = delete;
    OtherProcess &operator=(const OtherProcess &) = delete;
    ~OtherProcess()
    {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }

private:
    [[noreturn]] static void serve(int out)
    {
        FakeIppServer server;
        server.setHandler([](const FakeIppServer::Request &request) {
            if (request.headers.contains("authorization"))
                return FakeIppServer::ok(IppBytes::response());
            FakeIppServer::Answer challenge = FakeIppServer::failure(401);
            challenge.headers = "WWW-Authenticate: Basic realm=\"CUPS\"\r\n";
            return challenge;
        });
        const QByteArray address = server.address();
        if (write(out, address.constData(), static_cast<size_t>(address.size())) < 0)
            _exit(1);
        for (;;)
            pause();
    }

    pid_t m_pid = -1;
};

bool sendOne()
{
    IPPRequest request(0x4002);
    return request.send("/admin/");
}
} // namespace

class TestPasswordMemory : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void notThereBefore();
    void typedAndCancelled();
    void onlyStoredWhileInUse();
    void memoryIsNobodyElses();

private:
    /** Types the password when it is asked for, then presses the key. */
    void willType(int key);

    OtherProcess m_server;
    QTimer m_look;
    int m_whileTyped = 0;
};

void TestPasswordMemory::initTestCase()
{
    PasswordPrompt::install();
}

void TestPasswordMemory::notThereBefore()
{
    QCOMPARE(prctl(PR_GET_DUMPABLE), 1);
    QCOMPARE(occurrences(), 0);
}

void TestPasswordMemory::willType(int key)
{
    m_look.disconnect();
    connect(&m_look, &QTimer::timeout, this, [this, key] {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        m_look.stop();
        for (size_t i = 0; i < Changed.size(); ++i)
            QTest::keyClick(dialog->findChild<QLineEdit *>(), character(i));
        m_whileTyped = occurrences();
        QTest::keyClick(dialog, static_cast<Qt::Key>(key));
    });
    m_look.start(10);
}

void TestPasswordMemory::typedAndCancelled()
{
    willType(Qt::Key_Escape);
    QVERIFY(!sendOne());
    // It is looked for in the right way.
    QVERIFY(m_whileTyped > 0);
    QCOMPARE(occurrences(), 0);
}

void TestPasswordMemory::onlyStoredWhileInUse()
{
    willType(Qt::Key_Return);
    {
        IPPRequest request(0x4002);
        QVERIFY(request.send("/admin/"));
        // The connection has it, too.
        QVERIFY(occurrences() > 1);
    }
    QCOMPARE(occurrences(), 1);
    QVERIFY(sendOne());
    QCOMPARE(occurrences(), 1);
    QCOMPARE(_CUPS->cancelJob("Laser", 1), true);
    QCOMPARE(occurrences(), 1);
}

void TestPasswordMemory::memoryIsNobodyElses()
{
    QCOMPARE(prctl(PR_GET_DUMPABLE), 0);
}

QTEST_MAIN(TestPasswordMemory)
#include "tst_passwordmemory.moc"
