#include "FakeIppServer.h"
#include "IPPRequest.h"
#include "IppBytes.h"
#include "LogTail.h"
#include "OwnProcess.h"

#include <QTemporaryDir>
#include <QTest>

namespace
{
constexpr int GetPrinters = 0x4002;
constexpr int PrinterGroup = 4;
constexpr char RequestLog[] = "ipp_request.log";

/** A request whose resource a test can set, and whose connection it can see. */
class Request : public IPPRequest
{
public:
    explicit Request(int operation = GetPrinters, const QString &resource = QStringLiteral("/x/"))
        : IPPRequest(operation)
    {
        m_resource = resource;
    }
    bool isConnected() const { return m_http; }
};

QByteArray formatted(const QByteArray &message, int index = 0)
{
    const Cups::IppPtr parsed = parseIpp(message);
    if (!parsed)
        return "the message was refused";
    return IPPRequest::formatValue(ippFindAttribute(parsed.get(), "a", IPP_TAG_ZERO), index);
}

QByteArray withValue(int tag, const QByteArray &value)
{
    return IppBytes::response().group(PrinterGroup).attribute(tag, "a", value);
}
} // namespace

class TestIPPRequest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_server = std::make_unique<FakeIppServer>();
        m_server->use();
    }
    void cleanup() { m_server.reset(); }

    void statusText_data();
    void statusText();
    void formatValue_data();
    void formatValue();
    void formatValueCutsAtTheBuffersEnd();
    void formatValueOfNothing();
    void dumpOfNothing();
    void dumpOfARequest();
    void dumpOfAResponse();
    void dumpOfManyValues();
    void dumpOfTwoPrinters();
    void dumpStopsWhereTheBufferEnds();
    void newRequestHasCharsetAndLanguage();
    void adders();
    void addersTakeNull();
    void addersAfterSendDoNothing();
    void listOfUrisMayBeEmpty();
    void sendPostsToTheResource();
    void sendPrefersTheGivenResource();
    void sendWithoutResource();
    void sendWithoutServer();
    void sendTwice();
    void sendDocument();
    void sendMissingDocument();
    void refusedRequestIsSent();
    void httpErrorIsNoResponse_data();
    void httpErrorIsNoResponse();
    void brokenResponse_data();
    void brokenResponse();
    void missingLogIsSkipped();

private:
    std::unique_ptr<FakeIppServer> m_server;
};

void TestIPPRequest::statusText_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");
    const auto row = [](int status, const char *text) {
        QTest::addRow("%d", status) << status << QString::fromLatin1(text);
    };
    row(0x0000, "OK");
    row(0x0001, "IPP_OK_SUBST - OK but subst ???");
    row(0x0002, "IPP_OK_CONFLICT - OK but conflict ???");
    row(0x0400, "IPP_BAD_REQUEST - Bad request");
    row(0x0401, "IPP_FORBIDDEN - Operation forbidden");
    row(0x0402, "IPP_NOT_AUTHENTICATED - Not authenticated. Perhaps wrong password");
    row(0x0403, "IPP_NOT_AUTHORIZED - Not authorized");
    row(0x0404, "IPP_NOT_POSSIBLE - Not possible");
    row(0x0405, "IPP_TIMEOUT - Request timeout");
    row(0x0406, "IPP_NOT_FOUND - Not found");
    row(0x0407, "IPP_GONE - Gone...");
    row(0x0408, "IPP_REQUEST_ENTITY - Request entity ???");
    row(0x0409, "IPP_REQUEST_VALUE - Request value ???");
    row(0x040A, "IPP_DOCUMENT_FORMAT - Document format");
    row(0x040B, "IPP_ATTRIBUTES - Attributes ???");
    row(0x040C, "IPP_URI_SCHEME - URI sheme");
    row(0x040D, "IPP_CHARSET - Charset");
    row(0x040E, "IPP_CONFLICT - Conflict");
    row(0x0500, "IPP_INTERNAL_ERROR - Internal error");
    row(0x0501, "IPP_OPERATION_NOT_SUPPORTED - Operation not supported");
    row(0x0502, "IPP_SERVICE_UNAVAILABLE - Serice unavailable");
    row(0x0503, "IPP_VERSION_NOT_SUPPORTED - Version not supported");
    row(0x0504, "Unknown code (1284=0x504)");
    row(0x0505, "IPP_TEMPORARY_ERROR - Temporary error");
    row(0x0506, "IPP_NOT_ACCEPTING - Not accepting");
    row(0x0507, "IPP_PRINTER_BUSY - Printer busy");
    row(0x0508, "Unknown code (1288=0x508)");
    row(0x0003, "Unknown code (3=0x3)");
    row(0x040F, "Unknown code (1039=0x40f)");
    row(-1, "Unknown code (-1=0xffffffff)");
    row(0x10000, "Unknown code (65536=0x10000)");
}

void TestIPPRequest::statusText()
{
    QFETCH(int, status);
    QTEST(IPPRequest::statusText(status), "text");
}

void TestIPPRequest::formatValue_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char *title, int tag, const QByteArray &value, const char *text) {
        QTest::addRow("%s", title) << withValue(tag, value) << QByteArray(text);
    };
    const QByteArray language = IppBytes::number16(2) + "de" + IppBytes::number16(3) + "Eck";
    const QByteArray date("2026;a.b,c\x05", 11);
    row("integer", 0x21, IppBytes::number32(-17), "-17");
    row("boolean", 0x22, QByteArray(1, '\1'), "1");
    row("boolean: no", 0x22, QByteArray(1, '\0'), "0");
    row("boolean: signed", 0x22, QByteArray(1, '\xff'), "-1");
    row("enum", 0x23, IppBytes::number32(0x1f), "1f");
    row("octetString", 0x30, "oct", "<oct>");
    row("dateTime", 0x31, date, "2026;a.b,c");
    row("dateTime with a zero byte", 0x31,
        QByteArray("20\0"
                   "6;a.b,c\x05",
                   11),
        "20");
    row("resolution", 0x32, QByteArray(9, '\1'), "Unknown value_tag=32");
    row("rangeOfInteger", 0x33, IppBytes::number32(-1) + IppBytes::number32(99), "[-1,99]");
    row("textWithLanguage", 0x35, language, "<Eck>");
    row("nameWithLanguage", 0x36, language, "<Eck>");
    row("text", 0x41, "t", "<t>");
    row("name", 0x42, "n", "<n>");
    row("keyword", 0x44, "k", "<k>");
    row("uri", 0x45, "ipp://u", "<ipp://u>");
    row("uriScheme", 0x46, "ipp", "Unknown value_tag=46");
    row("charset", 0x47, "utf-8", "<utf-8>");
    row("naturalLanguage", 0x48, "en", "<en>");
    row("mimeMediaType", 0x49, "a/b", "Unknown value_tag=49");
    row("no-value", 0x13, "", "Unknown value_tag=13");
    row("unknown", 0x10, "", "Unknown value_tag=10");
    row("empty text", 0x41, "", "<>");
}

void TestIPPRequest::formatValue()
{
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, text);
    QCOMPARE(formatted(message), text);
}

void TestIPPRequest::formatValueCutsAtTheBuffersEnd()
{
    const QByteArray text = formatted(withValue(0x41, QByteArray(1000, 'x')));
    QCOMPARE(text, '<' + QByteArray(254, 'x'));
}

void TestIPPRequest::formatValueOfNothing()
{
    const QByteArray message = withValue(0x41, "text");
    QCOMPARE(formatted(message, 7), "<>");
    QCOMPARE(formatted(message, -1), "<>");
    QCOMPARE(QByteArray(IPPRequest::formatValue(nullptr, 0)), "Unknown value_tag=0");
}

void TestIPPRequest::dumpOfNothing()
{
    QCOMPARE(IPPRequest::dumpAttributes(nullptr), "empty");
}

void TestIPPRequest::dumpOfARequest()
{
    Request request;
    request.addInteger("copies", 3, 0x21, 1);
    QCOMPARE(QByteArray(IPPRequest::dumpAttributes(request.request())),
             "operation_id: 16386/0x4002"
             "\n       attributes-charset(1): <utf-8>"
             "\nattributes-natural-langua(1): <en>"
             "\n                   copies(1): 3");
}

void TestIPPRequest::dumpOfAResponse()
{
    const Cups::IppPtr refused = parseIpp(IppBytes(0x0406));
    QCOMPARE(IPPRequest::dumpAttributes(refused.get()), "operation_id: 1030/0x406");
    const Cups::IppPtr accepted = parseIpp(IppBytes(0));
    QCOMPARE(IPPRequest::dumpAttributes(accepted.get()), "operation_id: 0/0");
}

void TestIPPRequest::dumpOfManyValues()
{
    const Cups::IppPtr message =
        parseIpp(IppBytes(0).group(PrinterGroup).keywords("media", {"a4", "a3", "letter"}));
    QCOMPARE(IPPRequest::dumpAttributes(message.get()),
             "operation_id: 0/0\n                    media(3): <a4>|<a3>|<letter>");
}

void TestIPPRequest::dumpOfTwoPrinters()
{
    const Cups::IppPtr message = parseIpp(IppBytes(0)
                                              .group(PrinterGroup)
                                              .name("printer-name", "one")
                                              .group(PrinterGroup)
                                              .name("printer-name", "two"));
    // The separator between the two is an attribute without name and value.
    QCOMPARE(IPPRequest::dumpAttributes(message.get()),
             "operation_id: 0/0"
             "\n             printer-name(1): <one>"
             "\n                         (0): Unknown value_tag=0"
             "\n             printer-name(1): <two>");
}

void TestIPPRequest::dumpStopsWhereTheBufferEnds()
{
    IppBytes bytes(0);
    bytes.group(PrinterGroup).text("first", "x");
    for (int i = 0; i < 1000; ++i)
        bytes.more(0x41, QByteArray(200, 'x'));
    bytes.text("last", "x");
    const Cups::IppPtr message = parseIpp(bytes);
    const QByteArray dump = IPPRequest::dumpAttributes(message.get());
    QCOMPARE(dump.size(), 65535);
    QVERIFY(dump.startsWith("operation_id: 0/0\n                    first(1001): <x>|<xxx"));
    QVERIFY(!dump.contains("last"));
    // And the buffer is whole again for the next message.
    QCOMPARE(IPPRequest::dumpAttributes(nullptr), "empty");
}

void TestIPPRequest::newRequestHasCharsetAndLanguage()
{
    const IPPRequest request(GetPrinters);
    QCOMPARE(ippGetRequestId(request.request()), 1);
    QCOMPARE(ippGetOperation(request.request()), IPP_OP_CUPS_GET_PRINTERS);
    QCOMPARE(request.response(), nullptr);
    Request sent;
    QVERIFY(sent.send());
    QCOMPARE(m_server->takeRequests().constFirst().message, IppBytes::request(GetPrinters).bytes());
    QCOMPARE(cupsUser(), "root");
}

void TestIPPRequest::adders()
{
    Request request;
    request.addUri("a-uri", "ipp://h/p", 1);
    request.addName("a-name", "n", 1);
    request.addText("a-text", "t", 1);
    request.addMimeType("a-type", "text/plain", 1);
    request.addInteger("an-integer", -5, 0x21, 1);
    request.addInteger("an-enum", 7, 0x23, 1);
    request.addBoolean("a-boolean", true, 1);
    request.addBoolean("b-boolean", false, 1);
    request.addUris("some-uris", {QStringLiteral("u1"), QStringLiteral("u\u00e4")}, 1);
    request.addMemberUris({QStringLiteral("m1"), QStringLiteral("m2")});
    request.addRequestedAttributes({"k1", "k2"});
    QVERIFY(request.send());
    QCOMPARE(m_server->takeRequests().constFirst().message,
             IppBytes::request(GetPrinters)
                 .attribute(0x45, "a-uri", "ipp://h/p")
                 .attribute(0x42, "a-name", "n")
                 .attribute(0x41, "a-text", "t")
                 .attribute(0x49, "a-type", "text/plain")
                 .integer(0x21, "an-integer", -5)
                 .integer(0x23, "an-enum", 7)
                 .boolean("a-boolean", 1)
                 .boolean("b-boolean", 0)
                 .attribute(0x45, "some-uris", "u1")
                 .more(0x45, "u\xc3\xa4")
                 .attribute(0x45, "member-uris", "m1")
                 .more(0x45, "m2")
                 .keywords("requested-attributes", {"k1", "k2"})
                 .bytes());
}

void TestIPPRequest::addersTakeNull()
{
    Request request;
    request.addUri("a-uri", nullptr, 1);
    request.addName("a-name", nullptr, 1);
    request.addText("a-text", nullptr, 1);
    request.addMimeType("a-type", nullptr, 1);
    const auto textOf = [&request](const char *name) {
        return ippGetString(ippFindAttribute(request.request(), name, IPP_TAG_ZERO), 0, nullptr);
    };
    QCOMPARE(textOf("a-uri"), nullptr);
    for (const char *name : {"a-name", "a-text", "a-type"})
        QCOMPARE(QByteArray(textOf(name)), QByteArray(""));
    QVERIFY(request.send());
    QCOMPARE(m_server->takeRequests().constFirst().message, IppBytes::request(GetPrinters)
                                                                .attribute(0x45, "a-uri", "")
                                                                .attribute(0x42, "a-name", "")
                                                                .attribute(0x41, "a-text", "")
                                                                .attribute(0x49, "a-type", "")
                                                                .bytes());
}

void TestIPPRequest::addersAfterSendDoNothing()
{
    Request request;
    QVERIFY(request.send());
    QCOMPARE(request.request(), nullptr);
    request.addUri("a", "u", 1);
    request.addName("a", "n", 1);
    request.addText("a", "t", 1);
    request.addMimeType("a", "m", 1);
    request.addInteger("a", 1, 0x21, 1);
    request.addBoolean("a", true, 1);
    request.addUris("a", {QStringLiteral("u")}, 1);
    request.addMemberUris({QStringLiteral("u")});
    request.addRequestedAttributes({"k"});
    QCOMPARE(request.request(), nullptr);
}

void TestIPPRequest::listOfUrisMayBeEmpty()
{
    // The library cannot write an attribute without values: it is left out.
    Request request;
    request.addMemberUris({});
    request.addName("after", "n", 1);
    QVERIFY(request.send());
    QCOMPARE(m_server->takeRequests().constFirst().message,
             IppBytes::request(GetPrinters).name("after", "n").bytes());
}

void TestIPPRequest::sendPostsToTheResource()
{
    const LogTail log(RequestLog);
    Request request(GetPrinters, QStringLiteral("/printers/"));
    QVERIFY(request.send());
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.constFirst().method, "POST");
    QCOMPARE(requests.constFirst().resource, "/printers/");
    QCOMPARE(requests.constFirst().document, "");
    QVERIFY(request.isConnected());
    QCOMPARE(ippGetStatusCode(request.response()), IPP_STATUS_OK);
    QCOMPARE(log.added(), "Requesting operation 0x4002...\r\nResult status: OK\n\r\n");
}

void TestIPPRequest::sendPrefersTheGivenResource()
{
    Request request(GetPrinters, QStringLiteral("/printers/"));
    QVERIFY(request.send("/admin/"));
    QCOMPARE(m_server->takeRequests().constFirst().resource, "/admin/");
}

void TestIPPRequest::sendWithoutResource()
{
    const LogTail log(RequestLog);
    IPPRequest request(GetPrinters);
    QVERIFY(!request.send());
    QVERIFY(!request.send(""));
    QVERIFY(request.request());
    QCOMPARE(m_server->takeRequests().size(), 0);
    QCOMPARE(log.added(), "");
    // It was not used up.
    QVERIFY(request.send("/"));
}

void TestIPPRequest::sendWithoutServer()
{
    m_server.reset();
    const LogTail log(RequestLog);
    Request request;
    QVERIFY(!request.send());
    QVERIFY(!request.isConnected());
    QVERIFY(request.request());
    QCOMPARE(request.response(), nullptr);
    QCOMPARE(log.added(), "");
}

void TestIPPRequest::sendTwice()
{
    Request request;
    QVERIFY(request.send());
    m_server->takeRequests();
    const LogTail log(RequestLog);
    QVERIFY(!request.send());
    QCOMPARE(m_server->takeRequests().size(), 0);
    QCOMPARE(log.added(), "");
}

void TestIPPRequest::sendDocument()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("document")));
    const QByteArray document = QByteArray("%!PS\n\0\x03\xff", 8).repeated(20000);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(document);
    file.close();

    Request request;
    request.setFileName(file.fileName());
    QVERIFY(request.send());
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.constFirst().message, IppBytes::request(GetPrinters).bytes());
    QVERIFY(requests.constFirst().document == document);
}

void TestIPPRequest::sendMissingDocument()
{
    const LogTail log(RequestLog);
    Request request;
    request.setFileName(QStringLiteral("/nonexistent/file"));
    QVERIFY(!request.send());
    QCOMPARE(request.response(), nullptr);
    QCOMPARE(m_server->takeRequests().size(), 0);
    QCOMPARE(log.added(), "Requesting operation 0x4002...\r\nRequesting failed!\n\r\n");
}

void TestIPPRequest::refusedRequestIsSent()
{
    m_server->setHandler(
        [](const auto &) { return FakeIppServer::ok(IppBytes::response(0x0403)); });
    const LogTail log(RequestLog);
    Request request(0x0010);
    QVERIFY(request.send());
    QCOMPARE(ippGetStatusCode(request.response()), IPP_STATUS_ERROR_NOT_AUTHORIZED);
    QCOMPARE(log.added(), "Requesting operation 0x10...\r\n"
                          "Result status: IPP_NOT_AUTHORIZED - Not authorized\n\r\n");
}

void TestIPPRequest::httpErrorIsNoResponse_data()
{
    QTest::addColumn<int>("status");
    for (const int status : {400, 403, 404, 500, 503})
        QTest::addRow("%d", status) << status;
}

void TestIPPRequest::httpErrorIsNoResponse()
{
    QFETCH(int, status);
    m_server->setHandler([status](const auto &) { return FakeIppServer::failure(status); });
    const LogTail log(RequestLog);
    Request request;
    QVERIFY(!request.send());
    QCOMPARE(request.response(), nullptr);
    QCOMPARE(request.request(), nullptr);
    QCOMPARE(log.added(), "Requesting operation 0x4002...\r\nRequesting failed!\n\r\n");
}

void TestIPPRequest::brokenResponse_data()
{
    QTest::addColumn<QByteArray>("answer");
    const QByteArray head = "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\n";
    QTest::addRow("nothing") << QByteArray();
    QTest::addRow("no HTTP") << QByteArray("SSH-2.0-Server\r\n");
    QTest::addRow("a long line") << head + "X: " + QByteArray(20000, 'x') + "\r\n\r\n";
    QTest::addRow("head alone") << head + "\r\n";
    QTest::addRow("shorter than said") << head + "Content-Length: 1000\r\n\r\n\2\0\0";
    QTest::addRow("negative length") << head + "Content-Length: -5\r\n\r\n";
    QTest::addRow("no IPP") << head + "Content-Length: 12\r\n\r\n<html></html";
    QTest::addRow("bad chunk") << head + "Transfer-Encoding: chunked\r\n\r\nzz\r\n";
    QTest::addRow("end in an attribute")
        << head + "Content-Length: 14\r\n\r\n" + QByteArray("\2\0\0\0\0\0\0\1\4\x41\0\x09pr", 14);
}

void TestIPPRequest::brokenResponse()
{
    QFETCH(QByteArray, answer);
    m_server->setHandler([answer](const auto &) { return FakeIppServer::raw(answer); });
    Request request;
    QVERIFY(!request.send());
}

void TestIPPRequest::missingLogIsSkipped()
{
    const auto run = OwnProcess::run(QStringLiteral("/nonexistent"),
                                     {QStringLiteral("newRequestHasCharsetAndLanguage"),
                                      QStringLiteral("addersAfterSendDoNothing"),
                                      QStringLiteral("brokenResponse")});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.errors, "");
}

QTEST_GUILESS_MAIN(TestIPPRequest)
#include "tst_ipprequest.moc"
