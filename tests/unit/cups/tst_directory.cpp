#include "CUPSManager.h"
#include "FakeIppServer.h"
#include "InstallationSettings.h"
#include "IppBytes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <random>

/** The records of printers, classes, drivers and jobs, and the listings that make them. */

namespace
{
constexpr int OperationGroup = 1;
constexpr int JobGroup = 2;
constexpr int PrinterGroup = 4;
constexpr int GetPrintersOperation = 0x4002;
constexpr int GetDefaultOperation = 0x4001;

using PrinterField = std::function<QVariant(const PrinterInfo &)>;
using ClassField = std::function<QVariant(const ClassInfo &)>;

template <typename Record> Record readFrom(const QByteArray &message)
{
    Record record;
    const Cups::IppPtr parsed = parseIpp(message);
    if (!parsed)
        return record;
    for (ipp_attribute_t *attribute = ippFirstAttribute(parsed.get()); attribute;
         attribute = ippNextAttribute(parsed.get()))
        record.readAttribute(attribute);
    return record;
}

IppBytes printerResponse()
{
    return IppBytes::response().group(PrinterGroup);
}

/** The fields of a record as one text, to compare records of which most fields are defaults. */
QString described(const PrinterInfo &info)
{
    QStringList numbers;
    for (const int number : info.orientationsSupported)
        numbers.append(QString::number(number));
    return QStringList{info.name,
                       info.description,
                       info.make,
                       QString::number(info.state),
                       QString::number(info.isDefault),
                       info.location,
                       info.info,
                       info.modelInfo,
                       info.localUri,
                       info.uri,
                       info.uris.join(u','),
                       QString::number(info.colorSupported),
                       info.mediaSupported.join(u','),
                       info.mediaDefault,
                       QString::number(info.printerType),
                       QString::number(info.acceptingJobs),
                       QString::number(info.copiesDefault),
                       QString::number(info.copiesMin),
                       QString::number(info.copiesMax),
                       QString::number(info.pageRangesSupported),
                       QString::number(info.orientationDefault),
                       info.stateMessage,
                       info.reserved.join(u','),
                       numbers.join(u','),
                       info.jobSheetsSupported.join(u','),
                       info.jobSheetsStart,
                       info.jobSheetsEnd}
        .join(u'|');
}

constexpr char Defaults[] = "|||3|0|||||||0|||0|0|0|0|0|0|3||||||";
} // namespace

class TestDirectory : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void printerDefaults();
    void printerField_data();
    void printerField();
    void printerFieldOfOtherGroups_data();
    void printerFieldOfOtherGroups();
    void printerListsAppend();
    void lastUriWins();
    void noValueKeepsTheDefault();
    void wrongTypesAreNoValues_data();
    void wrongTypesAreNoValues();
    void wrongTypesKeepWhatWasRead_data();
    void wrongTypesKeepWhatWasRead();
    void classField_data();
    void classField();
    void driverField_data();
    void driverField();
    void jobField_data();
    void jobField();
    void jobFromTheLibrary_data();
    void jobFromTheLibrary();
    void printerFromItsRecord();

    void splitsRecords();
    void noAnswerLeavesTheOutput();
    void marksTheDefault();
    void replacesEntries();
    void withoutPrintersTheDefaultIsNotAskedFor_data();
    void withoutPrintersTheDefaultIsNotAskedFor();
    void filter_data();
    void filter();
    void findPrinter();
    void findPrinterInTheWholeList_data();
    void findPrinterInTheWholeList();
    void findPrinterForVendor();
    void findPrinterForALoadedVendor_data();
    void findPrinterForALoadedVendor();
    void getClasses();
    void firstRecordOfAnAnswer();
    void getPPDs();
    void getJobs();
    void getJobsWhereOneListIsRefused_data();
    void getJobsWhereOneListIsRefused();
    void getJobsByRequest();
    void defaultPrinterName();
    void cancelJobOfADestination();
    void driversFolder();
    void stateText_data();
    void stateText();
    void brokenMessages();

private:
    void answer(const QByteArray &response);
    /** Answers each operation with its own response, and others with an empty one. */
    void answers(const QMap<int, QByteArray> &responses);

    std::unique_ptr<FakeIppServer> m_server;
};

void TestDirectory::init()
{
    m_server = std::make_unique<FakeIppServer>();
    m_server->use();
    qunsetenv("PRINTER");
    qunsetenv("LPDEST");
}

void TestDirectory::cleanup()
{
    m_server.reset();
}

void TestDirectory::answer(const QByteArray &response)
{
    m_server->setHandler([response](const auto &) { return FakeIppServer::ok(response); });
}

void TestDirectory::answers(const QMap<int, QByteArray> &responses)
{
    m_server->setHandler([responses](const FakeIppServer::Request &request) {
        return FakeIppServer::ok(
            responses.value(request.operation(), IppBytes::response().bytes()));
    });
}

void TestDirectory::printerDefaults()
{
    QCOMPARE(described(PrinterInfo()), QString::fromLatin1(Defaults));
}

void TestDirectory::printerField_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<PrinterField>("field");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *title, const IppBytes &message, const PrinterField &field,
                        const QVariant &value) {
        QTest::addRow("%s", title) << message.bytes() << field << value;
    };
    const auto text = [](const char *value) { return QVariant(QString::fromUtf8(value)); };
    const auto list = [](const char *values) {
        return QVariant(QString::fromLatin1(values).split(u','));
    };

    row(
        "printer-name", printerResponse().name("printer-name", "Laser"),
        [](const auto &info) { return info.name; }, text("Laser"));
    row(
        "printer-name in UTF-8", printerResponse().name("printer-name", "L\xc3\xa4ser"),
        [](const auto &info) { return info.name; }, QStringLiteral("L\u00e4ser"));
    row(
        "printer-name that is no UTF-8", printerResponse().name("printer-name", "L\xe4ser"),
        [](const auto &info) { return info.name; }, QStringLiteral("L\ufffdser"));
    row(
        "printer-name with a language",
        printerResponse().attribute(0x36, "printer-name", QByteArray("\0\2de\0\5Laser", 11)),
        [](const auto &info) { return info.name; }, text("Laser"));
    row(
        "printer-location", printerResponse().text("printer-location", "2nd floor"),
        [](const auto &info) { return info.location; }, text("2nd floor"));
    row(
        "printer-info", printerResponse().text("printer-info", "Big one"),
        [](const auto &info) { return info.description; }, text("Big one"));
    row(
        "printer-make-and-model", printerResponse().text("printer-make-and-model", "T 100"),
        [](const auto &info) { return info.modelInfo; }, text("T 100"));
    row(
        "printer-state", printerResponse().integer(0x23, "printer-state", 5),
        [](const auto &info) { return info.state; }, 5);
    row(
        "printer-state-message", printerResponse().text("printer-state-message", "Jam"),
        [](const auto &info) { return info.stateMessage; }, text("Jam"));
    row(
        "device-uri", printerResponse().uri("device-uri", "usb://x"),
        [](const auto &info) { return info.localUri; }, text("usb://x"));
    row(
        "color-supported", printerResponse().boolean("color-supported", 1),
        [](const auto &info) { return info.colorSupported; }, true);
    row(
        "media-supported", printerResponse().keywords("media-supported", {"a4", "a3"}),
        [](const auto &info) { return info.mediaSupported; }, list("a4,a3"));
    row(
        "media-default", printerResponse().keyword("media-default", "a4"),
        [](const auto &info) { return info.mediaDefault; }, text("a4"));
    row(
        "job-sheets-supported",
        printerResponse().keywords("job-sheets-supported", {"none", "secret"}),
        [](const auto &info) { return info.jobSheetsSupported; }, list("none,secret"));
    row(
        "job-sheets-default: start", printerResponse().keywords("job-sheets-default", {"a", "b"}),
        [](const auto &info) { return info.jobSheetsStart; }, text("a"));
    row(
        "job-sheets-default: end", printerResponse().keywords("job-sheets-default", {"a", "b"}),
        [](const auto &info) { return info.jobSheetsEnd; }, text("b"));
    row(
        "job-sheets-default: one", printerResponse().keyword("job-sheets-default", "a"),
        [](const auto &info) { return QString(info.jobSheetsStart + u'/' + info.jobSheetsEnd); },
        text("a/"));
    row(
        "printer-type", printerResponse().integer(0x23, "printer-type", 0x1004),
        [](const auto &info) { return info.printerType; }, 0x1004);
    row(
        "printer-is-accepting-jobs", printerResponse().boolean("printer-is-accepting-jobs", 1),
        [](const auto &info) { return info.acceptingJobs; }, true);
    row(
        "printer-uri", printerResponse().uri("printer-uri", "ipp://u"),
        [](const auto &info) { return info.uri; }, text("ipp://u"));
    const IppBytes uris = printerResponse().uri("printer-uri-supported", "u1").more(0x45, "u2");
    row(
        "printer-uri-supported: all", uris, [](const auto &info) { return info.uris; },
        list("u1,u2"));
    row(
        "printer-uri-supported: first", uris, [](const auto &info) { return info.uri; },
        text("u1"));
    row(
        "copies-supported: lower", printerResponse().range("copies-supported", 2, 99),
        [](const auto &info) { return info.copiesMin; }, 2);
    row(
        "copies-supported: upper", printerResponse().range("copies-supported", 2, 99),
        [](const auto &info) { return info.copiesMax; }, 99);
    row(
        "copies-default", printerResponse().integer(0x21, "copies-default", 7),
        [](const auto &info) { return info.copiesDefault; }, 7);
    row(
        "page-ranges-supported", printerResponse().boolean("page-ranges-supported", 1),
        [](const auto &info) { return info.pageRangesSupported; }, true);
    row(
        "orientation-requested-supported",
        printerResponse()
            .integer(0x23, "orientation-requested-supported", 3)
            .more(0x23, IppBytes::number32(4)),
        [](const auto &info) { return QVariant::fromValue(info.orientationsSupported); },
        QVariant::fromValue(QList<int>{3, 4}));
    row(
        "orientation-requested-default",
        printerResponse().integer(0x23, "orientation-requested-default", 5),
        [](const auto &info) { return info.orientationDefault; }, 5);
}

void TestDirectory::printerField()
{
    QFETCH(QByteArray, message);
    QFETCH(PrinterField, field);
    QFETCH(QVariant, value);
    const auto info = readFrom<PrinterInfo>(message);
    QCOMPARE(field(info), value);
    QVERIFY(field(PrinterInfo()) != value);
}

void TestDirectory::printerFieldOfOtherGroups_data()
{
    QTest::addColumn<int>("group");
    for (const int group : {OperationGroup, JobGroup, 5, 6, 7})
        QTest::addRow("%d", group) << group;
}

void TestDirectory::printerFieldOfOtherGroups()
{
    QFETCH(int, group);
    const QByteArray message = IppBytes(0)
                                   .group(group)
                                   .name("printer-name", "n")
                                   .integer(0x23, "printer-state", 5)
                                   .uri("member-uris", "u")
                                   .text("ppd-make", "m");
    QCOMPARE(described(readFrom<PrinterInfo>(message)), QString::fromLatin1(Defaults));
    QVERIFY(readFrom<ClassInfo>(message).memberUris.isEmpty());
    QVERIFY(readFrom<DriverInfo>(message).make.isEmpty());
}

void TestDirectory::printerListsAppend()
{
    const auto info = readFrom<PrinterInfo>(printerResponse()
                                                .keyword("media-supported", "a4")
                                                .keyword("media-default", "a4")
                                                .keyword("media-supported", "a3"));
    QCOMPARE(info.mediaSupported, QStringList({QStringLiteral("a4"), QStringLiteral("a3")}));
}

void TestDirectory::lastUriWins()
{
    const auto info = readFrom<PrinterInfo>(
        printerResponse().uri("printer-uri-supported", "u1").uri("printer-uri", "u2"));
    QCOMPARE(info.uri, QStringLiteral("u2"));
    QCOMPARE(info.uris, QStringList(QStringLiteral("u1")));
}

void TestDirectory::noValueKeepsTheDefault()
{
    constexpr int NoValue = 0x13;
    const auto info =
        readFrom<PrinterInfo>(printerResponse()
                                  .attribute(NoValue, "orientation-requested-default", "")
                                  .attribute(NoValue, "printer-state", "")
                                  .attribute(NoValue, "media-default", ""));
    QCOMPARE(info.orientationDefault, 3);
    QCOMPARE(info.state, 3);
    QVERIFY(info.mediaDefault.isEmpty());
}

void TestDirectory::wrongTypesAreNoValues_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : PrinterInfo::attributeNames())
        QTest::addRow("%s", name) << QByteArray(name);
}

void TestDirectory::wrongTypesAreNoValues()
{
    QFETCH(QByteArray, name);
    // None of these types belongs to any of the attributes.
    for (const int tag : {0x10, 0x12, 0x13, 0x16}) {
        const auto info = readFrom<PrinterInfo>(printerResponse().attribute(tag, name, ""));
        QCOMPARE(described(info), QString::fromLatin1(Defaults));
    }
    const auto info = readFrom<PrinterInfo>(
        printerResponse().attribute(0x32, name, IppBytes::number32(1).repeated(2) + '\3'));
    QCOMPARE(described(info), QString::fromLatin1(Defaults));
}

namespace
{
/** A response in which every attribute that is read has a value that is no default. */
IppBytes wholePrinter()
{
    IppBytes bytes = printerResponse();
    for (const char *name :
         {"printer-name", "printer-location", "printer-info", "printer-make-and-model",
          "printer-state-message", "device-uri", "media-supported", "media-default",
          "job-sheets-supported", "printer-uri-supported", "printer-uri"})
        bytes.text(name, name);
    bytes.keywords("job-sheets-default", {"start", "end"});
    for (const char *name : {"printer-state", "printer-type", "copies-default",
                             "orientation-requested-supported", "orientation-requested-default"})
        bytes.integer(0x23, name, 5);
    for (const char *name :
         {"color-supported", "printer-is-accepting-jobs", "page-ranges-supported"})
        bytes.boolean(name, 1);
    return bytes.range("copies-supported", 2, 99);
}

/** A value of a type that none of the attributes has. */
QByteArray resolution()
{
    return IppBytes::number32(1).repeated(2) + '\3';
}
} // namespace

void TestDirectory::wrongTypesKeepWhatWasRead_data()
{
    QTest::addColumn<QByteArray>("name");
    const QStringList known = described(readFrom<PrinterInfo>(wholePrinter())).split(u'|');
    const QStringList defaults = QString::fromLatin1(Defaults).split(u'|');
    qsizetype same = 0;
    for (qsizetype i = 0; i < known.size(); ++i)
        same += known.at(i) == defaults.at(i);
    // All but the four fields that no attribute fills.
    QCOMPARE(same, 4);
    for (const char *name : PrinterInfo::attributeNames())
        QTest::addRow("%s", name) << QByteArray(name);
}

void TestDirectory::wrongTypesKeepWhatWasRead()
{
    QFETCH(QByteArray, name);
    const QString known = described(readFrom<PrinterInfo>(wholePrinter()));
    for (const int tag : {0x10, 0x12, 0x13, 0x16})
        QCOMPARE(described(readFrom<PrinterInfo>(wholePrinter().attribute(tag, name, ""))), known);
    QCOMPARE(described(readFrom<PrinterInfo>(wholePrinter().attribute(0x32, name, resolution()))),
             known);
}

void TestDirectory::classField_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<ClassField>("field");
    QTest::addColumn<QVariant>("value");
    const QVariant two = QStringList({QStringLiteral("one"), QStringLiteral("two")});
    QTest::addRow("member-uris")
        << printerResponse().uri("member-uris", "one").more(0x45, "two").bytes()
        << ClassField([](const auto &cls) { return cls.memberUris; }) << two;
    QTest::addRow("member-names")
        << printerResponse().name("member-names", "one").more(0x42, "two").bytes()
        << ClassField([](const auto &cls) { return cls.memberNames; }) << two;
    QTest::addRow("read twice")
        << printerResponse().name("member-names", "one").name("member-names", "two").bytes()
        << ClassField([](const auto &cls) { return cls.memberNames; }) << two;
    QTest::addRow("of a printer") << printerResponse().name("printer-name", "Office").bytes()
                                  << ClassField([](const auto &cls) { return cls.name; })
                                  << QVariant(QStringLiteral("Office"));
}

void TestDirectory::classField()
{
    QFETCH(QByteArray, message);
    QFETCH(ClassField, field);
    QTEST(field(readFrom<ClassInfo>(message)), "value");
}

void TestDirectory::driverField_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QString>("record");
    QTest::addRow("ppd-name") << printerResponse().name("ppd-name", "x").bytes()
                              << QStringLiteral("||x|");
    QTest::addRow("ppd-make") << printerResponse().text("ppd-make", "x").bytes()
                              << QStringLiteral("x|||");
    QTest::addRow("ppd-make-and-model")
        << printerResponse().text("ppd-make-and-model", "x").bytes() << QStringLiteral("|x||");
    QTest::addRow("ppd-natural-language")
        << printerResponse().attribute(0x48, "ppd-natural-language", "x").bytes()
        << QStringLiteral("|||x");
    QTest::addRow("another") << printerResponse().text("ppd-product", "x").bytes()
                             << QStringLiteral("|||");
}

void TestDirectory::driverField()
{
    QFETCH(QByteArray, message);
    const auto driver = readFrom<DriverInfo>(message);
    const QStringList fields = {driver.make, driver.model, driver.driverFile, driver.language};
    QTEST(fields.join(u'|'), "record");
}

namespace
{
QString described(const JobInfo &job)
{
    return QStringLiteral("%1|%2|%3|%4|%5|%6|%7|%8")
        .arg(job.jobId)
        .arg(job.name, job.printer, job.user, job.uri)
        .arg(job.kOctets)
        .arg(job.timeAtCreation)
        .arg(job.state);
}
} // namespace

void TestDirectory::jobField_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QString>("record");
    const auto row = [](const char *title, const IppBytes &message, const char *record) {
        QTest::addRow("%s", title) << message.bytes() << QString::fromLatin1(record);
    };
    const IppBytes job = IppBytes::response().group(JobGroup);
    row("nothing", job, "0|||||0|0|0");
    row("job-id", IppBytes(job).integer(0x21, "job-id", 9), "9|||||0|0|0");
    row("job-name", IppBytes(job).name("job-name", "x"), "0|x||||0|0|0");
    row("job-printer-uri", IppBytes(job).uri("job-printer-uri", "x"), "0||x|||0|0|0");
    row("job-originating-user-name", IppBytes(job).name("job-originating-user-name", "x"),
        "0|||x||0|0|0");
    row("job-uri", IppBytes(job).uri("job-uri", "x"), "0||||x|0|0|0");
    row("job-k-octets", IppBytes(job).integer(0x21, "job-k-octets", 9), "0|||||9|0|0");
    row("time-at-creation", IppBytes(job).integer(0x21, "time-at-creation", 9), "0|||||0|9|0");
    row("job-state", IppBytes(job).integer(0x23, "job-state", 9), "0|||||0|0|9");
    row("in any group", IppBytes::response().integer(0x21, "job-id", 9), "9|||||0|0|0");
}

void TestDirectory::jobField()
{
    QFETCH(QByteArray, message);
    QTEST(described(readFrom<JobInfo>(message)), "record");
}

void TestDirectory::jobFromTheLibrary_data()
{
    QTest::addColumn<QByteArray>("destination");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *title, const char *destination, const char *name) {
        QTest::addRow("%s", title) << QByteArray(destination) << QString::fromUtf8(name);
    };
    row("plain", "Laser", "Laser");
    row("letter", "B%C3%BCro", "B\u00fcro");
    row("small digits", "B%c3%bcro", "B\u00fcro");
    row("blank", "a%20b", "a b");
    row("sign", "100%25", "100%");
    row("encoded once", "a%2520b", "a%20b");
    row("unfinished", "a%2", "a%2");
}

void TestDirectory::jobFromTheLibrary()
{
    QFETCH(QByteArray, destination);
    QFETCH(QString, name);
    QByteArray title = "My job";
    QByteArray user = "me";
    cups_job_t job = {};
    job.id = 5;
    job.dest = destination.data();
    job.title = title.data();
    job.user = user.data();
    job.size = 12;
    job.creation_time = 1000;
    job.completed_time = 2000;
    job.state = IPP_JSTATE_HELD;
    const JobInfo info(job);
    QCOMPARE(info.printer, name);
    job.dest = nullptr;
    QCOMPARE(described(JobInfo(job)), QStringLiteral("5|My job||me||12|1000|4"));
}

void TestDirectory::printerFromItsRecord()
{
    PrinterInfo info;
    info.name = QStringLiteral("n");
    info.make = QStringLiteral("make");
    info.modelInfo = QStringLiteral("model");
    CUPSPrinter printer(info);
    QCOMPARE(described(printer.attributes), described(info));
    QCOMPARE(printer.driver.make, QStringLiteral("make"));
    QCOMPARE(printer.driver.model, QStringLiteral("model"));
    QVERIFY(printer.driver.driverFile.isEmpty() && printer.driver.language.isEmpty() &&
            printer.ppdName.isEmpty() && printer.reserved1.isEmpty() &&
            printer.reserved2.isEmpty() && printer.reserved3.isEmpty());

    printer.ppdName = QStringLiteral("p");
    printer.reserved1 = QStringLiteral("1");
    printer.reserved2 = QStringLiteral("2");
    printer.reserved3 = QStringLiteral("3");
    printer.driver.language = QStringLiteral("en");
    const CUPSPrinter copy = printer;
    QCOMPARE(copy.ppdName + copy.reserved1 + copy.reserved2 + copy.reserved3 +
                 copy.driver.language + copy.attributes.name,
             QStringLiteral("p123enn"));
    const CUPSPrinter fresh;
    QCOMPARE(described(fresh.attributes), QString::fromLatin1(Defaults));
}

void TestDirectory::splitsRecords()
{
    answers({{GetPrintersOperation, printerResponse()
                                        .text("printer-info", "has no name")
                                        .integer(0x23, "printer-state", 5)
                                        .group(PrinterGroup)
                                        .name("printer-name", "A")
                                        .text("printer-info", "first")
                                        .group(PrinterGroup)
                                        .name("printer-name", "B")
                                        .group(PrinterGroup)
                                        .name("printer-name", "")
                                        .group(PrinterGroup)
                                        .name("printer-name", "C")}});
    QMap<QString, CUPSPrinter> printers;
    QCOMPARE(_CUPS->getPrinters(printers, 0, 0, nullptr), 3);
    QCOMPARE(printers.keys(),
             QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    const PrinterInfo first = printers.value(QStringLiteral("A")).attributes;
    QCOMPARE(first.description, QStringLiteral("first"));
    QCOMPARE(first.state, 3); // that of the record without a name is gone with it
    QCOMPARE(printers.value(QStringLiteral("B")).attributes.description, QString());
}

void TestDirectory::noAnswerLeavesTheOutput()
{
    m_server->setHandler([](const auto &) { return FakeIppServer::failure(500); });
    QMap<QString, CUPSPrinter> printers = {{QStringLiteral("old"), CUPSPrinter()}};
    QMap<QString, ClassInfo> classes = {{QStringLiteral("old"), ClassInfo()}};
    QMap<int, JobInfo> jobs = {{7, JobInfo()}};
    CUPSPrinter printer;
    printer.attributes.name = QStringLiteral("old");
    ClassInfo cls;
    cls.name = QStringLiteral("old");
    QCOMPARE(_CUPS->getPrinters(printers, 0, 0, nullptr), 0);
    QCOMPARE(_CUPS->getClasses(classes), 0);
    QCOMPARE(_CUPS->getJobs(jobs, nullptr, false), 0);
    QCOMPARE(_CUPS->getJobsWithUris(jobs), 0);
    QVERIFY(_CUPS->getPPDs(nullptr).isEmpty());
    QVERIFY(!_CUPS->getDefaultPrinter(printer));
    QVERIFY(!_CUPS->getPrinterAttributes("u", printer));
    QVERIFY(!_CUPS->findPrinter(QStringLiteral("old"), printer, false));
    QVERIFY(!_CUPS->findClass(QStringLiteral("old"), cls));
    QCOMPARE(printers.keys(), QStringList(QStringLiteral("old")));
    QCOMPARE(classes.keys(), QStringList(QStringLiteral("old")));
    QCOMPARE(jobs.keys(), QList<int>{7});
    QCOMPARE(printer.attributes.name + cls.name, QStringLiteral("oldold"));
}

void TestDirectory::marksTheDefault()
{
    answers({{GetPrintersOperation, printerResponse()
                                        .name("printer-name", "Laser")
                                        .group(PrinterGroup)
                                        .name("printer-name", "laser")},
             {GetDefaultOperation, printerResponse().name("printer-name", "laser")}});
    QMap<QString, CUPSPrinter> printers;
    QCOMPARE(_CUPS->getPrinters(printers, 0, 0, nullptr), 2);
    QVERIFY(!printers.value(QStringLiteral("Laser")).attributes.isDefault);
    QVERIFY(printers.value(QStringLiteral("laser")).attributes.isDefault);
}

void TestDirectory::replacesEntries()
{
    answers({{GetPrintersOperation, printerResponse().name("printer-name", "A")}});
    CUPSPrinter old;
    old.attributes.location = QStringLiteral("old");
    old.ppdName = QStringLiteral("old");
    QMap<QString, CUPSPrinter> printers = {{QStringLiteral("A"), old}};
    QCOMPARE(_CUPS->getPrinters(printers, 0, 0, nullptr), 0);
    QVERIFY(printers.value(QStringLiteral("A")).attributes.location.isEmpty());
    QVERIFY(printers.value(QStringLiteral("A")).ppdName.isEmpty());
}

void TestDirectory::withoutPrintersTheDefaultIsNotAskedFor_data()
{
    QTest::addColumn<QByteArray>("response");
    QTest::addRow("no response") << QByteArray();
    QTest::addRow("no attributes") << IppBytes(0).bytes();
}

void TestDirectory::withoutPrintersTheDefaultIsNotAskedFor()
{
    QFETCH(QByteArray, response);
    m_server->setHandler([response](const auto &) {
        return response.isEmpty() ? FakeIppServer::failure(500) : FakeIppServer::ok(response);
    });
    QMap<QString, CUPSPrinter> printers;
    QCOMPARE(_CUPS->getPrinters(printers, 0, 0, nullptr), 0);
    QCOMPARE(m_server->takeRequests().size(), 1);
}

void TestDirectory::filter_data()
{
    QTest::addColumn<QByteArray>("filter");
    QTest::addColumn<QString>("names");
    QTest::addRow("none") << QByteArray() << QStringLiteral("A B C");
    QTest::addRow("empty") << QByteArray("") << QStringLiteral("A B C");
    QTest::addRow("exact") << QByteArray("Tarvel 100") << QStringLiteral("A");
    QTest::addRow("part") << QByteArray("vel") << QStringLiteral("A B");
    QTest::addRow("upper case") << QByteArray("TARVEL") << QStringLiteral("A B");
    QTest::addRow("nobody's") << QByteArray("Other") << QString();
}

void TestDirectory::filter()
{
    QFETCH(QByteArray, filter);
    answers({{GetPrintersOperation, printerResponse()
                                        .name("printer-name", "A")
                                        .text("printer-make-and-model", "Tarvel 100")
                                        .group(PrinterGroup)
                                        .name("printer-name", "B")
                                        .text("printer-make-and-model", "tarvel 200")
                                        .group(PrinterGroup)
                                        .name("printer-name", "C")}});
    QMap<QString, CUPSPrinter> printers;
    const int count =
        _CUPS->getPrinters(printers, 0, 0, filter.isNull() ? nullptr : filter.constData());
    QCOMPARE(count, printers.size());
    QTEST(QStringList(printers.keys()).join(u' '), "names");
}

void TestDirectory::findPrinter()
{
    answers({{GetPrintersOperation,
              printerResponse().name("printer-name", "Laser").text("printer-info", "x")}});
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(QStringLiteral("Laser"), printer, false));
    QCOMPARE(printer.attributes.description, QStringLiteral("x"));
    CUPSPrinter other;
    QVERIFY(!_CUPS->findPrinter(QStringLiteral("laser"), other, false));
    QVERIFY(!_CUPS->findPrinter(QStringLiteral("Lase"), other, false));
    QVERIFY(!_CUPS->findPrinter(QString(), other, false));
    QVERIFY(other.attributes.name.isEmpty());
}

void TestDirectory::findPrinterInTheWholeList_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("description");
    QTest::newRow("first") << "Archive"
                           << "first";
    QTest::newRow("in the middle") << "Laser"
                                   << "second";
    QTest::newRow("class") << "Office"
                           << "third";
    QTest::newRow("last") << "Photo"
                          << "fourth";
    QTest::newRow("in other case") << "LASER" << QString();
    QTest::newRow("unknown, in front") << "Aaa" << QString();
    QTest::newRow("unknown, behind") << "Zzz" << QString();
    QTest::newRow("part of a name") << "Las" << QString();
}

/** A server may know neither where the list is to begin nor where to end. */
void TestDirectory::findPrinterInTheWholeList()
{
    QFETCH(QString, name);
    IppBytes all = printerResponse().name("printer-name", "Archive").text("printer-info", "first");
    all.group(PrinterGroup).name("printer-name", "Laser").text("printer-info", "second");
    all.group(PrinterGroup)
        .name("printer-name", "Office")
        .integer(0x23, "printer-type", CUPS_PRINTER_CLASS)
        .text("printer-info", "third");
    all.group(PrinterGroup).name("printer-name", "Photo").text("printer-info", "fourth");
    answers({{GetPrintersOperation, all}});
    CUPSPrinter printer;
    QFETCH(QString, description);
    QCOMPARE(_CUPS->findPrinter(name, printer, false), !description.isEmpty());
    QCOMPARE(printer.attributes.description, description);
}

void TestDirectory::findPrinterForALoadedVendor_data()
{
    QTest::addColumn<QByteArray>("model");
    QTest::addColumn<bool>("found");
    QTest::newRow("the vendor's") << QByteArray("Tarvel CL 4200") << true;
    QTest::newRow("another's") << QByteArray("Another 100") << false;
    QTest::newRow("no model") << QByteArray() << false;
}

void TestDirectory::findPrinterForALoadedVendor()
{
    const QTemporaryDir tree;
    const QString program = tree.filePath(QStringLiteral("bin/vesk"));
    QFile settings(tree.filePath(QStringLiteral("OEM.ini")));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    QVERIFY(settings.write("VENDOR=Tarvel\n") > 0);
    settings.close();
    QCOMPARE(InstallationSettings::load(QFile::encodeName(program).constData()), 0);

    QFETCH(QByteArray, model);
    answers(
        {{GetPrintersOperation,
          printerResponse().name("printer-name", "Laser").text("printer-make-and-model", model)}});
    CUPSPrinter printer;
    const bool isFound = _CUPS->findPrinter(QStringLiteral("Laser"), printer, true);
    CUPSPrinter any;
    const bool isThere = _CUPS->findPrinter(QStringLiteral("Laser"), any, false);
    // The other tests know no vendor.
    QTemporaryDir empty;
    const QString elsewhere = empty.filePath(QStringLiteral("bin/vesk"));
    QCOMPARE(InstallationSettings::load(QFile::encodeName(elsewhere).constData()), -1);
    QVERIFY(isThere);
    QTEST(isFound, "found");
}

void TestDirectory::findPrinterForVendor()
{
    // No settings file is loaded: the vendor's name is empty, and every model contains it.
    answers({{GetPrintersOperation, printerResponse().name("printer-name", "Laser")}});
    CUPSPrinter printer;
    QVERIFY(_CUPS->findPrinter(QStringLiteral("Laser"), printer, true));
}

void TestDirectory::getClasses()
{
    answer(printerResponse()
               .name("printer-name", "Office")
               .name("member-names", "A")
               .more(0x42, "B")
               .group(PrinterGroup)
               .name("member-names", "lost")
               .group(PrinterGroup)
               .name("printer-name", "All"));
    QMap<QString, ClassInfo> classes = {{QStringLiteral("All"), ClassInfo()}};
    QCOMPARE(_CUPS->getClasses(classes), 1);
    QCOMPARE(classes.value(QStringLiteral("Office")).memberNames,
             QStringList({QStringLiteral("A"), QStringLiteral("B")}));
    QVERIFY(classes.value(QStringLiteral("All")).memberNames.isEmpty());
    QCOMPARE(classes.value(QStringLiteral("All")).name, QStringLiteral("All"));
    ClassInfo cls;
    QVERIFY(_CUPS->findClass(QStringLiteral("Office"), cls));
    QCOMPARE(cls.name, QStringLiteral("Office"));
    QVERIFY(!_CUPS->findClass(QStringLiteral("office"), cls));
}

void TestDirectory::firstRecordOfAnAnswer()
{
    answer(printerResponse()
               .text("printer-info", "has no name")
               .group(PrinterGroup)
               .name("printer-name", "first")
               .text("printer-make-and-model", "model")
               .group(PrinterGroup)
               .name("printer-name", "second"));
    CUPSPrinter printer;
    QVERIFY(_CUPS->getDefaultPrinter(printer));
    QCOMPARE(printer.attributes.name, QStringLiteral("first"));
    QCOMPARE(printer.driver.model, QStringLiteral("model"));
    CUPSPrinter other;
    QVERIFY(_CUPS->getPrinterAttributes("u", other));
    QCOMPARE(other.attributes.name, QStringLiteral("first"));
    // Without a named record, or without any attribute, there is nothing to take.
    for (const QByteArray &response :
         {printerResponse().text("printer-info", "x").bytes(), IppBytes(0).bytes()}) {
        answer(response);
        QVERIFY(!_CUPS->getDefaultPrinter(printer));
        QVERIFY(!_CUPS->getPrinterAttributes("u", printer));
        QCOMPARE(printer.attributes.name, QStringLiteral("first"));
        QMap<QString, CUPSPrinter> printers;
        QCOMPARE(_CUPS->getPrinters(printers, 0, 0, nullptr), 0);
    }
}

void TestDirectory::getPPDs()
{
    answer(printerResponse()
               .name("ppd-name", "a.ppd")
               .text("ppd-make-and-model", "A")
               .group(PrinterGroup)
               .text("ppd-make", "has no name")
               .group(PrinterGroup)
               .name("ppd-name", "b.ppd"));
    const QList<DriverInfo> drivers = _CUPS->getPPDs(nullptr);
    QCOMPARE(drivers.size(), 2);
    QCOMPARE(drivers.at(0).model, QStringLiteral("A"));
    QCOMPARE(drivers.at(1).driverFile, QStringLiteral("b.ppd"));
    QVERIFY(drivers.at(1).make.isEmpty());
}

namespace
{
IppBytes jobList()
{
    return IppBytes::response();
}

IppBytes withJob(IppBytes list, int id, int state)
{
    return list.group(JobGroup)
        .integer(0x21, "job-id", id)
        .uri("job-printer-uri", "ipp://localhost/printers/Laser")
        .uri("job-uri", "ipp://localhost/jobs/" + QByteArray::number(id))
        .integer(0x23, "job-state", state);
}

/** Answers the two questions of the library for jobs. */
FakeIppServer::Handler jobLists(const QByteArray &active, const QByteArray &completed)
{
    return [=](const FakeIppServer::Request &request) {
        const bool isCompleted = request.message.contains(IppBytes::number16(10) + "which-jobs" +
                                                          IppBytes::number16(9) + "completed");
        return FakeIppServer::ok(isCompleted ? completed : active);
    };
}
} // namespace

void TestDirectory::getJobs()
{
    // The active list has the jobs 1 and 2, the completed one the jobs 2 and 3.
    m_server->setHandler(
        jobLists(withJob(withJob(jobList(), 1, 3), 2, 5), withJob(withJob(jobList(), 2, 9), 3, 9)));
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobs(jobs, "Laser", true), 2);
    QCOMPARE(m_server->takeRequests().size(), 1);
    QCOMPARE(jobs.value(2).state, 5);
    QCOMPARE(jobs.value(1).printer, QStringLiteral("Laser"));
    QVERIFY(jobs.value(1).uri.isEmpty());
    QCOMPARE(_CUPS->getJobs(jobs, "Laser", false), 1);
    QCOMPARE(m_server->takeRequests().size(), 2);
    QCOMPARE(jobs.keys(), QList<int>({1, 2, 3}));
    QCOMPARE(jobs.value(2).state, 9);
}

void TestDirectory::getJobsWhereOneListIsRefused_data()
{
    QTest::addColumn<QByteArray>("active");
    QTest::addColumn<QByteArray>("completed");
    QTest::addColumn<QList<int>>("ids");
    const QByteArray refusal = IppBytes::response(0x0501);
    QTest::addRow("active") << refusal << withJob(jobList(), 3, 9).bytes() << QList<int>{3};
    QTest::addRow("completed") << withJob(jobList(), 1, 3).bytes() << refusal << QList<int>{1};
    QTest::addRow("both") << refusal << refusal << QList<int>();
}

void TestDirectory::getJobsWhereOneListIsRefused()
{
    QFETCH(QByteArray, active);
    QFETCH(QByteArray, completed);
    QFETCH(QList<int>, ids);
    m_server->setHandler(jobLists(active, completed));
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobs(jobs, "Laser", false), ids.size());
    QCOMPARE(jobs.keys(), ids);
}

void TestDirectory::getJobsByRequest()
{
    answer(IppBytes::response()
               .group(JobGroup)
               .integer(0x21, "job-id", 4)
               .uri("job-uri", "ipp://localhost/jobs/4")
               .name("job-name", "My job")
               .group(JobGroup)
               .name("job-name", "has no id")
               .group(JobGroup)
               .integer(0x21, "job-id", 5));
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobsWithUris(jobs), 2);
    QCOMPARE(jobs.keys(), QList<int>({4, 5}));
    QCOMPARE(jobs.value(4).uri, QStringLiteral("ipp://localhost/jobs/4"));
    QCOMPARE(jobs.value(4).name, QStringLiteral("My job"));
}

void TestDirectory::defaultPrinterName()
{
    answers({{GetDefaultOperation, printerResponse().name("printer-name", "Laser")}});
    QCOMPARE(_CUPS->defaultPrinterName(), QStringLiteral("Laser"));
    qputenv("PRINTER", "Photo");
    QCOMPARE(_CUPS->defaultPrinterName(), QStringLiteral("Photo"));
    qputenv("LPDEST", "Plain/draft");
    QCOMPARE(_CUPS->defaultPrinterName(), QStringLiteral("Plain/draft"));
    m_server.reset(); // nor does the environment need a server
    QCOMPARE(_CUPS->defaultPrinterName(), QStringLiteral("Plain/draft"));
    qunsetenv("LPDEST");
    qunsetenv("PRINTER");
    QCOMPARE(_CUPS->defaultPrinterName(), QString());
}

void TestDirectory::cancelJobOfADestination()
{
    QVERIFY(_CUPS->cancelJob("Laser", 5));
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.constFirst().operation(), 0x0008);
    QVERIFY(requests.constFirst().message.contains("job-id" + IppBytes::number16(4) +
                                                   IppBytes::number32(5)));
    answer(IppBytes::response(0x0406));
    QVERIFY(!_CUPS->cancelJob("Laser", 5));
    m_server.reset();
    QVERIFY(!_CUPS->cancelJob("Laser", 5));
}

void TestDirectory::driversFolder()
{
    QCOMPARE(CUPSManager::m_DriversDir, QStringLiteral("/usr/share/cups/model/"));
}

void TestDirectory::stateText_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("accepting");
    QTest::addColumn<QString>("text");
    const auto row = [](int state, bool accepting, const char *text) {
        QTest::addRow("%d %d", state, accepting) << state << accepting << QString::fromLatin1(text);
    };
    row(3, true, "idle, accepting jobs");
    row(3, false, "idle, rejecting jobs");
    row(4, true, "processing, accepting jobs");
    row(4, false, "processing, rejecting jobs");
    row(5, true, "stopped, accepting jobs");
    row(5, false, "stopped, rejecting jobs");
    row(6, true, "unknown, accepting jobs");
    row(2, false, "unknown, rejecting jobs");
    row(-1, true, "unknown, accepting jobs");
}

void TestDirectory::stateText()
{
    QFETCH(int, state);
    QFETCH(bool, accepting);
    QTEST(CUPSManager::stateText(state, accepting), "text");
}

void TestDirectory::brokenMessages()
{
    const QByteArray whole = printerResponse()
                                 .name("printer-name", "Laser")
                                 .attribute(0x30, "printer-info", QByteArray("o\0ct", 4))
                                 .keywords("media-supported", {"a4", "a3"})
                                 .keywords("job-sheets-default", {"none", "none"})
                                 .range("copies-supported", 1, 99)
                                 .attribute(0x36, "printer-location", QByteArray("\0\2de\0\1x", 7))
                                 .integer(0x23, "printer-state", 3)
                                 .boolean("color-supported", 1)
                                 .uri("printer-uri-supported", "u")
                                 .attribute(0x34, "media-col", "")
                                 .attribute(0x37, "", "")
                                 .attribute(0x31, "when", QByteArray(11, '\1'));
    struct Read {
        QString printer;
        QString others;
        QByteArray dump;
        bool operator==(const Read &) const = default;
    };
    const auto readAll = [](const QByteArray &bytes) {
        const Cups::IppPtr message = parseBrokenIpp(bytes);
        PrinterInfo printer;
        ClassInfo cls;
        DriverInfo driver;
        JobInfo job;
        for (ipp_attribute_t *attribute = ippFirstAttribute(message.get()); attribute;
             attribute = ippNextAttribute(message.get())) {
            printer.readAttribute(attribute);
            cls.readAttribute(attribute);
            driver.readAttribute(attribute);
            job.readAttribute(attribute);
        }
        return Read{described(printer),
                    QStringList{described(cls), described(job), driver.driverFile}.join(u'|'),
                    IPPRequest::dumpAttributes(message.get())};
    };
    const QStringList defaults = QString::fromLatin1(Defaults).split(u'|');
    const QStringList complete = readAll(whole + '\3').printer.split(u'|');
    QVERIFY(complete != defaults);
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        // What is there so far is what is there at the end, or nothing.
        const QStringList found = readAll(whole.left(size)).printer.split(u'|');
        QCOMPARE(found.size(), complete.size());
        for (qsizetype field = 0; field < found.size(); ++field)
            QVERIFY2(found.at(field) == defaults.at(field) ||
                         complete.at(field).startsWith(found.at(field)),
                     qPrintable(QStringLiteral("%1: %2").arg(size).arg(found.at(field))));
    }
    std::mt19937 random(42);
    for (int round = 0; round < 2000; ++round) {
        QByteArray changed = whole;
        for (int change = 0; change < 3; ++change)
            changed[static_cast<qsizetype>(random() % static_cast<unsigned>(changed.size()))] =
                static_cast<char>(random());
        // Nothing but the bytes decides what is read.
        QVERIFY2(readAll(changed) == readAll(changed), changed.toHex().constData());
    }
}

QTEST_GUILESS_MAIN(TestDirectory)
#include "tst_directory.moc"
