#include "CUPSManager.h"
#include "Destinations.h"
#include "FakeIppServer.h"
#include "IppBytes.h"
#include "ServerConnection.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <functional>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

/** No wait for the server is endless. The limits are shortened here to a twentieth. */

namespace
{
constexpr int Shortening = 20;
/** The promise is 30 seconds; the library adds pauses of a second that do not shrink. */
constexpr qint64 PromisedMs = 30'000 / Shortening + 2'000;

using Call = std::function<void()>;
} // namespace

class TestLimits : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void defaults();
    void silentServer_data();
    void silentServer();
    void serverThatFallsSilent_data();
    void serverThatFallsSilent();
    void serverThatTakesNoDocument();
    void serverThatAcceptsNobody();
    void slowAnswerIsAwaited();
    void timeForThePasswordIsNotCounted();
    void patienceIsForAllConnections();
    void patienceWithinPatience();
    void patienceThatIsSpent();
    void patienceStartsAnewAfterThePassword();
    void patienceIsOfItsThread();
    void discoveryOfASilentServer();
    void countsOpenings();

private:
    static void calls();

    std::unique_ptr<FakeIppServer> m_server;
};

void TestLimits::initTestCase()
{
    const ServerConnection::Limits whole;
    ServerConnection::limits() = {whole.connectMs / Shortening, whole.waitSeconds / Shortening,
                                  whole.totalMs / Shortening};
}

void TestLimits::init()
{
    m_server = std::make_unique<FakeIppServer>();
    m_server->use();
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");
}

void TestLimits::cleanup()
{
    m_server.reset();
}

void TestLimits::defaults()
{
    const ServerConnection::Limits limits;
    // The last wait may begin just before the time is over, and there may be one to connect.
    QVERIFY(limits.totalMs + 1000.0 * limits.waitSeconds + limits.connectMs < 30'000);
}

void TestLimits::calls()
{
    QTest::addColumn<Call>("call");
    const auto row = [](const char *title, const Call &call) {
        QTest::addRow("%s", title) << call;
    };
    row("listWithoutDiscovery", [] { QVERIFY(Destinations::listWithoutDiscovery().isEmpty()); });
    row("named", [] { QCOMPARE(Destinations::named("Laser", nullptr).count(), 0); });
    row("writeSaved", [] { QVERIFY(!Destinations::writeSaved(Destinations::saved())); });
    row("defaultPrinterName", [] { QCOMPARE(_CUPS->defaultPrinterName(), QString()); });
    row("getPrinters", [] {
        QMap<QString, CUPSPrinter> out;
        QCOMPARE(_CUPS->getPrinters(out, 0, 0, nullptr), 0);
    });
    row("getClasses", [] {
        QMap<QString, ClassInfo> out;
        QCOMPARE(_CUPS->getClasses(out), 0);
    });
    row("startPrinter", [] { QVERIFY(!_CUPS->startPrinter("u")); });
    row("getJobs", [] {
        QMap<int, JobInfo> out;
        QCOMPARE(_CUPS->getJobs(out, nullptr, false), 0);
    });
    row("cancelJob", [] { QVERIFY(!_CUPS->cancelJob("Laser", 1)); });
    row("setPrinterPPD",
        [] { QVERIFY(!_CUPS->setPrinterPPD("u", QCoreApplication::applicationFilePath())); });
}

void TestLimits::silentServer_data()
{
    calls();
}

void TestLimits::silentServer()
{
    QFETCH(Call, call);
    m_server->setHandler([](const auto &) { return FakeIppServer::silence(); });
    QElapsedTimer timer;
    timer.start();
    call();
    QVERIFY2(timer.elapsed() < PromisedMs, qPrintable(QString::number(timer.elapsed())));
}

void TestLimits::serverThatFallsSilent_data()
{
    calls();
}

void TestLimits::serverThatFallsSilent()
{
    QFETCH(Call, call);
    m_server->setHandler([](const auto &) {
        return FakeIppServer::raw("HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n"
                                  "Content-Length: 1000\r\n\r\n\2\0");
    });
    QElapsedTimer timer;
    timer.start();
    call();
    QVERIFY2(timer.elapsed() < PromisedMs, qPrintable(QString::number(timer.elapsed())));
}

namespace
{
/** A socket that connections wait at for ever. */
class DeafSocket
{
public:
    explicit DeafSocket(const QString &path)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(path);
        qstrncpy(address.sun_path, name.constData(), sizeof address.sun_path);
        m_isListening =
            bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
            listen(m_socket, 0) == 0;
    }
    ~DeafSocket() { close(m_socket); }
    DeafSocket(const DeafSocket &) = delete;
    DeafSocket &operator=(const DeafSocket &) = delete;
    bool isListening() const { return m_isListening; }

private:
    int m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    bool m_isListening = false;
};
} // namespace

void TestLimits::serverThatTakesNoDocument()
{
    // Nobody reads what is sent: the document fills the socket's buffer.
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("s"));
    const DeafSocket socket(path);
    QVERIFY(socket.isListening());
    cupsSetServer(QFile::encodeName(path).constData());
    QFile document(folder.filePath(QStringLiteral("document")));
    QVERIFY(document.open(QIODevice::WriteOnly));
    QVERIFY(document.resize(10'000'000));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!_CUPS->setPrinterPPD("u", document.fileName()));
    QVERIFY2(timer.elapsed() < PromisedMs, qPrintable(QString::number(timer.elapsed())));
}

void TestLimits::serverThatAcceptsNobody()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("s"));
    const DeafSocket socket(path);
    QVERIFY(socket.isListening());
    cupsSetServer(QFile::encodeName(path).constData());
    // The first ones fill the queue of those that wait.
    std::vector<Cups::HttpPtr> waiting;
    QElapsedTimer timer;
    do {
        timer.start();
        waiting.push_back(ServerConnection::open());
        QVERIFY2(timer.elapsed() < PromisedMs, qPrintable(QString::number(timer.elapsed())));
    } while (waiting.back() && waiting.size() < 10);
    QVERIFY(!waiting.back());
}

void TestLimits::slowAnswerIsAwaited()
{
    const ServerConnection::Limits limits = ServerConnection::limits();
    // Longer than one wait, shorter than the whole.
    const int pauseMs = static_cast<int>(limits.waitSeconds * 1000) * 3;
    QVERIFY(pauseMs < limits.totalMs);
    m_server->setHandler([pauseMs](const auto &) {
        usleep(static_cast<useconds_t>(pauseMs) * 1000);
        return FakeIppServer::ok(IppBytes::response());
    });
    IPPRequest request(0x4002);
    QVERIFY(request.send("/"));
}

void TestLimits::timeForThePasswordIsNotCounted()
{
    const ServerConnection::Limits limits = ServerConnection::limits();
    IPPRequest::setPasswordPrompt([limits](const QString &, const QString &) {
        usleep(static_cast<useconds_t>(limits.totalMs) * 1000);
        return QStringLiteral("secret");
    });
    m_server->setHandler([limits](const FakeIppServer::Request &request) {
        if (request.headers.contains("authorization")) {
            usleep(static_cast<useconds_t>(limits.waitSeconds * 2e6));
            return FakeIppServer::ok(IppBytes::response());
        }
        FakeIppServer::Answer challenge = FakeIppServer::failure(401);
        challenge.headers = "WWW-Authenticate: Basic realm=\"CUPS\"\r\n";
        return challenge;
    });
    IPPRequest request(0x4002);
    QVERIFY(request.send("/"));
    IPPRequest::setPasswordPrompt(nullptr);
}

void TestLimits::patienceIsForAllConnections()
{
    m_server->setHandler([](const auto &) { return FakeIppServer::silence(); });
    QElapsedTimer timer;
    timer.start();
    {
        const ServerConnection::Patience patience;
        for (int i = 0; i < 20; ++i) {
            CUPSPrinter printer;
            QVERIFY(!_CUPS->findPrinter(QStringLiteral("Laser"), printer, false));
            QCOMPARE(Destinations::named("Laser", nullptr).count(), 0);
        }
    }
    QVERIFY2(timer.elapsed() < PromisedMs, qPrintable(QString::number(timer.elapsed())));
    // It ends with its scope.
    QVERIFY(ServerConnection::open());
}

namespace
{
/** Waits until the server may no longer be asked. */
void spendPatience()
{
    QTRY_VERIFY(!ServerConnection::open());
}
} // namespace

void TestLimits::patienceWithinPatience()
{
    const ServerConnection::Patience outer;
    QVERIFY(ServerConnection::open());
    spendPatience();
    {
        const ServerConnection::Patience inner;
        QVERIFY(!ServerConnection::open());
    }
    QVERIFY(!ServerConnection::open());
}

void TestLimits::patienceThatIsSpent()
{
    const ServerConnection::Patience patience;
    spendPatience();
    m_server->setHandler([](const auto &) { return FakeIppServer::silence(); });
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 100; ++i)
        QVERIFY(!IPPRequest(0x4002).send("/"));
    QVERIFY2(timer.elapsed() < ServerConnection::limits().totalMs,
             qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_server->requestCount(), 0);
}

void TestLimits::patienceStartsAnewAfterThePassword()
{
    const ServerConnection::Patience patience;
    timeForThePasswordIsNotCounted();
    // The question alone has taken all the time that there was.
    QVERIFY(ServerConnection::open());
}

void TestLimits::patienceIsOfItsThread()
{
    const ServerConnection::Patience patience;
    spendPatience();
    bool isOpen = false;
    std::thread([this, &isOpen] {
        m_server->use();
        isOpen = ServerConnection::open() != nullptr;
    }).join();
    QVERIFY(isOpen);
}

void TestLimits::discoveryOfASilentServer()
{
    m_server->setHandler([](const auto &) { return FakeIppServer::silence(); });
    Destinations::Discovery discovery;
    int reports = 0;
    connect(&discovery, &Destinations::Discovery::finished, this,
            [&reports](const QList<Destinations::Entry> &entries) {
                ++reports;
                QVERIFY(entries.isEmpty());
            });
    discovery.start();
    QTRY_COMPARE_WITH_TIMEOUT(reports, 1, 20'000);
}

void TestLimits::countsOpenings()
{
    const unsigned before = ServerConnection::openings();
    QVERIFY(ServerConnection::open());
    QCOMPARE(ServerConnection::openings(), before + 1);
    m_server.reset();
    QVERIFY(!ServerConnection::open());
    QCOMPARE(ServerConnection::openings(), before + 1);
}

QTEST_GUILESS_MAIN(TestLimits)
#include "tst_limits.moc"
