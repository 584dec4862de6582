#include "CUPSManager.h"
#include "Destinations.h"
#include "FakeIppServer.h"
#include "IppBytes.h"
#include "PrinterOptions.h"
#include "ServerConnection.h"

#include <QDir>
#include <QElapsedTimer>
#include <QScopedValueRollback>
#include <QTest>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <netinet/in.h>
#include <optional>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

/** No wait for the server is endless. The limits are shortened here to a twentieth. */

namespace
{
constexpr int Shortening = 20;
/** The promise is 30 seconds; the library adds pauses of a second that do not shrink. */
constexpr qint64 PromisedMs = 30'000 / Shortening + 2'000;

using Call = std::function<void()>;

FakeIppServer::Answer challenge()
{
    FakeIppServer::Answer answer = FakeIppServer::failure(401);
    answer.headers = "WWW-Authenticate: Basic realm=\"CUPS\"\r\n";
    return answer;
}
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
    void silentServerUnderAnotherName();
    void serverThatFallsSilent_data();
    void serverThatFallsSilent();
    void serverThatNeverEnds_data();
    void serverThatNeverEnds();
    void ppdOfAServerThatNeverEnds_data();
    void ppdOfAServerThatNeverEnds();
    void ppdThatIsCutOff();
    void ppdHasNoFile();
    void optionsOfAServerThatNeverEnds_data();
    void optionsOfAServerThatNeverEnds();
    void serverThatTakesNoDocument();
    void steadyUploadIsNotCut();
    void uploadThatComesToAHaltIsCut();
    void driversMayTakeLonger();
    void serverThatAcceptsNobody();
    void slowAnswerIsAwaited();
    void timeForThePasswordIsNotCounted();
    void patienceIsForAllConnections();
    void bothListsOfJobsHaveOneTime();
    void slowAnswers_data();
    void slowAnswers();
    void slowAnswersWithAPassword();
    void networkThatIsCutOff_data();
    void networkThatIsCutOff();
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
    // The drivers have a connection to themselves, whose time to connect is counted.
    QVERIFY(limits.slowListMs() + 1000.0 * limits.waitSeconds < 30'000);
    QVERIFY(limits.slowListMs() > 20'000);
}

namespace
{
/** What is asked of the server, each with the result that it has without an answer. */
std::vector<std::pair<const char *, Call>> everyCall()
{
    std::vector<std::pair<const char *, Call>> calls;
    const auto row = [&calls](const char *title, const Call &call) {
        calls.emplace_back(title, call);
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
    row("getJobsWithUris", [] {
        QMap<int, JobInfo> out;
        QCOMPARE(_CUPS->getJobsWithUris(out), 0);
    });
    row("cancelJob", [] { QVERIFY(!_CUPS->cancelJob("Laser", 1)); });
    row("getPPDs", [] { QVERIFY(_CUPS->getPPDs(nullptr).isEmpty()); });
    row("setPrinterPPD",
        [] { QVERIFY(!_CUPS->setPrinterPPD("u", QCoreApplication::applicationFilePath())); });
    return calls;
}
} // namespace

void TestLimits::calls()
{
    QTest::addColumn<Call>("call");
    for (const auto &[title, call] : everyCall())
        QTest::addRow("%s", title) << call;
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

void TestLimits::silentServerUnderAnotherName()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("s"));
    QVERIFY(QFile::link(QFile::decodeName(m_server->address()), name));
    cupsSetServer(QFile::encodeName(name).constData());
    m_server->setHandler([](const auto &) { return FakeIppServer::silence(); });
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!IPPRequest(0x4002).send("/"));
    QVERIFY2(timer.elapsed() < PromisedMs, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_server->requestCount(), 1);
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
using Answer = FakeIppServer::Answer;

/** Much shorter than one wait for a silent server: nothing but the end of the time helps. */
constexpr int EndlessMs = 300;
constexpr qint64 MuchLongerMs = 10'000;

Answer redirection(int status, const QByteArray &headers)
{
    Answer answer = FakeIppServer::failure(status);
    answer.headers = "Location: /\r\n" + headers;
    return answer;
}

QByteArray head(const QByteArray &headers)
{
    return "HTTP/1.1 200 OK\r\n" + headers;
}

/** The answers of servers that neither fall silent nor come to an end. */
void endlessAnswers()
{
    QTest::addColumn<Answer>("answer");
    const auto row = [](const char *title, const Answer &answer) {
        QTest::addRow("%s", title) << answer;
    };
    const QByteArray begun =
        IppBytes::response().text("x", QByteArray(1000, 'x')).bytes().left(100);
    const QByteArray chunked = "Transfer-Encoding: chunked\r\n\r\n";
    row("301", redirection(301, {}));
    row("302", redirection(302, {}));
    row("302 and close", redirection(302, "Connection: close\r\n"));
    row("304", redirection(304, {}));
    row("308", redirection(308, {}));
    row("continue", FakeIppServer::drip({}, "HTTP/1.1 100 Continue\r\n\r\n"));
    row("status line", FakeIppServer::drip("HTTP/1.1 200 ", "OK"));
    row("header", FakeIppServer::drip(head("X-Text: "), "text"));
    row("headers", FakeIppServer::drip(head({}), "X: y\r\n"));
    row("body", FakeIppServer::drip(head("Content-Length: 100000\r\n\r\n") + begun, "text"));
    row("chunk", FakeIppServer::drip(head(chunked) + "1000\r\n\2", "\1"));
    row("size of a chunk", FakeIppServer::drip(head(chunked), "0"));
}

/** Does something with a server whose answers do not end, in time, and leaves it fit for more. */
void endsInTime(FakeIppServer &server, const Call &call)
{
    QElapsedTimer timer;
    timer.start();
    call();
    QVERIFY2(timer.elapsed() < MuchLongerMs, qPrintable(QString::number(timer.elapsed())));
    server.setHandler([](const auto &) { return FakeIppServer::ok(IppBytes::response()); });
    QVERIFY(IPPRequest(0x4002).send("/"));
}

class ShortLimits
{
public:
    ShortLimits()
        : m_before(ServerConnection::limits())
    {
        ServerConnection::limits().totalMs = EndlessMs;
    }
    ShortLimits(const ShortLimits &) = delete;
    ShortLimits &operator=(const ShortLimits &) = delete;
    ~ShortLimits() { ServerConnection::limits() = m_before; }

private:
    ServerConnection::Limits m_before;
};
} // namespace
Q_DECLARE_METATYPE(Answer)

void TestLimits::serverThatNeverEnds_data()
{
    endlessAnswers();
}

void TestLimits::serverThatNeverEnds()
{
    QFETCH(Answer, answer);
    const ShortLimits limits;
    for (const auto &[title, call] : everyCall()) {
        m_server->setHandler([answer](const auto &) { return answer; });
        endsInTime(*m_server, call);
        QVERIFY2(!QTest::currentTestFailed(), title);
    }
}

void TestLimits::ppdOfAServerThatNeverEnds_data()
{
    endlessAnswers();
}

void TestLimits::ppdOfAServerThatNeverEnds()
{
    QFETCH(Answer, answer);
    const ShortLimits limits;
    m_server->setHandler([answer](const FakeIppServer::Request &request) {
        return request.method == "GET" ? answer : FakeIppServer::ok(IppBytes::response());
    });
    endsInTime(*m_server, [] {
        PrinterOptions options;
        options.setDestination(QStringLiteral("Laser"));
        QVERIFY(!options.openPPD());
        QVERIFY(!options.ppd());
    });
}

namespace
{
constexpr char Ppd[] = "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
                       "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n"
                       "*PCFileName: \"LASER.PPD\"\n*Manufacturer: \"Sample\"\n"
                       "*Product: \"(Laser)\"\n*ModelName: \"Laser\"\n"
                       "*ShortNickName: \"Laser\"\n*NickName: \"Laser\"\n"
                       "*PSVersion: \"(3010.000) 0\"\n";
} // namespace

void TestLimits::ppdThatIsCutOff()
{
    PrinterOptions options;
    options.setDestination(QStringLiteral("Laser"));
    const auto answerWith = [this](const Answer &ppd) {
        m_server->setHandler([ppd](const FakeIppServer::Request &request) {
            return request.method == "GET" ? ppd : FakeIppServer::ok(IppBytes::response());
        });
    };
    answerWith(FakeIppServer::raw(head("Content-Length: 100000\r\n\r\n") + Ppd));
    QVERIFY(!options.openPPD());
    QVERIFY(!options.ppd());
    answerWith(FakeIppServer::ok(Ppd));
    QVERIFY(options.openPPD());
    QVERIFY(options.ppd());
}

void TestLimits::ppdHasNoFile()
{
    // Whatever ends the program while it waits for the PPD leaves nothing behind.
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(folder.path()));
    QStringList found;
    int fetched = 0;
    m_server->setHandler([&](const FakeIppServer::Request &request) {
        if (request.method != "GET")
            return FakeIppServer::ok(IppBytes::response());
        ++fetched;
        found += QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        return FakeIppServer::ok(Ppd);
    });
    PrinterOptions options;
    options.setDestination(QStringLiteral("Laser"));
    const bool isOpen = options.openPPD();
    found += QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QVERIFY(isOpen);
    QCOMPARE(fetched, 1);
    QCOMPARE(found, QStringList());
}

void TestLimits::optionsOfAServerThatNeverEnds_data()
{
    endlessAnswers();
}

void TestLimits::optionsOfAServerThatNeverEnds()
{
    QFETCH(Answer, answer);
    const ShortLimits limits;
    // The server knows the queue, or does not, and does not come to an end with what follows.
    for (const int status : {IPP_STATUS_OK, IPP_STATUS_ERROR_NOT_FOUND}) {
        std::atomic<int> asked = 0;
        m_server->setHandler([&asked, status, answer](const auto &) {
            return asked++ == 0 ? FakeIppServer::ok(IppBytes::response(status)) : answer;
        });
        endsInTime(*m_server, [] { QCOMPARE(Destinations::named("Laser", nullptr).count(), 0); });
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(status)));
        QVERIFY(asked > 1);
    }
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

namespace
{
constexpr qsizetype DocumentSize = 4'000'000;

/** Sends a long document with a short limit; returns how long that took, nothing if it failed. */
std::optional<qint64> upload()
{
    const ShortLimits limits;
    const QTemporaryDir folder;
    QFile document(folder.filePath(QStringLiteral("document")));
    if (!document.open(QIODevice::WriteOnly) || !document.resize(DocumentSize))
        return std::nullopt;
    CUPSPrinter printer;
    printer.attributes.name = QStringLiteral("Laser");
    printer.attributes.uris = {QStringLiteral("ipp://localhost/printers/Laser")};
    QElapsedTimer timer;
    timer.start();
    const bool isPrinted = _CUPS->printFile(printer, {{}, {}, document.fileName()});
    return isPrinted ? std::optional<qint64>(timer.elapsed()) : std::nullopt;
}
} // namespace

void TestLimits::steadyUploadIsNotCut()
{
    m_server->setPauseBeforeReading(EndlessMs / 10);
    const auto elapsed = upload();
    QVERIFY(elapsed);
    QVERIFY2(*elapsed > 3 * EndlessMs, qPrintable(QString::number(*elapsed)));
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.constFirst().document.size(), DocumentSize);
}

void TestLimits::uploadThatComesToAHaltIsCut()
{
    m_server->setPauseBeforeReading(EndlessMs / 10);
    m_server->stopReadingAfter(DocumentSize / 2);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!upload());
    QVERIFY2(timer.elapsed() < MuchLongerMs, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_server->requestCount(), 0);
}

void TestLimits::driversMayTakeLonger()
{
    const ShortLimits limits;
    const int pauseMs = (EndlessMs + ServerConnection::limits().slowListMs()) / 2;
    m_server->setHandler([pauseMs](const auto &) {
        usleep(static_cast<useconds_t>(pauseMs) * 1000);
        return FakeIppServer::ok(IppBytes::response().group(4).name("ppd-name", "laser.ppd"));
    });
    QCOMPARE(_CUPS->getPPDs(nullptr).size(), 1);
    QVERIFY(!IPPRequest(0x4002).send("/"));
}

void TestLimits::serverThatAcceptsNobody()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("s"));
    const DeafSocket socket(path);
    QVERIFY(socket.isListening());
    cupsSetServer(QFile::encodeName(path).constData());
    // The first ones fill the queue of those that wait.
    std::vector<ServerConnection::Ptr> waiting;
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
        return challenge();
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
/** Longer limits, for tests that measure how often they are used up: a busy machine is no matter.
 */
class LongerLimits
{
public:
    LongerLimits()
        : m_totalMs(ServerConnection::limits().totalMs, 3 * ServerConnection::limits().totalMs)
    {
        m_timer.start();
    }
    /** A little more than half of the time. */
    static void answerSlowly()
    {
        std::this_thread::sleep_for(
            std::chrono::milliseconds(ServerConnection::limits().totalMs * 6 / 10));
    }
    qint64 used() const { return m_timer.elapsed(); }
    qint64 once() const { return ServerConnection::limits().totalMs * 17LL / 10; }

private:
    QScopedValueRollback<int> m_totalMs;
    QElapsedTimer m_timer;
};

/** What a server answers that has two classes, with printer Laser in both. */
QByteArray rightAnswer(const FakeIppServer::Request &request)
{
    IppBytes response = IppBytes::response();
    if (request.operation() != IPP_OP_CUPS_GET_CLASSES &&
        request.operation() != IPP_OP_GET_PRINTER_ATTRIBUTES)
        return response;
    for (const char *name : {"One", "Two"})
        response = response.group(0x04)
                       .name("printer-name", name)
                       .name("member-names", "Laser")
                       .uri("member-uris", "u");
    return response;
}
} // namespace

void TestLimits::bothListsOfJobsHaveOneTime()
{
    const LongerLimits limits;
    m_server->setHandler([](const FakeIppServer::Request &request) {
        LongerLimits::answerSlowly();
        const bool isRoot = request.message.contains("ipp://localhost/");
        return FakeIppServer::ok(IppBytes::response(isRoot ? 0 : 0x0406));
    });
    QMap<int, JobInfo> out;
    _CUPS->getJobsWithUris(out);
    QCOMPARE(m_server->requestCount(), 2);
    QVERIFY2(limits.used() < limits.once(), qPrintable(QString::number(limits.used())));
    QCOMPARE(_CUPS->listingStatus(), CUPSManager::NoAnswer);
}

void TestLimits::slowAnswers_data()
{
    QTest::addColumn<Call>("call");
    const auto row = [](const char *title, const Call &call) {
        QTest::addRow("%s", title) << call;
    };
    row("startPrinter", [] { QVERIFY(!_CUPS->startPrinter("u")); });
    row("stopPrinter", [] { QVERIFY(!_CUPS->stopPrinter("u")); });
    row("modifyPrinter", [] {
        CUPSPrinter printer;
        printer.ppdName = QStringLiteral("driver");
        QVERIFY(!_CUPS->modifyPrinter(printer));
    });
    row("deletePrinter", [] { QVERIFY(!_CUPS->deletePrinter("u")); });
    row("deleteClass", [] { QVERIFY(!_CUPS->deleteClass("u")); });
    row("findPrinter", [] {
        CUPSPrinter found;
        QVERIFY(!_CUPS->findPrinter(QStringLiteral("Laser"), found, false));
    });
}

/** Every answer is right and in time, and all of them together are too late. */
void TestLimits::slowAnswers()
{
    QFETCH(Call, call);
    const LongerLimits limits;
    m_server->setHandler([](const FakeIppServer::Request &request) {
        LongerLimits::answerSlowly();
        return FakeIppServer::ok(rightAnswer(request));
    });
    call();
    QCOMPARE(m_server->requestCount(), 2);
    QVERIFY2(limits.used() < limits.once(), qPrintable(QString::number(limits.used())));
}

/** To give the password that is known takes the user no time. */
void TestLimits::slowAnswersWithAPassword()
{
    IPPRequest::setPasswordPrompt([](auto...) { return QStringLiteral("secret"); });
    m_server->setHandler([](const FakeIppServer::Request &request) {
        return request.headers.contains("authorization") ? FakeIppServer::ok(IppBytes::response())
                                                         : challenge();
    });
    QVERIFY(IPPRequest(0x4002).send("/"));
    m_server->takeRequests();

    const LongerLimits limits;
    m_server->setHandler([](const FakeIppServer::Request &request) {
        LongerLimits::answerSlowly();
        return request.headers.contains("authorization") ? FakeIppServer::ok(IppBytes::response())
                                                         : challenge();
    });
    QVERIFY(!_CUPS->startPrinter("u"));
    IPPRequest::setPasswordPrompt(nullptr);
    QCOMPARE(m_server->requestCount(), 2);
    QVERIFY2(limits.used() < limits.once(), qPrintable(QString::number(limits.used())));
}

namespace
{
/**
 * A server in the network that accepts one connection, answers on it once, and is out of reach from
 * then on: what the library sends in order to connect anew is lost.
 */
class CutOffServer
{
public:
    explicit CutOffServer(QByteArray answer)
        : m_answer(std::move(answer))
    {
        sockaddr_in address = loopback();
        socklen_t size = sizeof address;
        auto *const generic = reinterpret_cast<sockaddr *>(&address);
        if (bind(m_listener, generic, size) != 0 || listen(m_listener, 0) != 0 ||
            getsockname(m_listener, generic, &size) != 0)
            qFatal("no server");
        m_port = ntohs(address.sin_port);
        m_thread = std::thread(&CutOffServer::serve, this);
    }
    CutOffServer(const CutOffServer &) = delete;
    CutOffServer &operator=(const CutOffServer &) = delete;
    ~CutOffServer()
    {
        shutdown(m_listener, SHUT_RDWR);
        m_thread.join();
        for (const int socket : m_crowd)
            close(socket);
        close(m_listener);
    }
    void use() const
    {
        cupsSetServer(("127.0.0.1:" + std::to_string(m_port)).c_str());
        cupsSetEncryption(HTTP_ENCRYPTION_NEVER);
    }

private:
    static sockaddr_in loopback()
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return address;
    }

    void serve()
    {
        const int connection = accept(m_listener, nullptr, nullptr);
        if (connection < 0)
            return;
        std::array<char, 4096> request;
        if (recv(connection, request.data(), request.size(), 0) > 0) {
            crowd();
            send(connection, m_answer.constData(), static_cast<size_t>(m_answer.size()),
                 MSG_NOSIGNAL);
        }
        if (!m_answer.isEmpty())
            close(connection);
        else
            m_crowd.push_back(connection);
    }

    /** Nobody is accepted any more: with all places taken the kernel answers no one. */
    void crowd()
    {
        sockaddr_in address = loopback();
        address.sin_port = htons(m_port);
        constexpr int MoreThanThereIsRoomFor = 8;
        for (int i = 0; i < MoreThanThereIsRoomFor; ++i) {
            m_crowd.push_back(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
            connect(m_crowd.back(), reinterpret_cast<sockaddr *>(&address), sizeof address);
        }
    }

    const QByteArray m_answer;
    const int m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    in_port_t m_port = 0;
    std::vector<int> m_crowd;
    std::thread m_thread;
};
} // namespace

void TestLimits::networkThatIsCutOff_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<Call>("call");
    const QByteArray redirect = "HTTP/1.1 302 Found\r\nLocation: /\r\nConnection: close\r\n"
                                "Content-Length: 0\r\n\r\n";
    const QByteArray half = "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n";
    for (const auto &[title, call] : everyCall()) {
        QTest::addRow("silence, %s", title) << QByteArray() << call;
        QTest::addRow("redirection, %s", title) << redirect << call;
        QTest::addRow("half an answer, %s", title) << half << call;
    }
}

void TestLimits::networkThatIsCutOff()
{
    QFETCH(QByteArray, answer);
    QFETCH(Call, call);
    const CutOffServer server(answer);
    server.use();
    QElapsedTimer timer;
    timer.start();
    call();
    cupsSetEncryption(HTTP_ENCRYPTION_IF_REQUESTED);
    QVERIFY2(timer.elapsed() < PromisedMs, qPrintable(QString::number(timer.elapsed())));
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
