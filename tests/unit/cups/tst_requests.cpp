#include "CUPSManager.h"
#include "FakeIppServer.h"
#include "IppBytes.h"
#include "Requests.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

/** What the requests look like on the wire: of each class, and of each operation of the facade. */

namespace
{
using MakeRequest = std::function<std::unique_ptr<IPPRequest>()>;
using Operation = std::function<bool()>;

struct Expected {
    QByteArray resource;
    QByteArray message;
    QByteArray document = {};
};

template <typename Request, typename... Arguments> MakeRequest make(Arguments... arguments)
{
    return [=] { return std::make_unique<Request>(arguments...); };
}

const QList<QByteArray> PrinterAttributes = {"printer-name",
                                             "printer-location",
                                             "printer-info",
                                             "printer-make-and-model",
                                             "printer-state",
                                             "printer-state-message",
                                             "device-uri",
                                             "color-supported",
                                             "media-supported",
                                             "media-default",
                                             "job-sheets-supported",
                                             "job-sheets-default",
                                             "printer-type",
                                             "printer-is-accepting-jobs",
                                             "printer-uri",
                                             "printer-uri-supported",
                                             "copies-supported",
                                             "copies-default",
                                             "page-ranges-supported",
                                             "orientation-requested-supported",
                                             "orientation-requested-default"};
const QList<QByteArray> ClassAttributes =
    PrinterAttributes + QList<QByteArray>{"member-uris", "member-names"};
const QList<QByteArray> JobAttributes = {
    "job-id",  "job-name",     "job-printer-uri",  "job-originating-user-name",
    "job-uri", "job-k-octets", "time-at-creation", "job-state"};
constexpr char LaserUri[] = "ipp://localhost/printers/Laser";
constexpr char OfficeUri[] = "ipp://localhost/classes/Office";

CUPSPrinter samplePrinter()
{
    CUPSPrinter printer;
    printer.attributes.name = QStringLiteral("Laser");
    printer.attributes.description = QStringLiteral("B\u00fcro");
    printer.attributes.location = QStringLiteral("2nd floor");
    printer.attributes.localUri = QStringLiteral("usb://Laser");
    printer.attributes.state = 5;
    printer.attributes.acceptingJobs = true;
    printer.attributes.uri = QStringLiteral("ipp://elsewhere/printers/Laser");
    printer.attributes.uris = {QStringLiteral("ipp://first/printers/Laser"),
                               QStringLiteral("ipp://second/printers/Laser")};
    return printer;
}

ClassInfo sampleClass()
{
    ClassInfo cls;
    cls.name = QStringLiteral("Office");
    cls.description = QStringLiteral("All");
    cls.location = QStringLiteral("here");
    cls.memberUris = {QStringLiteral("ipp://localhost/printers/a"),
                      QStringLiteral("ipp://localhost/printers/b")};
    return cls;
}

IppBytes modifyPrinterBytes(const QByteArray &uri)
{
    return IppBytes::request(0x4003)
        .uri("printer-uri", uri)
        .uri("device-uri", "usb://Laser")
        .integer(0x23, "printer-state", 5)
        .boolean("printer-is-accepting-jobs", 1)
        .text("printer-info", "B\xc3\xbcro")
        .text("printer-location", "2nd floor");
}

IppBytes modifyClassBytes(const QByteArray &uri)
{
    return IppBytes::request(0x4006)
        .uri("printer-uri", uri)
        .text("printer-location", "here")
        .text("printer-info", "All")
        .integer(0x23, "printer-state", 3)
        .boolean("printer-is-accepting-jobs", 0)
        .uri("member-uris", "ipp://localhost/printers/a")
        .more(0x45, "ipp://localhost/printers/b");
}

IppBytes ppdNameBytes(const QByteArray &uri, const QByteArray &ppdName)
{
    return IppBytes::request(0x4003).uri("printer-uri", uri).name("ppd-name", ppdName);
}

IppBytes withUri(int operation, const QByteArray &uri)
{
    return IppBytes::request(operation).uri("printer-uri", uri);
}

IppBytes getPrinters()
{
    return IppBytes::request(0x4002).keywords("requested-attributes", PrinterAttributes);
}

IppBytes getDefault()
{
    return IppBytes::request(0x4001).keywords("requested-attributes", PrinterAttributes);
}

IppBytes getClasses()
{
    return IppBytes::request(0x4005).keywords("requested-attributes", ClassAttributes);
}

IppBytes getAttributes(const QByteArray &uri)
{
    return withUri(0x000B, uri).keywords("requested-attributes", PrinterAttributes);
}

/** An answer in which the server knows Laser and two classes, one of them with Laser in it. */
FakeIppServer::Answer answerOfSampleServer(const FakeIppServer::Request &request)
{
    IppBytes bytes = IppBytes::response();
    if (request.operation() == 0x000B || request.operation() == 0x4002) {
        bytes.group(4).name("printer-name", "Laser").uri("printer-uri-supported", LaserUri);
    } else if (request.operation() == 0x4005) {
        bytes.group(4)
            .name("printer-name", "Empty")
            .group(4)
            .name("printer-name", "Office")
            .uri("printer-uri-supported", OfficeUri)
            .uri("member-uris", "ipp://localhost/printers/Plain")
            .more(0x45, LaserUri)
            .name("member-names", "Plain")
            .more(0x42, "Laser");
    }
    return FakeIppServer::ok(bytes);
}
} // namespace

class TestRequests : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void requestClass_data();
    void requestClass();
    void getJobsNamesTheServer();
    void getJobsAsksTheRootWhereTheServerRefuses_data();
    void getJobsAsksTheRootWhereTheServerRefuses();
    void operation_data();
    void operation();
    void stopsAtTheFirstFailure_data();
    void stopsAtTheFirstFailure();
    void aRefusalIsNoFailure_data();
    void aRefusalIsNoFailure();
    void withoutSocketUrisNameTheServer();
    void lastStatus();
    void deletePrinter();
    void deletePrinterWithoutNameDeletes();
    void deletePrinterOfAClassWithOneMember();
    void deleteClass();
    void deleteClassThatOnlyTheClassListKnows();
    void deletionEndsWithoutAnswer_data();
    void deletionEndsWithoutAnswer();
    void deletionGoesOnWithoutTheLibrarysAnswer_data();
    void deletionGoesOnWithoutTheLibrarysAnswer();
    void deletionGoesOnAfterARefusal_data();
    void deletionGoesOnAfterARefusal();

private:
    void compareRequests(const QList<Expected> &expected);
    static void compare(const QList<FakeIppServer::Request> &requests,
                        const QList<Expected> &expected);
    static void deletionColumns();
    void deletion(const FakeIppServer::Answer &bad, bool isDone);
    void setSocketThere(bool isThere);
    static void operationRows();

    std::unique_ptr<FakeIppServer> m_server;
};

namespace
{
QString documentPath()
{
    return qEnvironmentVariable("VESK_RELOCATED_ROOT") + QStringLiteral("/document");
}

QString userOptionsPath()
{
    return qEnvironmentVariable("HOME") + QStringLiteral("/.cups/lpoptions");
}

constexpr char Document[] = "a document\n";

void writeFile(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/** The operations in hexadecimal. */
QByteArray operationsOf(const QList<FakeIppServer::Request> &requests)
{
    QByteArrayList operations;
    for (const FakeIppServer::Request &request : requests)
        operations += QByteArray::number(request.operation(), 16);
    return operations.join(' ');
}
} // namespace

void TestRequests::init()
{
    m_server = std::make_unique<FakeIppServer>();
    m_server->use();
    setSocketThere(true);
    writeFile(documentPath(), Document);
    QFile::remove(userOptionsPath());
}

void TestRequests::cleanup()
{
    m_server.reset();
}

void TestRequests::setSocketThere(bool isThere)
{
    const QString path =
        qEnvironmentVariable("VESK_RELOCATED_ROOT") + QStringLiteral("/var/run/cups/cups.sock");
    if (isThere)
        writeFile(path, {});
    else
        QVERIFY(QFile::remove(path));
}

void TestRequests::compareRequests(const QList<Expected> &expected)
{
    compare(m_server->takeRequests(), expected);
}

void TestRequests::compare(const QList<FakeIppServer::Request> &requests,
                           const QList<Expected> &expected)
{
    for (qsizetype i = 0; i < std::min(requests.size(), expected.size()); ++i) {
        QCOMPARE(requests.at(i).method, "POST");
        QCOMPARE(requests.at(i).resource, expected.at(i).resource);
        QCOMPARE(requests.at(i).message, expected.at(i).message);
        QCOMPARE(requests.at(i).document, expected.at(i).document);
    }
    QCOMPARE(requests.size(), expected.size());
}

void TestRequests::requestClass_data()
{
    QTest::addColumn<MakeRequest>("makeRequest");
    QTest::addColumn<QByteArray>("resource");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char *title, const MakeRequest &makeRequest, const char *resource,
                        const QByteArray &message) {
        QTest::addRow("%s", title) << makeRequest << QByteArray(resource) << message;
    };
    using namespace Requests;
    const char *null = nullptr;
    row("PrintFile", make<PrintFile>("Laser"), "/printers/Laser",
        IppBytes::request(0x0002).name("requesting-user-name", "root"));
    row("CancelJob", make<CancelJob>("ipp://localhost/jobs/7"), "/jobs/",
        IppBytes::request(0x0008)
            .uri("job-uri", "ipp://localhost/jobs/7")
            .name("requesting-user-name", "root"));
    row("GetPrinterAttributes", make<GetPrinterAttributes>(), "/printers/",
        IppBytes::request(0x000B));
    row("GetDefaultPrinter", make<GetDefaultPrinter>(), "/printers/", IppBytes::request(0x4001));
    row("GetPrinters 0 0", make<GetPrinters>(0, 0), "/printers/", IppBytes::request(0x4002));
    row("GetPrinters 0 4", make<GetPrinters>(0, 4), "/printers/",
        IppBytes::request(0x4002)
            .integer(0x23, "printer-type", 0)
            .integer(0x23, "printer-type-mask", 4));
    row("GetPrinters 4 0", make<GetPrinters>(4, 0), "/printers/",
        IppBytes::request(0x4002)
            .integer(0x23, "printer-type", 4)
            .integer(0x23, "printer-type-mask", 0));
    row("AddPrinter", make<AddPrinter>(), "/admin/", IppBytes::request(0x4003));
    row("DeletePrinter", make<DeletePrinter>(LaserUri), "/admin/", withUri(0x4004, LaserUri));
    row("GetClasses", make<GetClasses>(), "/classes/", IppBytes::request(0x4005));
    row("AddClass", make<AddClass>(), "/admin/", IppBytes::request(0x4006));
    row("DeleteClass", make<DeleteClass>(OfficeUri), "/admin/", withUri(0x4007, OfficeUri));
    row("SetDefaultPrinter", make<SetDefaultPrinter>(LaserUri), "/admin/",
        withUri(0x400A, LaserUri));
    row("GetPPDs of all makes", make<GetPPDs>(null), "/",
        withUri(0x400C, "ipp://localhost/printers/"));
    row("GetPPDs of a make", make<GetPPDs>("Tarvel"), "/",
        withUri(0x400C, "ipp://localhost/printers/").text("ppd-make", "Tarvel"));
}

void TestRequests::requestClass()
{
    QFETCH(MakeRequest, makeRequest);
    QFETCH(QByteArray, resource);
    QFETCH(QByteArray, message);
    QVERIFY(makeRequest()->send());
    compareRequests({{resource, message}});
}

void TestRequests::getJobsNamesTheServer()
{
    Requests::GetJobs request;
    QVERIFY(request.send());
    compareRequests({{"/", withUri(0x000A, "ipp://" + m_server->address() + "/jobs/")}});
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobsWithUris(jobs), 0);
    compareRequests({{"/", withUri(0x000A, "ipp://" + m_server->address() + "/jobs/")
                               .keywords("requested-attributes", JobAttributes)}});
}

void TestRequests::getJobsAsksTheRootWhereTheServerRefuses_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("requests");
    QTest::addColumn<int>("growth");
    QTest::addRow("accepted") << 0 << 1 << 1;
    QTest::addRow("not found") << 0x0406 << 2 << 2;
    QTest::addRow("forbidden") << 0x0401 << 1 << 1;
    QTest::addRow("internal error") << 0x0500 << 1 << 1;
}

void TestRequests::getJobsAsksTheRootWhereTheServerRefuses()
{
    QFETCH(int, status);
    m_server->setHandler([status, count = 0](const auto &) mutable {
        const bool isFirst = ++count == 1;
        return FakeIppServer::ok(
            IppBytes::response(isFirst ? status : 0).group(2).integer(0x21, "job-id", count));
    });
    QMap<int, JobInfo> jobs;
    QTEST(_CUPS->getJobsWithUris(jobs), "growth");
    QCOMPARE(jobs.size(), jobs.isEmpty() ? 0 : jobs.lastKey());
    QFETCH(int, requests);
    QCOMPARE(_CUPS->lastStatus(), requests == 1 ? status : 0);
    const QList<Expected> expected = {
        {"/", withUri(0x000A, "ipp://" + m_server->address() + "/jobs/")
                  .keywords("requested-attributes", JobAttributes)},
        {"/", withUri(0x000A, "ipp://localhost/").keywords("requested-attributes", JobAttributes)}};
    compareRequests(expected.first(requests));
}

void TestRequests::operationRows()
{
    const auto row = [](const char *title, const Operation &operation,
                        const QList<Expected> &expected) {
        QTest::addRow("%s", title) << operation << expected;
    };
    const QByteArray admin = "/admin/";
    const QByteArray printers = "/printers/";

    row("startPrinter", [] { return _CUPS->startPrinter(LaserUri); },
        {{admin, withUri(0x4008, LaserUri)}, {admin, withUri(0x0011, LaserUri)}});
    row("stopPrinter", [] { return _CUPS->stopPrinter(LaserUri); },
        {{admin, withUri(0x4009, LaserUri)}, {admin, withUri(0x0010, LaserUri)}});
    row("setDefaultPrinter",
        [] { return _CUPS->setDefaultPrinter(QStringLiteral("as it \u00efs")); },
        {{admin, withUri(0x400A, "as it \xc3\xafs")}});
    row("cancelJob", [] { return _CUPS->cancelJob("ipp://localhost/jobs/9"); },
        {{"/jobs/", IppBytes::request(0x0008)
                        .uri("job-uri", "ipp://localhost/jobs/9")
                        .name("requesting-user-name", "root")}});
    row("printFile",
        [] {
            return _CUPS->printFile(
                samplePrinter(),
                {QStringLiteral("My job"), QStringLiteral("text/plain"), documentPath()});
        },
        {{"/printers/Laser",
          IppBytes::request(0x0002)
              .name("requesting-user-name", "root")
              .uri("printer-uri", "ipp://first/printers/Laser")
              .name("job-name", "My job")
              .attribute(0x49, "document-format", "text/plain"),
          Document}});
    row("setPrinterPPD", [] { return _CUPS->setPrinterPPD(LaserUri, documentPath()); },
        {{admin, withUri(0x4003, LaserUri), Document}});
    row("modifyPrinter", [] { return _CUPS->modifyPrinter(samplePrinter()); },
        {{admin, modifyPrinterBytes(LaserUri)}});
    row("modifyPrinter with a driver",
        [] {
            CUPSPrinter printer = samplePrinter();
            printer.ppdName = QStringLiteral("sample/laser.ppd");
            return _CUPS->modifyPrinter(printer);
        },
        {{admin, modifyPrinterBytes(LaserUri)},
         {admin, ppdNameBytes(LaserUri, "")},
         {admin, ppdNameBytes(LaserUri, "sample/laser.ppd")}});
    row("modifyClass", [] { return _CUPS->modifyClass(sampleClass()); },
        {{admin, modifyClassBytes(OfficeUri)}});
    row("getDefaultPrinter",
        [] {
            CUPSPrinter printer;
            _CUPS->getDefaultPrinter(printer);
            return true;
        },
        {{printers, getDefault()}});
    row("getPrinterAttributes",
        [] {
            CUPSPrinter printer;
            _CUPS->getPrinterAttributes(LaserUri, printer);
            return true;
        },
        {{printers, getAttributes(LaserUri)}});
    row("getPrinters",
        [] {
            QMap<QString, CUPSPrinter> out;
            return _CUPS->getPrinters(out, 0, 0, nullptr) == 0;
        },
        {{printers, getPrinters()}, {printers, getDefault()}});
    row("getPrinters of a type",
        [] {
            QMap<QString, CUPSPrinter> out;
            return _CUPS->getPrinters(out, 1, 5, nullptr) == 0;
        },
        {{printers, IppBytes::request(0x4002)
                        .integer(0x23, "printer-type", 1)
                        .integer(0x23, "printer-type-mask", 5)
                        .keywords("requested-attributes", PrinterAttributes)},
         {printers, getDefault()}});
    row("findPrinter",
        [] {
            CUPSPrinter printer;
            return !_CUPS->findPrinter(QStringLiteral("x"), printer, false);
        },
        {{printers, IppBytes::request(0x4002)
                        .name("first-printer-name", "x")
                        .integer(0x21, "limit", 1)
                        .keywords("requested-attributes", PrinterAttributes)},
         {printers, getDefault()}});
    row("getClasses",
        [] {
            QMap<QString, ClassInfo> out;
            return _CUPS->getClasses(out) == 0;
        },
        {{"/classes/", getClasses()}});
    row("findClass",
        [] {
            ClassInfo cls;
            return !_CUPS->findClass(QStringLiteral("x"), cls);
        },
        {{"/classes/", getClasses()}});
    row("getPPDs", [] { return _CUPS->getPPDs("Tarvel").isEmpty(); },
        {{"/", withUri(0x400C, "ipp://localhost/printers/").text("ppd-make", "Tarvel")}});
}

void TestRequests::operation_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QList<Expected>>("expected");
    operationRows();
}

void TestRequests::operation()
{
    QFETCH(Operation, operation);
    QFETCH(QList<Expected>, expected);
    QVERIFY(operation());
    compareRequests(expected);
}

void TestRequests::stopsAtTheFirstFailure_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<int>("failing");
    CUPSPrinter withDriver = samplePrinter();
    withDriver.ppdName = QStringLiteral("laser.ppd");
    const Operation start = [] { return _CUPS->startPrinter(LaserUri); };
    const Operation stop = [] { return _CUPS->stopPrinter(LaserUri); };
    const Operation modify = [=] { return _CUPS->modifyPrinter(withDriver); };
    const auto rows = [](const char *title, const Operation &operation, int requests) {
        for (int failing = 0; failing < requests; ++failing)
            QTest::addRow("%s %d", title, failing) << operation << failing;
    };
    rows("startPrinter", start, 2);
    rows("stopPrinter", stop, 2);
    rows("modifyPrinter", modify, 3);
    rows(
        "setDefaultPrinter", [] { return _CUPS->setDefaultPrinter(QStringLiteral("u")); }, 1);
    rows(
        "cancelJob", [] { return _CUPS->cancelJob("u"); }, 1);
    rows(
        "modifyClass", [] { return _CUPS->modifyClass(sampleClass()); }, 1);
    rows(
        "setPrinterPPD", [] { return _CUPS->setPrinterPPD("u", documentPath()); }, 1);
    rows(
        "printFile",
        [] {
            return _CUPS->printFile(samplePrinter(), {{}, {}, documentPath()});
        },
        1);
}

void TestRequests::stopsAtTheFirstFailure()
{
    QFETCH(Operation, operation);
    QFETCH(int, failing);
    m_server->setHandler([count = 0, failing](const auto &request) mutable {
        return count++ == failing ? FakeIppServer::failure(500) : answerOfSampleServer(request);
    });
    QVERIFY(!operation());
    QCOMPARE(m_server->takeRequests().size(), failing + 1);
    QCOMPARE(_CUPS->lastStatus(), 0);
}

void TestRequests::aRefusalIsNoFailure_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<int>("requests");
    QTest::addRow("startPrinter") << Operation([] { return _CUPS->startPrinter(LaserUri); }) << 2;
    QTest::addRow("stopPrinter") << Operation([] { return _CUPS->stopPrinter(LaserUri); }) << 2;
    QTest::addRow("modifyClass") << Operation([] { return _CUPS->modifyClass(sampleClass()); })
                                 << 1;
}

void TestRequests::aRefusalIsNoFailure()
{
    QFETCH(Operation, operation);
    QFETCH(int, requests);
    m_server->setHandler(
        [](const auto &) { return FakeIppServer::ok(IppBytes::response(0x0403)); });
    QVERIFY(operation());
    QCOMPARE(m_server->takeRequests().size(), requests);
    QCOMPARE(_CUPS->lastStatus(), 0x0403);
}

void TestRequests::withoutSocketUrisNameTheServer()
{
    setSocketThere(false);
    const QByteArray server = "ipp://" + m_server->address() + ':' + QByteArray::number(ippPort());
    CUPSPrinter printer = samplePrinter();
    printer.ppdName = QStringLiteral("laser.ppd");
    QVERIFY(_CUPS->modifyPrinter(printer));
    QVERIFY(_CUPS->modifyClass(sampleClass()));
    const QByteArray printerUri = server + "/printers/Laser";
    compareRequests({{"/admin/", modifyPrinterBytes(printerUri)},
                     {"/admin/", ppdNameBytes(printerUri, "")},
                     {"/admin/", ppdNameBytes(printerUri, "laser.ppd")},
                     {"/admin/", modifyClassBytes(server + "/classes/Office")}});
}

void TestRequests::lastStatus()
{
    CUPSManager manager;
    QCOMPARE(manager.lastStatus(), 0);
    m_server->setHandler(
        [](const auto &) { return FakeIppServer::ok(IppBytes::response(0x0406)); });
    Requests::GetPrinters request(0, 0);
    QVERIFY(manager.execute(request));
    QCOMPARE(manager.lastStatus(), 0x0406);
    QVERIFY(!manager.execute(request)); // it was sent; the old response is still there
    QCOMPARE(manager.lastStatus(), 0x0406);
    m_server->setHandler([](const auto &) { return FakeIppServer::failure(500); });
    Requests::GetPrinters other(0, 0);
    QVERIFY(!manager.execute(other));
    QCOMPARE(manager.lastStatus(), 0);
}

void TestRequests::deletePrinter()
{
    m_server->setHandler(answerOfSampleServer);
    writeFile(userOptionsPath(),
              "Default Laser Duplex=None\nDest Laser/draft q=1\nDest Gone z=1\n");
    QVERIFY(_CUPS->deletePrinter(LaserUri));

    auto requests = m_server->takeRequests();
    QCOMPARE(operationsOf(requests), "4009 10 b 4002 4005 4006 4004");
    // The library's own question, before it writes the saved options.
    requests.removeAt(3);
    compare(requests, {{"/admin/", withUri(0x4009, LaserUri)},
                       {"/admin/", withUri(0x0010, LaserUri)},
                       {"/printers/", getAttributes(LaserUri)},
                       {"/classes/", getClasses()},
                       {"/admin/", IppBytes::request(0x4006)
                                       .uri("printer-uri", OfficeUri)
                                       .text("printer-location", "")
                                       .text("printer-info", "")
                                       .integer(0x23, "printer-state", 3)
                                       .boolean("printer-is-accepting-jobs", 0)
                                       .uri("member-uris", "ipp://localhost/printers/Plain")},
                       {"/admin/", withUri(0x4004, LaserUri)}});
    QCOMPARE(readFile(userOptionsPath()), "Dest Gone z=1\nDest Laser/draft q=1\n");
}

void TestRequests::deletePrinterWithoutNameDeletes()
{
    QVERIFY(_CUPS->deletePrinter("ipp://localhost/printers/unknown"));
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.constLast().message, withUri(0x4004, "ipp://localhost/printers/unknown"));
}

void TestRequests::deletePrinterOfAClassWithOneMember()
{
    m_server->setHandler([](const FakeIppServer::Request &request) {
        if (request.operation() != 0x4005)
            return answerOfSampleServer(request);
        return FakeIppServer::ok(IppBytes::response()
                                     .group(4)
                                     .name("printer-name", "Office")
                                     .uri("member-uris", LaserUri)
                                     .name("member-names", "Laser"));
    });
    QVERIFY(_CUPS->deletePrinter(LaserUri));
    const auto requests = m_server->takeRequests();
    // The list of no members is not sent: the server takes the printer out by itself.
    QCOMPARE(requests.at(requests.size() - 2).operation(), 0x4006);
    QVERIFY(!requests.at(requests.size() - 2).message.contains("member-uris"));
    QCOMPARE(requests.constLast().operation(), 0x4004);
}

void TestRequests::deleteClass()
{
    m_server->setHandler([](const FakeIppServer::Request &request) {
        if (request.operation() != 0x000B)
            return answerOfSampleServer(request);
        return FakeIppServer::ok(IppBytes::response().group(4).name("printer-name", "Office"));
    });
    writeFile(userOptionsPath(), "Dest Laser a=1\nDest Office b=1\n");
    QVERIFY(_CUPS->deleteClass(OfficeUri));
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.constFirst().message, getAttributes(OfficeUri).bytes());
    QCOMPARE(requests.constLast().resource, "/admin/");
    QCOMPARE(requests.constLast().message, withUri(0x4007, OfficeUri).bytes());
    QCOMPARE(readFile(userOptionsPath()), "Dest Laser a=1\n");
}

void TestRequests::deleteClassThatOnlyTheClassListKnows()
{
    m_server->setHandler([](const FakeIppServer::Request &request) {
        if (request.operation() != 0x000B)
            return answerOfSampleServer(request);
        return FakeIppServer::ok(IppBytes::response(0x0406));
    });
    writeFile(userOptionsPath(), "Dest Laser a=1\nDest Office b=1\n");
    QVERIFY(_CUPS->deleteClass(OfficeUri));
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.at(1).message, getClasses().bytes());
    QCOMPARE(requests.constLast().message, withUri(0x4007, OfficeUri).bytes());
    QCOMPARE(readFile(userOptionsPath()), "Dest Laser a=1\n");
}

namespace
{
constexpr char SavedBefore[] = "Dest Gone z=1\nDest Laser a=1\nDest Office b=1\n";
constexpr char WithoutLaser[] = "Dest Gone z=1\nDest Office b=1\n";
constexpr char WithoutOffice[] = "Dest Gone z=1\nDest Laser a=1\n";

constexpr int EveryOperation = 0;

bool deleteLaser()
{
    return _CUPS->deletePrinter(LaserUri);
}

bool deleteOffice()
{
    return _CUPS->deleteClass(OfficeUri);
}

/** The sample server, which knows Office in the list of classes alone. */
FakeIppServer::Answer answerOfOldServer(const FakeIppServer::Request &request)
{
    if (request.operation() == 0x000B && request.message.contains(OfficeUri))
        return FakeIppServer::ok(IppBytes::response(0x0406));
    return answerOfSampleServer(request);
}

/** What is deleted where one operation has a bad answer, what is sent and what stays saved. */
void deletionRow(const char *title, const Operation &operation, int bad, const char *sent,
                 const char *saved)
{
    QTest::addRow("%s", title) << operation << bad << QByteArray(sent) << QByteArray(saved);
}
} // namespace

void TestRequests::deletionColumns()
{
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<int>("badOperation");
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QByteArray>("saved");
}

void TestRequests::deletion(const FakeIppServer::Answer &bad, bool isDone)
{
    QFETCH(Operation, operation);
    QFETCH(int, badOperation);
    QFETCH(QByteArray, sent);
    QFETCH(QByteArray, saved);
    writeFile(userOptionsPath(), SavedBefore);
    m_server->setHandler([bad, badOperation](const FakeIppServer::Request &request) {
        const bool isBad = badOperation == EveryOperation || badOperation == request.operation();
        return isBad ? bad : answerOfOldServer(request);
    });
    QCOMPARE(operation(), isDone);
    QCOMPARE(operationsOf(m_server->takeRequests()), sent);
    QCOMPARE(readFile(userOptionsPath()), saved);
}

void TestRequests::deletionEndsWithoutAnswer_data()
{
    deletionColumns();
    const auto laser = [](const char *title, int bad, const char *sent, const char *saved) {
        deletionRow(title, deleteLaser, bad, sent, saved);
    };
    laser("printer: reject", 0x4009, "4009", SavedBefore);
    laser("printer: pause", 0x0010, "4009 10", SavedBefore);
    laser("printer: attributes", 0x000B, "4009 10 b", SavedBefore);
    laser("printer: classes", 0x4005, "4009 10 b 4002 4005", WithoutLaser);
    laser("printer: class", 0x4006, "4009 10 b 4002 4005 4006", WithoutLaser);
    laser("printer: delete", 0x4004, "4009 10 b 4002 4005 4006 4004", WithoutLaser);
    const auto office = [](const char *title, int bad, const char *sent, const char *saved) {
        deletionRow(title, deleteOffice, bad, sent, saved);
    };
    office("class: attributes", 0x000B, "b", SavedBefore);
    office("class: classes", 0x4005, "b 4005", SavedBefore);
    office("class: delete", 0x4007, "b 4005 4002 4007", WithoutOffice);
}

void TestRequests::deletionEndsWithoutAnswer()
{
    deletion(FakeIppServer::failure(500), false);
    QCOMPARE(_CUPS->lastStatus(), 0);
}

void TestRequests::deletionGoesOnWithoutTheLibrarysAnswer_data()
{
    deletionColumns();
    deletionRow("printer", deleteLaser, 0x4002, "4009 10 b 4002 4005 4006 4004", SavedBefore);
    deletionRow("class", deleteOffice, 0x4002, "b 4005 4002 4007", SavedBefore);
}

void TestRequests::deletionGoesOnWithoutTheLibrarysAnswer()
{
    deletion(FakeIppServer::failure(500), true);
}

void TestRequests::deletionGoesOnAfterARefusal_data()
{
    deletionColumns();
    const auto laser = [](const char *title, int bad, const char *sent, const char *saved) {
        deletionRow(title, deleteLaser, bad, sent, saved);
    };
    constexpr char Whole[] = "4009 10 b 4002 4005 4006 4004";
    laser("printer: reject", 0x4009, Whole, WithoutLaser);
    laser("printer: pause", 0x0010, Whole, WithoutLaser);
    // Nobody tells the name: it is looked for among the classes, and nothing saved is removed.
    laser("printer: attributes", 0x000B, "4009 10 b 4005 4005 4006 4004", SavedBefore);
    laser("printer: classes", 0x4005, "4009 10 b 4002 4005 4004", WithoutLaser);
    laser("printer: class", 0x4006, Whole, WithoutLaser);
    laser("printer: delete", 0x4004, Whole, WithoutLaser);
    laser("printer: all", EveryOperation, "4009 10 b 4005 4005 4004", SavedBefore);
    const auto office = [](const char *title, int bad, const char *sent, const char *saved) {
        deletionRow(title, deleteOffice, bad, sent, saved);
    };
    office("class: attributes", 0x000B, "b 4005 4002 4007", WithoutOffice);
    office("class: classes", 0x4005, "b 4005 4007", SavedBefore);
    office("class: delete", 0x4007, "b 4005 4002 4007", WithoutOffice);
    office("class: all", EveryOperation, "b 4005 4007", SavedBefore);
}

void TestRequests::deletionGoesOnAfterARefusal()
{
    deletion(FakeIppServer::ok(IppBytes::response(0x0403)), true);
}

QTEST_GUILESS_MAIN(TestRequests)
#include "tst_requests.moc"
