#include "CUPSManager.h"
#include "Destinations.h"
#include "FakeIppServer.h"
#include "IppBytes.h"
#include "PrinterOptions.h"
#include "ServerConnection.h"

#include <QElapsedTimer>
#include <QSet>
#include <QTest>

#include <functional>

/** What every call gives where the server's answer is broken, useless, a refusal, or too much. */

namespace
{
using Answer = FakeIppServer::Answer;

constexpr int OperationGroup = 1;
constexpr int JobGroup = 2;
constexpr int PrinterGroup = 4;
constexpr int FutureGroup = 0x0e;

constexpr char Head[] = "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n";

constexpr qint64 PromisedMs = 30'000;
/** Where only the end of the time helps, there is little of it. */
constexpr ServerConnection::Limits Short = {100, 0.02, 100};
constexpr qint64 MuchLongerMs = 10'000;

/** A question to the server, or something asked of it. */
struct Call {
    const char *title;
    std::function<QVariant()> run;
    /** What it gives without an answer. */
    QVariant failed;
    /** What it gives for an answer in which all is well and nothing is said. */
    QVariant told;
    /** The library's own calls know more than others what to make of an answer. */
    enum Kind { Ours, DefaultName, CancelJob } kind = Ours;
};

template <typename Record> bool isSame(const Record &record, const QString &name)
{
    return record.name == name;
}
bool isSame(const CUPSPrinter &printer, const QString &name)
{
    return printer.attributes.name == name;
}

const QString Kept = QStringLiteral("kept");

/** Calls a listing with a map that is not empty, of which it must leave the entry as it is. */
template <typename Listing> QVariant listed(const Listing &listing)
{
    QMap<QString, CUPSPrinter> out;
    out[Kept].attributes.name = Kept;
    const int count = listing(out);
    return isSame(out.value(Kept), Kept) && out.size() == count + 1 ? QVariant(count) : QVariant();
}

QVariant listedClasses()
{
    QMap<QString, ClassInfo> out;
    out[Kept].name = Kept;
    const int count = _CUPS->getClasses(out);
    return isSame(out.value(Kept), Kept) && out.size() == count + 1 ? QVariant(count) : QVariant();
}

template <typename Listing> QVariant listedJobs(const Listing &listing)
{
    constexpr int KeptId = -7;
    QMap<int, JobInfo> out;
    out[KeptId].name = Kept;
    const int count = listing(out);
    return isSame(out.value(KeptId), Kept) && out.size() == count + 1 ? QVariant(count)
                                                                      : QVariant();
}

/** Looks one record up; where that fails, `out` must be as it was. */
template <typename Record, typename Look> QVariant found(Record out, const Look &look)
{
    const bool isFound = look(out);
    return isFound || isSame(out, Kept) ? QVariant(isFound) : QVariant();
}

template <typename Look> QVariant foundPrinter(const Look &look)
{
    CUPSPrinter out;
    out.attributes.name = Kept;
    return found(out, look);
}

QVariant foundClass(const QString &name)
{
    ClassInfo out;
    out.name = Kept;
    return found(out, [name](ClassInfo &cls) { return _CUPS->findClass(name, cls); });
}

CUPSPrinter laser()
{
    CUPSPrinter printer;
    printer.attributes.name = QStringLiteral("Laser");
    printer.attributes.uris = {QStringLiteral("ipp://localhost/printers/Laser")};
    return printer;
}

constexpr char Uri[] = "ipp://localhost/printers/Laser";

QString document()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/CTestTestfile.cmake");
}

/** The listings and look-ups. */
void addQuestions(QList<Call> &calls)
{
    const QString name = QStringLiteral("Laser");
    calls += {
        {"getPrinters",
         [] { return listed([](auto &out) { return _CUPS->getPrinters(out, 0, 0, nullptr); }); }, 0,
         0},
        {"getPrinters of a type",
         [] { return listed([](auto &out) { return _CUPS->getPrinters(out, 4, 4, "tarvel"); }); },
         0, 0},
        {"findPrinter",
         [=] {
             return foundPrinter([=](auto &out) { return _CUPS->findPrinter(name, out, false); });
         },
         false, false},
        {"findPrinter of the vendor",
         [=] {
             return foundPrinter([=](auto &out) { return _CUPS->findPrinter(name, out, true); });
         },
         false, false},
        {"getClasses", listedClasses, 0, 0},
        {"findClass", [=] { return foundClass(name); }, false, false},
        {"getDefaultPrinter",
         [] { return foundPrinter([](auto &out) { return _CUPS->getDefaultPrinter(out); }); },
         false, false},
        {"getPrinterAttributes",
         [] {
             return foundPrinter([](auto &out) { return _CUPS->getPrinterAttributes(Uri, out); });
         },
         false, false},
        {"defaultPrinterName", [] { return _CUPS->defaultPrinterName(); }, QString(), QString(),
         Call::DefaultName},
        {"getJobs",
         [] { return listedJobs([](auto &out) { return _CUPS->getJobs(out, nullptr, false); }); },
         0, 0},
        {"getJobs of a destination",
         [] { return listedJobs([](auto &out) { return _CUPS->getJobs(out, "Laser", true); }); }, 0,
         0},
        {"getJobsWithUris",
         [] { return listedJobs([](auto &out) { return _CUPS->getJobsWithUris(out); }); }, 0, 0},
        {"getPPDs", [] { return _CUPS->getPPDs(nullptr).size(); }, 0, 0},
        {"getPPDs of a make", [] { return _CUPS->getPPDs("Tarvel").size(); }, 0, 0},
        {"listWithoutDiscovery", [] { return Destinations::listWithoutDiscovery().size(); }, 0, 0},
        {"named", [] { return Destinations::named("Laser", nullptr).count(); }, 0, 0},
        {"named instance", [] { return Destinations::named("Laser", "draft").count(); }, 0, 0},
        {"load", [=] { return PrinterOptions().load(name); }, false, false},
        {"openPPD",
         [=] {
             PrinterOptions options;
             options.setDestination(name);
             return options.openPPD();
         },
         false, false},
    };
}

/** What changes the server. */
void addOperations(QList<Call> &calls)
{
    ClassInfo office;
    office.name = QStringLiteral("Office");
    office.memberUris = laser().attributes.uris;
    CUPSPrinter withDriver = laser();
    withDriver.ppdName = QStringLiteral("laser.ppd");
    const PrintJob job = {QStringLiteral("title"), QStringLiteral("text/plain"), document()};
    calls += {
        {"startPrinter", [] { return _CUPS->startPrinter(Uri); }, false, true},
        {"stopPrinter", [] { return _CUPS->stopPrinter(Uri); }, false, true},
        {"setDefaultPrinter", [] { return _CUPS->setDefaultPrinter(QString::fromLatin1(Uri)); },
         false, true},
        {"cancelJob", [] { return _CUPS->cancelJob("Laser", 1); }, false, true, Call::CancelJob},
        {"cancelJob of a URI", [] { return _CUPS->cancelJob("ipp://localhost/jobs/1"); }, false,
         true},
        {"printFile", [=] { return _CUPS->printFile(laser(), job); }, false, true},
        {"setPrinterPPD", [] { return _CUPS->setPrinterPPD(Uri, document()); }, false, true},
        {"modifyPrinter", [] { return _CUPS->modifyPrinter(laser()); }, false, true},
        {"modifyPrinter with a driver", [=] { return _CUPS->modifyPrinter(withDriver); }, false,
         true},
        {"modifyClass", [=] { return _CUPS->modifyClass(office); }, false, true},
        {"deletePrinter", [] { return _CUPS->deletePrinter(Uri); }, false, true},
        {"deleteClass", [] { return _CUPS->deleteClass("ipp://localhost/classes/Office"); }, false,
         true},
    };
}

QList<Call> everyCall()
{
    QList<Call> calls;
    addQuestions(calls);
    addOperations(calls);
    return calls;
}

void answerColumns()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<Call>("call");
}

/** A row for the answer with each call. */
void answerRows(const char *title, const Answer &answer)
{
    for (const Call &call : everyCall())
        QTest::addRow("%s: %s", title, call.title) << answer << call;
}

void rawRows(const char *title, const QByteArray &bytes)
{
    answerRows(title, FakeIppServer::raw(bytes));
}

QByteArray withLength(qsizetype length, const QByteArray &body)
{
    return QByteArray(Head) + "Content-Length: " + QByteArray::number(length) + "\r\n\r\n" + body;
}

QByteArray whole(const QByteArray &body)
{
    return withLength(body.size(), body);
}

QByteArray chunked(const QByteArray &chunks)
{
    return QByteArray(Head) + "Transfer-Encoding: chunked\r\n\r\n" + chunks;
}

Answer withHeader(int status, const QByteArray &header)
{
    Answer answer = FakeIppServer::failure(status);
    answer.headers = header + "\r\n";
    return answer;
}
} // namespace
Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(Answer)

class TestHostileServer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void brokenTransport_data();
    void brokenTransport();
    void endlessTransport_data();
    void endlessTransport();
    void httpRefusal_data();
    void httpRefusal();
    void brokenMessage_data();
    void brokenMessage();
    void uselessMessage_data();
    void uselessMessage();
    void statusOfTheServer_data();
    void statusOfTheServer();
    void unknownStatusIsTold_data();
    void unknownStatusIsTold();
    void manyRecords();
    void manyValues_data();
    void manyValues();
    void longTexts();
    void otherEncodings();

private:
    void fails(const Answer &answer, const Call &call);
    void runs(const Call &call, const QVariant &expected, qint64 limitMs = PromisedMs);

    std::unique_ptr<FakeIppServer> m_server;
};

void TestHostileServer::initTestCase()
{
    QVERIFY(QFile::exists(document()));
}

void TestHostileServer::init()
{
    m_server = std::make_unique<FakeIppServer>();
    m_server->use();
    ServerConnection::limits() = {};
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");
}

void TestHostileServer::cleanup()
{
    m_server.reset();
}

void TestHostileServer::runs(const Call &call, const QVariant &expected, qint64 limitMs)
{
    QElapsedTimer timer;
    timer.start();
    const QVariant result = call.run();
    QVERIFY2(timer.elapsed() < limitMs, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(result, expected);
}

/** Calls while every request is answered so, and sees that the program is fit for more. */
void TestHostileServer::fails(const Answer &answer, const Call &call)
{
    m_server->setHandler([answer](const auto &) { return answer; });
    runs(call, call.failed);
    QVERIFY(m_server->requestCount() > 0);
    m_server->setHandler([](const auto &) { return FakeIppServer::ok(IppBytes::response()); });
    QVERIFY(IPPRequest(0x4002).send("/"));
}

void TestHostileServer::brokenTransport_data()
{
    answerColumns();
    const QByteArray message = IppBytes::response().text("x", QByteArray(1000, 'x'));
    rawRows("closes", {});
    rawRows("half a status line", "HTTP/1.");
    rawRows("status line alone", "HTTP/1.1 200 OK\r\n");
    rawRows("half a header", "HTTP/1.1 200 OK\r\nContent-Le");
    rawRows("no body", withLength(message.size(), {}));
    rawRows("half a body", withLength(message.size(), message.left(message.size() / 2)));
    rawRows("all but the end", withLength(message.size(), message.chopped(1)));
    rawRows("length too small", withLength(message.size() / 2, message));
    rawRows("length zero", withLength(0, message));
    rawRows("negative length", withLength(-5, message));
    rawRows("length is no number",
            QByteArray(Head) + "Content-Length: many\r\n\r\n" + message.left(500));
    rawRows("half a chunk", chunked("1000\r\n" + message.left(500)));
    rawRows("size of a chunk is no number", chunked("size\r\n" + message));
    rawRows("negative chunk", chunked("-10\r\n" + message));
    rawRows("no chunk", chunked("0\r\n\r\n"));
    rawRows("10,000 bad headers", "HTTP/1.1 200 OK\r\n" + QByteArray("x\r\n").repeated(10'000));
    rawRows("another protocol", "220 ready\r\n");
    rawRows("an alert of encryption", QByteArray("\x15\x03\x01\x00\x02\x02\x28", 7));
    rawRows("HTML", "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 13\r\n\r\n"
                    "<html></html>");
}

void TestHostileServer::brokenTransport()
{
    QFETCH(Answer, answer);
    QFETCH(Call, call);
    fails(answer, call);
}

void TestHostileServer::endlessTransport_data()
{
    // Also those of which the library takes the end for an accident, and connects anew.
    answerColumns();
    const QByteArray half = QByteArray(IppBytes::response().text("x", "x")).chopped(5);
    answerRows("silence", FakeIppServer::silence());
    answerRows("slow drip", FakeIppServer::drip(withLength(100'000, half), "text"));
    answerRows("slow chunks", FakeIppServer::drip(chunked("1000\r\n" + half), "\1"));
    rawRows("header of 1 MB", QByteArray(Head) + "X: " + QByteArray(1'000'000, 'x') + "\r\n\r\n");
    rawRows("zeros", QByteArray(100'000, '\0'));
    for (const int status : {204, 300, 301, 303})
        answerRows(QByteArray::number(status).constData(), FakeIppServer::failure(status));
    answerRows("302 elsewhere", withHeader(302, "Location: http://localhost:1/"));
    answerRows("302 to itself", withHeader(302, "Location: /"));
}

void TestHostileServer::endlessTransport()
{
    QFETCH(Answer, answer);
    QFETCH(Call, call);
    ServerConnection::limits() = Short;
    m_server->setHandler([answer](const auto &) { return answer; });
    // On a machine with much to do the time may be over before the server has read the request.
    runs(call, call.failed, MuchLongerMs);
}

void TestHostileServer::httpRefusal_data()
{
    answerColumns();
    for (const int status : {400, 402, 403, 404, 405, 408, 411, 413, 414, 417,
                             426, 500, 501, 502, 503, 504, 505, 599, 999, -1})
        answerRows(QByteArray::number(status).constData(), FakeIppServer::failure(status));
    answerRows("401", FakeIppServer::failure(401));
    answerRows("401 empty", withHeader(401, "WWW-Authenticate: "));
    answerRows("401 Basic", withHeader(401, "WWW-Authenticate: Basic realm=\"CUPS\""));
    answerRows("401 Digest", withHeader(401, "WWW-Authenticate: Digest realm=\"CUPS\", nonce=\"" +
                                                 QByteArray(5000, 'n') + "\", algorithm=SHA-256"));
    answerRows("401 PeerCred", withHeader(401, "WWW-Authenticate: PeerCred"));
    answerRows("401 Local", withHeader(401, "WWW-Authenticate: Local trc=\"y\""));
    answerRows("401 Negotiate", withHeader(401, "WWW-Authenticate: Negotiate"));
    answerRows("401 unknown", withHeader(401, "WWW-Authenticate: Sesame"));
    answerRows("426 with an offer",
               withHeader(426, "Connection: Upgrade\r\nUpgrade: TLS/1.2,HTTP/1.1"));
}

void TestHostileServer::httpRefusal()
{
    QFETCH(Answer, answer);
    QFETCH(Call, call);
    fails(answer, call);
}

void TestHostileServer::brokenMessage_data()
{
    answerColumns();
    const auto row = [](const char *title, const QByteArray &message) {
        rawRows(title, whole(message));
    };
    const auto printer = [] { return IppBytes::response().group(PrinterGroup); };
    row("no bytes", {});
    row("half a head", QByteArray("\2\0\0", 3));
    row("head alone", QByteArray("\2\0\0\0\0\0\0\1", 8));
    row("further value of nothing", printer().more(0x42, "Laser"));
    row("name longer than the message",
        printer().bytes().chopped(1) + QByteArray("\x42\x7f\xff", 3) + "printer-name");
    row("value longer than the message",
        printer().bytes().chopped(1) + QByteArray("\x42\0\x0cprinter-name\x7f\xff", 17) + "Laser");
    row("text of 65,535 bytes", printer().text("printer-info", QByteArray(65535, 't')));
    row("collection that does not end",
        printer().attribute(0x34, "media-col", "").attribute(0x4a, "", "x"));
    row("collections in each other, 1,000 deep",
        printer().bytes().chopped(1) + QByteArray("\x34\0\1a\0\0", 6) +
            QByteArray("\x4a\0\0\0\1a\x34\0\0\0\0", 11).repeated(1000));
    row("integer of 3 bytes", printer().attribute(0x21, "copies-default", "123"));
    row("range of 4 bytes", printer().attribute(0x33, "copies-supported", "1234"));
    row("date of 5 bytes", printer().attribute(0x31, "printer-current-time", "12345"));
    row("resolution of 8 bytes", printer().attribute(0x32, "resolution", "12345678"));
    row("language longer than its text",
        printer().attribute(0x35, "printer-info", QByteArray("\x7f\xff", 2) + "de"));
    row("text longer than its value",
        printer().attribute(0x35, "printer-info", QByteArray("\0\2de\x7f\xffx", 7)));
}

void TestHostileServer::brokenMessage()
{
    QFETCH(Answer, answer);
    QFETCH(Call, call);
    fails(answer, call);
}

namespace
{
/** A printer, a job and a driver that lack what they are known by, in the groups given. */
QByteArray nameless(int printerGroup, int jobGroup)
{
    return IppBytes::response()
        .group(jobGroup)
        .text("job-name", "title")
        .uri("job-uri", "ipp://localhost/jobs/1")
        .integer(0x23, "job-state", 3)
        .group(printerGroup)
        .text("printer-info", "info")
        .uri("printer-uri-supported", Uri)
        .integer(0x23, "printer-state", 3)
        .text("ppd-make", "Tarvel");
}

/** The same with the things that they are known by, as a value of the type. */
QByteArray knownBy(int tag, const QByteArray &value)
{
    return IppBytes::response()
        .group(JobGroup)
        .attribute(tag, "job-id", value)
        .text("job-name", "title")
        .group(PrinterGroup)
        .attribute(tag, "printer-name", value)
        .uri("printer-uri-supported", Uri)
        .attribute(tag, "ppd-name", value);
}

QByteArray knownByCollection()
{
    IppBytes bytes = IppBytes::response();
    const auto collection = [&bytes](const QByteArray &name) {
        bytes.attribute(0x34, name, "").attribute(0x4a, "", "member").attribute(0x42, "", "Laser");
        bytes.attribute(0x37, "", "");
    };
    bytes.group(JobGroup);
    collection("job-id");
    bytes.group(PrinterGroup);
    collection("printer-name");
    collection("ppd-name");
    return bytes;
}
} // namespace

void TestHostileServer::uselessMessage_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<Call>("call");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *title, const QByteArray &message,
                        const QString &defaultName = {}) {
        for (const Call &call : everyCall())
            QTest::addRow("%s: %s", title, call.title)
                << message << call
                << (call.kind == Call::DefaultName ? QVariant(defaultName) : call.told);
    };
    row("nothing", IppBytes(0));
    row("end of no collection", IppBytes::response().group(PrinterGroup).attribute(0x37, "", ""));
    row("name of 32,768 bytes",
        IppBytes::response().group(PrinterGroup).name(QByteArray(32768, 'n'), "Laser"));
    // The library looks for the default's name wherever it stands.
    row("value before any group", IppBytes(0).name("printer-name", "Laser"),
        QStringLiteral("Laser"));
    row("charset and language", IppBytes::response());
    row("empty groups", IppBytes::response()
                            .group(PrinterGroup)
                            .group(PrinterGroup)
                            .group(JobGroup)
                            .group(FutureGroup));
    row("names missing", nameless(PrinterGroup, JobGroup));
    row("wrong groups",
        IppBytes::response()
            .group(FutureGroup)
            .name("printer-name", "Laser")
            .name("ppd-name", "laser.ppd")
            .uri("printer-uri-supported", Uri),
        QStringLiteral("Laser"));
    const QList<QPair<const char *, int>> outOfBand = {
        {"unsupported", 0x10},      {"default", 0x11},        {"unknown", 0x12},
        {"no value", 0x13},         {"out of band 14", 0x14}, {"not settable", 0x15},
        {"delete attribute", 0x16}, {"administrator", 0x17},  {"out of band 1f", 0x1f}};
    for (const auto &[title, tag] : outOfBand)
        row(title, knownBy(tag, {}));
    row("empty names", knownBy(0x42, {}));
    row("booleans", knownBy(0x22, QByteArray(1, '\1')));
    row("ranges", knownBy(0x33, IppBytes::number32(1) + IppBytes::number32(9)));
    row("dates", knownBy(0x31, QByteArray(11, '\1')));
    row("resolutions", knownBy(0x32, QByteArray(9, '\3')));
    row("collections", knownByCollection());
}

void TestHostileServer::uselessMessage()
{
    QFETCH(QByteArray, message);
    QFETCH(Call, call);
    QFETCH(QVariant, expected);
    m_server->setHandler([message](const auto &) { return FakeIppServer::ok(message); });
    runs(call, expected);
    QVERIFY(m_server->requestCount() > 0);
}

void TestHostileServer::statusOfTheServer_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<Call>("call");
    for (const int status : {0x0001, 0x0002, 0x0003, 0x0300, 0x0400, 0x0401, 0x0402, 0x0403, 0x0404,
                             0x0405, 0x0406, 0x0407, 0x0408, 0x0409, 0x040A, 0x040B, 0x040C, 0x040D,
                             0x040E, 0x040F, 0x0420, 0x0500, 0x0501, 0x0502, 0x0503, 0x0504, 0x0505,
                             0x0506, 0x0507, 0x0508, 0x0509, 0x1000, 0x7fff, 0xffff}) {
        for (const Call &call : everyCall())
            QTest::addRow("0x%04x: %s", static_cast<unsigned>(status), call.title)
                << status << call;
    }
}

void TestHostileServer::statusOfTheServer()
{
    QFETCH(int, status);
    QFETCH(Call, call);
    m_server->setHandler(
        [status](const auto &) { return FakeIppServer::ok(IppBytes::response(status)); });
    // A refusal is an answer; only the library counts it as a failure.
    const bool isFailure =
        call.kind == Call::CancelJob && status >= IPP_STATUS_REDIRECTION_OTHER_SITE;
    runs(call, isFailure ? call.failed : call.told);
    QVERIFY(m_server->requestCount() > 0);
}

void TestHostileServer::unknownStatusIsTold_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");
    const auto row = [](int status, const char *text) {
        QTest::addRow("%d", status) << status << QString::fromLatin1(text);
    };
    row(0x0003, "Unknown code (3=0x3)");
    row(0x0300, "Unknown code (768=0x300)");
    row(0x040F, "Unknown code (1039=0x40f)");
    row(0x0420, "Unknown code (1056=0x420)");
    row(0x0504, "Unknown code (1284=0x504)");
    row(0x0508, "Unknown code (1288=0x508)");
    row(0x1000, "Unknown code (4096=0x1000)");
    row(0x7fff, "Unknown code (32767=0x7fff)");
    row(0xffff, "Unknown code (65535=0xffff)");
}

void TestHostileServer::unknownStatusIsTold()
{
    QFETCH(int, status);
    m_server->setHandler(
        [status](const auto &) { return FakeIppServer::ok(IppBytes::response(status)); });
    QVERIFY(_CUPS->setDefaultPrinter(QString::fromLatin1(Uri)));
    QTEST(IPPRequest::statusText(_CUPS->lastStatus()), "text");
}

namespace
{
IppBytes laserResponse()
{
    return IppBytes::response().group(PrinterGroup).name("printer-name", "Laser");
}

QMap<QString, CUPSPrinter> printers()
{
    QMap<QString, CUPSPrinter> all;
    _CUPS->getPrinters(all, 0, 0, nullptr);
    return all;
}
} // namespace

void TestHostileServer::manyRecords()
{
    constexpr int Count = 10'000;
    IppBytes bytes = IppBytes::response();
    for (int i = 0; i < Count; ++i) {
        const QByteArray number = QByteArray::number(i);
        bytes.group(PrinterGroup).name("printer-name", "Q" + number).name("ppd-name", number);
    }
    for (int i = 0; i < Count; ++i)
        bytes.group(JobGroup).integer(0x21, "job-id", i + 1);
    m_server->setHandler([bytes](const auto &) { return FakeIppServer::ok(bytes); });
    QCOMPARE(printers().size(), Count);
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(QStringLiteral("Q9999"), printer, false));
    ClassInfo cls;
    QVERIFY(_CUPS->findClass(QStringLiteral("Q9999"), cls));
    QCOMPARE(_CUPS->getPPDs(nullptr).size(), Count);
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobsWithUris(jobs), Count);
    QCOMPARE(Destinations::listWithoutDiscovery().size(), Count);
}

void TestHostileServer::manyValues_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<int>("tag");
    QTest::addColumn<QByteArray>("value");
    QTest::addRow("names") << QByteArray("printer-name") << 0x42 << QByteArray("Laser");
    QTest::addRow("states") << QByteArray("printer-state") << 0x23 << IppBytes::number32(5);
    QTest::addRow("uris") << QByteArray("printer-uri-supported") << 0x45 << QByteArray(Uri);
    QTest::addRow("media") << QByteArray("media-supported") << 0x44 << QByteArray("a4");
    QTest::addRow("sheets") << QByteArray("job-sheets-default") << 0x42 << QByteArray("none");
    QTest::addRow("members") << QByteArray("member-names") << 0x42 << QByteArray("Laser");
    QTest::addRow("orientations") << QByteArray("orientation-requested-supported") << 0x23
                                  << IppBytes::number32(3);
}

void TestHostileServer::manyValues()
{
    QFETCH(QByteArray, attribute);
    QFETCH(int, tag);
    QFETCH(QByteArray, value);
    constexpr int Count = 10'000;
    IppBytes bytes = laserResponse().attribute(tag, attribute, value);
    for (int i = 1; i < Count; ++i)
        bytes.more(tag, value);
    m_server->setHandler([bytes](const auto &) { return FakeIppServer::ok(bytes); });

    ClassInfo cls;
    QVERIFY(_CUPS->findClass(QStringLiteral("Laser"), cls));
    // All values of a list, the first one of anything else.
    const auto sizeOf = [&attribute](const char *name) { return attribute == name ? Count : 0; };
    QCOMPARE(cls.uris.size(), sizeOf("printer-uri-supported"));
    QCOMPARE(cls.mediaSupported.size(), sizeOf("media-supported"));
    QCOMPARE(cls.orientationsSupported.size(), sizeOf("orientation-requested-supported"));
    QCOMPARE(cls.memberNames.size(), sizeOf("member-names"));
    QCOMPARE(cls.state, attribute == "printer-state" ? 5 : 3);
    QCOMPARE(cls.jobSheetsEnd.isEmpty(), attribute != "job-sheets-default");
}

void TestHostileServer::longTexts()
{
    // As long as the library takes them; a hundred of them make three megabytes.
    const QByteArray text(32'767, 't');
    IppBytes bytes = laserResponse().text("printer-info", text).text("printer-location", text);
    bytes.keywords("media-supported", QList<QByteArray>(100, text));
    m_server->setHandler([bytes](const auto &) { return FakeIppServer::ok(bytes); });
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(QStringLiteral("Laser"), printer, false));
    QCOMPARE(printer.attributes.description.size(), text.size());
    QCOMPARE(printer.attributes.mediaSupported.size(), 100);
    QCOMPARE(printer.attributes.mediaSupported.constLast().size(), text.size());
}

void TestHostileServer::otherEncodings()
{
    const QByteArray invalid = "B\xfcro \xc3\x28 \xf0\x9f \xed\xa0\x80\x01\x1b[31m";
    const QByteArray bytes = laserResponse()
                                 .text("printer-info", invalid)
                                 .group(PrinterGroup)
                                 .name("printer-name", invalid);
    m_server->setHandler([bytes](const auto &) { return FakeIppServer::ok(bytes); });
    const auto all = printers();
    QCOMPARE(all.size(), 2);
    QCOMPARE(all.value(QStringLiteral("Laser")).attributes.description, QString::fromUtf8(invalid));
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(QString::fromUtf8(invalid), printer, false));
    QVERIFY(!_CUPS->findPrinter(QStringLiteral("B\u00fcro"), printer, false));
}

QTEST_GUILESS_MAIN(TestHostileServer)
#include "tst_hostileserver.moc"
