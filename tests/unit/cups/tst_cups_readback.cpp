#include "CUPSManager.h"
#include "IppTool.h"
#include "PrintCommands.h"
#include "PrinterRecords.h"
#include "SavedOptionsFiles.h"

#include <QDir>
#include <QSet>
#include <QTest>

/**
 * Every operation of the facade against a real server. What it has done, and what it lists, is
 * compared with what the system's own commands say of the server.
 */

using IppTool::Record;

using namespace PrintCommands;
using namespace PrinterRecords;
using namespace SavedOptionsFiles;

namespace
{
QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QString printerUri(const char *name)
{
    return QStringLiteral("ipp://localhost/printers/") + text(name);
}

QString classUri(const char *name)
{
    return QStringLiteral("ipp://localhost/classes/") + text(name);
}

/** What ipptool says of a printer or class. */
Record told(const QString &uri)
{
    return IppTool::printer(uri).records.constFirst();
}

QString toldState(const QString &uri)
{
    const Record record = told(uri);
    return record.value(QStringLiteral("printer-state")) + u' ' +
           record.value(QStringLiteral("printer-is-accepting-jobs"));
}

/** The values of one attribute in all records that have it. */
QStringList column(const IppTool::Reply &reply, const char *attribute)
{
    QStringList values;
    for (const Record &record : reply.records) {
        if (record.contains(text(attribute)))
            values.append(record.value(text(attribute)));
    }
    return values;
}

/** What ipptool says, of the attributes that `wanted` has. */
Record toldOf(const Record &wanted, const Record &all)
{
    Record found;
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it)
        found.insert(it.key(), all.value(it.key()));
    return found;
}

QMap<QString, CUPSPrinter> printers(int type = 0, int mask = 0)
{
    QMap<QString, CUPSPrinter> all;
    _CUPS->getPrinters(all, type, mask, nullptr);
    return all;
}

CUPSPrinter printerNamed(const char *name)
{
    return printers().value(text(name));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/** The numbers of the jobs that ipptool lists. */
QStringList toldJobs(const char *which)
{
    return column(IppTool::ask("Get-Jobs", {text("uri printer-uri ipp://localhost/"),
                                            text("keyword which-jobs ") + text(which),
                                            text("keyword requested-attributes job-id")}),
                  "job-id");
}

QStringList jobNumbers(const QMap<int, JobInfo> &jobs)
{
    QStringList numbers;
    for (const int number : jobs.keys())
        numbers.append(QString::number(number));
    return numbers;
}
} // namespace

class TestCupsReadback : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void attributesByUri_data();
    void attributesByUri();
    void attributesOfNobody();
    void printersByType_data();
    void printersByType();
    void classes();
    void stopsAndStarts_data();
    void stopsAndStarts();
    void setsTheDefault();
    void cancels_data();
    void cancels();
    void cancelsNothing();
    void printsAFile();
    void printsNoMissingFile();
    void setsAPpd();
    void refusesWhatIsNoPpd();
    void modifiesAPrinter();
    void makesAPrinter();
    void modifiesAPrinterWithADriver();
    void modifiesAClass();
    void deletesAPrinter();
    void deletesAClass();
    void jobs();
    void jobsWithUris();
    void driversByMake();

private:
    /** A queue that goes at the end of the test. */
    void makeQueue(const char *name);
    QByteArray m_saved;
    QStringList m_made;
};

void TestCupsReadback::initTestCase()
{
    QVERIFY2(lpstat("-r").startsWith(QStringLiteral("scheduler is running")),
             "this test runs in a private world");
    m_saved = readFile(userFile());
    QVERIFY(m_saved.contains("Dest Laser/draft "));
}

void TestCupsReadback::cleanup()
{
    writeFile(userFile(), m_saved);
    for (const QString &name : std::as_const(m_made))
        run(QStringLiteral("lpadmin"), {QStringLiteral("-x"), name});
    m_made.clear();
    run("cancel -a Stopped");
}

void TestCupsReadback::makeQueue(const char *name)
{
    m_made.append(text(name));
    QVERIFY(!run(qPrintable(QStringLiteral("lpadmin -p %1 -E -v file:/dev/null").arg(text(name))))
                 .isNull());
}

void TestCupsReadback::attributesByUri_data()
{
    QTest::addColumn<QString>("uri");
    for (const char *name : {"Laser", "Photo", "Plain", "Stopped", "Rejecting"})
        QTest::addRow("%s", name) << printerUri(name);
    QTest::addRow("class") << classUri("Office");
}

void TestCupsReadback::attributesByUri()
{
    QFETCH(QString, uri);
    CUPSPrinter found;
    QVERIFY(_CUPS->getPrinterAttributes(uri.toLatin1().constData(), found));
    const Record expected = told(uri);
    QCOMPARE(differences(found.attributes, expected), QStringList());
    QCOMPARE(found.attributes.uri, expected.value(text("printer-uri-supported")));
    // The same record is in the list.
    QCOMPARE(described(printers().value(found.attributes.name).attributes),
             described(found.attributes));
}

void TestCupsReadback::attributesOfNobody()
{
    QCOMPARE(IppTool::printer(printerUri("nobody")).status, text("client-error-not-found"));
    CUPSPrinter found;
    QVERIFY(!_CUPS->getPrinterAttributes(printerUri("nobody").toLatin1().constData(), found));
    QCOMPARE(_CUPS->lastStatus(), 0x0406);
}

void TestCupsReadback::printersByType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("mask");
    const auto row = [](const char *title, int type, int mask) {
        QTest::addRow("%s", title) << type << mask;
    };
    row("all", 0, 0);
    row("classes", CUPS_PRINTER_CLASS, CUPS_PRINTER_CLASS);
    row("no classes", 0, CUPS_PRINTER_CLASS);
    row("colour", CUPS_PRINTER_COLOR, CUPS_PRINTER_COLOR);
    row("no colour", 0, CUPS_PRINTER_COLOR);
    row("both sides, no class", CUPS_PRINTER_DUPLEX, CUPS_PRINTER_DUPLEX | CUPS_PRINTER_CLASS);
    row("rejecting", CUPS_PRINTER_REJECTING, CUPS_PRINTER_REJECTING);
    row("a type without mask", CUPS_PRINTER_CLASS, 0);
    row("impossible", CUPS_PRINTER_CLASS, CUPS_PRINTER_COLOR);
}

void TestCupsReadback::printersByType()
{
    QFETCH(int, type);
    QFETCH(int, mask);
    const IppTool::Reply reply =
        IppTool::ask("CUPS-Get-Printers", {QStringLiteral("enum printer-type %1").arg(type),
                                           QStringLiteral("enum printer-type-mask %1").arg(mask),
                                           text("keyword requested-attributes printer-name")});
    QVERIFY(!reply.status.isEmpty());
    QStringList expected = column(reply, "printer-name");
    expected.sort();
    QCOMPARE(QStringList(printers(type, mask).keys()), expected);
}

void TestCupsReadback::classes()
{
    makeQueue("Member");
    QVERIFY(!run("lpadmin -p Member -c Second").isNull());
    QMap<QString, ClassInfo> found;
    QCOMPARE(_CUPS->getClasses(found), 2);
    const IppTool::Reply reply =
        IppTool::ask("CUPS-Get-Classes",
                     {text("keyword requested-attributes printer-name,member-names,member-uris")});
    QCOMPARE(reply.records.size(), 2);
    for (const Record &record : reply.records) {
        const ClassInfo cls = found.value(record.value(text("printer-name")));
        QCOMPARE(cls.memberNames.join(u','), record.value(text("member-names")));
        QCOMPARE(cls.memberUris.join(u','), record.value(text("member-uris")));
        QVERIFY(!cls.memberUris.isEmpty());
    }
}

void TestCupsReadback::stopsAndStarts_data()
{
    QTest::addColumn<QString>("uri");
    QTest::addRow("printer") << printerUri("Laser");
    QTest::addRow("class") << classUri("Office");
}

void TestCupsReadback::stopsAndStarts()
{
    QFETCH(QString, uri);
    QCOMPARE(toldState(uri), text("idle true"));
    QVERIFY(_CUPS->stopPrinter(uri.toLatin1().constData()));
    QCOMPARE(toldState(uri), text("stopped false"));
    QVERIFY(_CUPS->startPrinter(uri.toLatin1().constData()));
    QCOMPARE(toldState(uri), text("idle true"));
}

void TestCupsReadback::setsTheDefault()
{
    const auto toldDefault = [] {
        return column(
            IppTool::ask("CUPS-Get-Default", {text("keyword requested-attributes printer-name")}),
            "printer-name");
    };
    for (const char *name : {"Photo", "Laser"}) {
        QVERIFY(_CUPS->setDefaultPrinter(printerUri(name)));
        QCOMPARE(toldDefault(), QStringList(text(name)));
        QCOMPARE(lpstat("-d"), QStringLiteral("system default destination: %1\n").arg(text(name)));
    }
    QVERIFY(_CUPS->setDefaultPrinter(classUri("Office")));
    QCOMPARE(toldDefault(), QStringList(text("Office")));
    QVERIFY(_CUPS->setDefaultPrinter(printerUri("Laser")));
}

void TestCupsReadback::cancels_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<bool>("isByUri");
    QTest::addRow("own job") << text("root") << false;
    QTest::addRow("own job by its URI") << text("root") << true;
    QTest::addRow("another's job") << text("somebody") << false;
    QTest::addRow("another's job by its URI") << text("somebody") << true;
}

void TestCupsReadback::cancels()
{
    QFETCH(QString, user);
    QFETCH(bool, isByUri);
    const int number = queueJob("Stopped", userFile(), qPrintable(user));
    const int other = queueJob("Stopped", userFile(), qPrintable(user));
    QVERIFY(number > 0 && other > number);
    QCOMPARE(IppTool::job(number).value(text("job-originating-user-name")), user);
    QCOMPARE(IppTool::job(number).value(text("job-state")), text("pending"));
    const QByteArray uri = "ipp://localhost/jobs/" + QByteArray::number(number);
    QVERIFY(isByUri ? _CUPS->cancelJob(uri.constData()) : _CUPS->cancelJob("Stopped", number));
    QCOMPARE(IppTool::job(number).value(text("job-state")), text("canceled"));
    QCOMPARE(IppTool::job(other).value(text("job-state")), text("pending"));
    QVERIFY(!_CUPS->cancelJob("Stopped", number)); // it is canceled already
    QCOMPARE(lpstat("-o Stopped").section(u' ', 0, 0), QStringLiteral("Stopped-%1").arg(other));
}

void TestCupsReadback::cancelsNothing()
{
    const QString before = lpstat("-W all -o");
    QVERIFY(!_CUPS->cancelJob("Stopped", 999'999));
    QVERIFY(_CUPS->cancelJob("ipp://localhost/jobs/999999")); // an answer, though a refusal
    QCOMPARE(_CUPS->lastStatus(), 0x0406);
    QCOMPARE(lpstat("-W all -o"), before);
}

void TestCupsReadback::printsAFile()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("B\u00fcro.txt"));
    const QByteArray document = "printed by the facade\n";
    writeFile(path, document);
    const QStringList before = toldJobs("all");
    const QString title = QStringLiteral("Gr\u00fc\u00dfe an alle");
    QVERIFY(
        _CUPS->printFile(printerNamed("Plain"), {title, text("application/octet-stream"), path}));
    QCOMPARE(_CUPS->lastStatus(), 0);
    const QStringList after = toldJobs("all");
    QCOMPARE(after.size(), before.size() + 1);
    int number = 0;
    for (const QString &one : after)
        number = before.contains(one) ? number : one.toInt();

    const auto state = [number] { return IppTool::job(number).value(text("job-state")); };
    QTRY_COMPARE_WITH_TIMEOUT(state(), text("completed"), 30'000);
    const Record job = IppTool::job(number);
    QCOMPARE(job.value(text("job-name")), title);
    QCOMPARE(job.value(text("job-originating-user-name")), text("root"));
    QCOMPARE(job.value(text("job-printer-uri")), printerUri("Plain"));
    QCOMPARE(job.value(text("document-format-supplied")), text("application/octet-stream"));
    const QDir pages(qEnvironmentVariable("VESK_WORLD") + QStringLiteral("/pages"));
    const QStringList printed = pages.entryList({QStringLiteral("job-%1.*").arg(number)});
    QCOMPARE(printed.size(), 1);
    QCOMPARE(readFile(pages.filePath(printed.constFirst())), document);
}

void TestCupsReadback::printsNoMissingFile()
{
    const QStringList before = toldJobs("all");
    QVERIFY(!_CUPS->printFile(printerNamed("Plain"),
                              {text("title"), text("text/plain"), text("/nonexistent")}));
    QCOMPARE(toldJobs("all"), before);
}

void TestCupsReadback::setsAPpd()
{
    makeQueue("Bare");
    QVERIFY(!run("lpoptions -p Bare -l").contains(QStringLiteral("Duplex/")));
    const QString ppd = qEnvironmentVariable("CUPS_SERVERROOT") + QStringLiteral("/ppd/Laser.ppd");
    QVERIFY(_CUPS->setPrinterPPD(printerUri("Bare").toLatin1().constData(), ppd));
    QCOMPARE(_CUPS->lastStatus(), 0);
    QCOMPARE(told(printerUri("Bare")).value(text("printer-make-and-model")),
             told(printerUri("Laser")).value(text("printer-make-and-model")));
    QVERIFY(run("lpoptions -p Bare -l").contains(QStringLiteral("Duplex/")));
    QCOMPARE(readFile(qEnvironmentVariable("CUPS_SERVERROOT") + QStringLiteral("/ppd/Bare.ppd")),
             readFile(ppd));
}

void TestCupsReadback::refusesWhatIsNoPpd()
{
    makeQueue("Bare");
    const Record before = told(printerUri("Bare"));
    QVERIFY(_CUPS->setPrinterPPD(printerUri("Bare").toLatin1().constData(), userFile()));
    QVERIFY(_CUPS->lastStatus() >= 0x0400);
    QCOMPARE(told(printerUri("Bare")).value(text("printer-make-and-model")),
             before.value(text("printer-make-and-model")));
}

void TestCupsReadback::modifiesAPrinter()
{
    const Record before = told(printerUri("Laser"));
    const CUPSPrinter laser = printerNamed("Laser");
    CUPSPrinter changed = laser;
    changed.attributes.description = QStringLiteral("Gro\u00dfer");
    changed.attributes.location = QStringLiteral("K\u00fcche");
    changed.attributes.state = 5;
    changed.attributes.acceptingJobs = false;
    changed.attributes.localUri = text("file:///dev/null");
    QVERIFY(_CUPS->modifyPrinter(changed));
    QCOMPARE(_CUPS->lastStatus(), 0);
    Record expected = asTold(changed.attributes);
    const Record after = told(printerUri("Laser"));
    for (const char *name : {"printer-info", "printer-location", "printer-state", "device-uri",
                             "printer-is-accepting-jobs", "printer-make-and-model"})
        QCOMPARE(after.value(text(name)), expected.value(text(name)));
    // Its driver is what it was.
    QVERIFY(run("lpoptions -p Laser -l").contains(QStringLiteral("Duplex/")));
    QVERIFY(_CUPS->modifyPrinter(laser));
    const Record fields = asTold(laser.attributes);
    QCOMPARE(toldOf(fields, told(printerUri("Laser"))), toldOf(fields, before));
}

void TestCupsReadback::makesAPrinter()
{
    m_made.append(text("Made"));
    CUPSPrinter printer;
    printer.attributes.name = text("Made");
    printer.attributes.localUri = text("file:///dev/null");
    printer.attributes.description = text("made here");
    printer.attributes.acceptingJobs = true;
    QVERIFY(_CUPS->modifyPrinter(printer));
    QCOMPARE(toldState(printerUri("Made")), text("idle true"));
    QCOMPARE(told(printerUri("Made")).value(text("printer-info")), text("made here"));
}

void TestCupsReadback::modifiesAPrinterWithADriver()
{
    makeQueue("Changing");
    const IppTool::Reply drivers = IppTool::ask("CUPS-Get-PPDs", {text("text ppd-make Generic")});
    const Record driver = drivers.records.constLast();
    const QString model = driver.value(text("ppd-make-and-model"));
    QVERIFY(!model.isEmpty());
    CUPSPrinter changing = printerNamed("Changing");
    QVERIFY(changing.attributes.modelInfo != model);
    changing.ppdName = driver.value(text("ppd-name"));
    changing.attributes.location = text("with a driver");
    QVERIFY(_CUPS->modifyPrinter(changing));
    QCOMPARE(_CUPS->lastStatus(), 0);
    const Record after = told(printerUri("Changing"));
    QCOMPARE(after.value(text("printer-make-and-model")), model);
    QCOMPARE(after.value(text("printer-location")), text("with a driver"));
    QVERIFY(run("lpoptions -p Changing -l").contains(QStringLiteral("PageSize/")));
}

void TestCupsReadback::modifiesAClass()
{
    ClassInfo office;
    QVERIFY(_CUPS->findClass(text("Office"), office));
    const ClassInfo before = office;
    office.location = text("Everywhere");
    office.description = text("Not many");
    office.state = 5;
    office.acceptingJobs = false;
    office.memberUris = {printerUri("Plain"), printerUri("Laser")};
    QVERIFY(_CUPS->modifyClass(office));
    const Record after = told(classUri("Office"));
    QCOMPARE(after.value(text("member-names")), text("Plain,Laser"));
    QCOMPARE(after.value(text("printer-location")), text("Everywhere"));
    QCOMPARE(after.value(text("printer-info")), text("Not many"));
    QCOMPARE(toldState(classUri("Office")), text("stopped false"));
    QVERIFY(_CUPS->modifyClass(before));
    QCOMPARE(told(classUri("Office")).value(text("member-names")), text("Laser,Photo"));
    QCOMPARE(toldState(classUri("Office")), text("idle true"));
}

void TestCupsReadback::deletesAPrinter()
{
    makeQueue("Doomed");
    makeQueue("Staying");
    for (const char *command : {"lpadmin -p Doomed -c Office", "lpadmin -p Doomed -c Several",
                                "lpadmin -p Staying -c Several", "lpadmin -p Doomed -c Alone",
                                "cupsdisable Several", "cupsreject Several"})
        QVERIFY(!run(command).isNull());
    const int job = queueJob("Doomed", userFile());
    QVERIFY(job > 0);
    writeFile(userFile(), m_saved + "Dest Doomed a=1\nDest Doomed/draft c=1\nDest Gone b=1\n");
    QVERIFY(run("lpoptions -p Doomed").contains(QStringLiteral("a=1")));

    QVERIFY(_CUPS->deletePrinter(printerUri("Doomed").toLatin1().constData()));
    QCOMPARE(IppTool::printer(printerUri("Doomed")).status, text("client-error-not-found"));
    QVERIFY(!lpstat("-v").contains(QStringLiteral("Doomed")));
    QCOMPARE(told(classUri("Office")).value(text("member-names")), text("Laser,Photo"));
    QCOMPARE(told(classUri("Office")).value(text("printer-location")), text("First floor"));
    QCOMPARE(told(classUri("Several")).value(text("member-names")), text("Staying"));
    QCOMPARE(toldState(classUri("Several")), text("stopped false"));
    QVERIFY(!lpstat("-c").contains(QStringLiteral("Doomed")));
    const QByteArray saved = readFile(userFile());
    // The instance is a destination of its own.
    QVERIFY(!saved.contains("Dest Doomed a") && saved.contains("Dest Doomed/draft c=1\n"));
    QVERIFY(saved.contains("Dest Gone b=1\n") && saved.contains("Dest Laser/draft "));
}

void TestCupsReadback::deletesAClass()
{
    makeQueue("Staying");
    QVERIFY(!run("lpadmin -p Staying -c Doomed").isNull());
    writeFile(userFile(), m_saved + "Dest Doomed a=1\n");
    QCOMPARE(told(classUri("Doomed")).value(text("member-names")), text("Staying"));
    QVERIFY(_CUPS->deleteClass(classUri("Doomed").toLatin1().constData()));
    QCOMPARE(IppTool::printer(classUri("Doomed")).status, text("client-error-not-found"));
    QCOMPARE(toldState(printerUri("Staying")), text("idle true"));
    QVERIFY(!readFile(userFile()).contains("Doomed"));
    QVERIFY(readFile(userFile()).contains("Dest Laser/draft "));
}

void TestCupsReadback::jobs()
{
    const int ended = queueJob("Plain", userFile(), "somebody", "ended");
    const auto state = [ended] { return IppTool::job(ended).value(text("job-state")); };
    QTRY_COMPARE_WITH_TIMEOUT(state(), text("completed"), 30'000);
    const int waiting = queueJob("Stopped", userFile(), "somebody", "waiting");

    QMap<int, JobInfo> active;
    _CUPS->getJobs(active, nullptr, true);
    QCOMPARE(jobNumbers(active), toldJobs("not-completed"));
    QVERIFY(active.contains(waiting) && !active.contains(ended));
    QMap<int, JobInfo> all;
    _CUPS->getJobs(all, nullptr, false);
    QStringList expected = toldJobs("not-completed") + toldJobs("completed");
    QCOMPARE(QSet<QString>(expected.cbegin(), expected.cend()).size(), all.size());
    QVERIFY(all.contains(waiting) && all.contains(ended));
    QMap<int, JobInfo> ofPlain;
    QVERIFY(_CUPS->getJobs(ofPlain, "Plain", false) > 0);
    QVERIFY(ofPlain.contains(ended) && !ofPlain.contains(waiting));

    for (const int number : {ended, waiting}) {
        const JobInfo job = all.value(number);
        const Record record = IppTool::job(number);
        QCOMPARE(job.name, record.value(text("job-name")));
        QCOMPARE(printerUri(qPrintable(job.printer)), record.value(text("job-printer-uri")));
        QCOMPARE(job.user, record.value(text("job-originating-user-name")));
        QCOMPARE(job.uri, QString());
        QCOMPARE(QString::number(job.kOctets), record.value(text("job-k-octets")));
        QCOMPARE(QString::number(job.timeAtCreation), record.value(text("time-at-creation")));
        QCOMPARE(text(ippEnumString("job-state", job.state)), record.value(text("job-state")));
    }
}

void TestCupsReadback::jobsWithUris()
{
    const int first = queueJob("Stopped", userFile(), "somebody", "first");
    const int second = queueJob("Stopped", userFile(), "root", "second");
    QMap<int, JobInfo> jobs;
    QCOMPARE(_CUPS->getJobsWithUris(jobs), 2);
    QCOMPARE(jobs.keys(), QList<int>({first, second}));
    for (const JobInfo &job : std::as_const(jobs)) {
        const Record record = IppTool::job(job.jobId);
        QCOMPARE(job.name, record.value(text("job-name")));
        QCOMPARE(job.printer, record.value(text("job-printer-uri")));
        QCOMPARE(job.user, record.value(text("job-originating-user-name")));
        QCOMPARE(job.uri, record.value(text("job-uri")));
        QCOMPARE(QString::number(job.kOctets), record.value(text("job-k-octets")));
        QCOMPARE(QString::number(job.timeAtCreation), record.value(text("time-at-creation")));
        QCOMPARE(text(ippEnumString("job-state", job.state)), record.value(text("job-state")));
    }
}

void TestCupsReadback::driversByMake()
{
    const IppTool::Reply reply = IppTool::ask("CUPS-Get-PPDs", {text("text ppd-make Generic")});
    const QList<DriverInfo> drivers = _CUPS->getPPDs("Generic");
    QCOMPARE(drivers.size(), reply.records.size());
    QVERIFY(drivers.size() > 1);
    for (qsizetype i = 0; i < drivers.size(); ++i) {
        const Record &record = reply.records.at(i);
        QCOMPARE(drivers.at(i).make, record.value(text("ppd-make")));
        QCOMPARE(drivers.at(i).make, text("Generic"));
        QCOMPARE(drivers.at(i).model, record.value(text("ppd-make-and-model")));
        QCOMPARE(drivers.at(i).driverFile, record.value(text("ppd-name")));
        QCOMPARE(drivers.at(i).language, record.value(text("ppd-natural-language")));
    }
    QVERIFY(_CUPS->getPPDs("nobody's").isEmpty());
    QCOMPARE(_CUPS->lastStatus(), 0x0406);
}

QTEST_GUILESS_MAIN(TestCupsReadback)
#include "tst_cups_readback.moc"
