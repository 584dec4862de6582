#include "CUPSManager.h"
#include "FakeIppServer.h"
#include "IPPRequest.h"
#include "IppBytes.h"
#include "OwnMemory.h"
#include "PasswordPrompt.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <array>
#include <csignal>
#include <sys/prctl.h>
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

/** How the password of root goes over the wire, changed, from where it depends on the password. */
QByteArray changedCredentials()
{
    constexpr qsizetype First = 7;
    QByteArray text("root:");
    text.reserve(100);
    for (size_t i = 0; i < Changed.size(); ++i)
        text += character(i);
    QByteArray encoded = text.toBase64();
    text.fill('\0');
    for (char &c : encoded)
        c = static_cast<char>(c ^ 1);
    return encoded.mid(First);
}

/** The password in bytes, in characters of two bytes, and as it goes over the wire, all changed. */
QList<QByteArray> changedTexts()
{
    QByteArray narrow;
    QByteArray wide;
    for (const char c : Changed) {
        narrow += c;
        wide += c;
        wide += '\1';
    }
    return {narrow, wide, changedCredentials()};
}

/** How often the password is in the memory that the process can write. */
int occurrences()
{
    // Needed until the very end.
    static const QList<QByteArray> &texts = *new QList<QByteArray>(changedTexts());
    return OwnMemory::count(texts);
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
    enum class LetsIn { WhoHasAPassword, Nobody };

    explicit OtherProcess(LetsIn letsIn)
    {
        int ends[2] = {};
        if (pipe(ends) != 0)
            return;
        m_pid = fork();
        if (m_pid == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            serve(ends[1], letsIn);
        }
        close(ends[1]);
        if (read(ends[0], m_address.data(), m_address.size() - 1) < 0)
            m_address.front() = '\0';
        close(ends[0]);
    }
    OtherProcess(const OtherProcess &) = delete;
    OtherProcess &operator=(const OtherProcess &) = delete;
    ~OtherProcess()
    {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }

    void use() const { cupsSetServer(m_address.data()); }

private:
    [[noreturn]] static void serve(int out, LetsIn letsIn)
    {
        FakeIppServer server;
        server.setHandler([letsIn](const FakeIppServer::Request &request) {
            if (letsIn != LetsIn::Nobody && request.headers.contains("authorization"))
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
    std::array<char, 200> m_address = {};
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
    void refusedAndCancelled();
    void onlyStoredWhileInUse();
    void memoryIsNobodyElses();

private:
    /** Types the password when it is asked for, then presses the key; `again` when asked again. */
    void willType(int key, int again = 0);

    const OtherProcess m_server{OtherProcess::LetsIn::WhoHasAPassword};
    const OtherProcess m_refusing{OtherProcess::LetsIn::Nobody};
    QTimer m_look;
    int m_whileTyped = 0;
};

void TestPasswordMemory::initTestCase()
{
    PasswordPrompt::install();
    m_server.use();
}

void TestPasswordMemory::notThereBefore()
{
    QCOMPARE(prctl(PR_GET_DUMPABLE), 1);
    QCOMPARE(occurrences(), 0);
}

void TestPasswordMemory::willType(int key, int again)
{
    m_look.disconnect();
    connect(&m_look, &QTimer::timeout, this, [this, key, again, asked = 0]() mutable {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        if (asked++ > 0) {
            m_look.stop();
            QTest::keyClick(dialog, static_cast<Qt::Key>(again));
            return;
        }
        if (again == 0)
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

void TestPasswordMemory::refusedAndCancelled()
{
    m_refusing.use();
    willType(Qt::Key_Return, Qt::Key_Escape);
    QVERIFY(!sendOne());
    m_server.use();
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
