#include "RecordDumps.h"

#include <QTest>

/** The texts that show a record to a developer. */

namespace
{
QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

DriverInfo driver(const char *make, const char *model, const char *file, const char *language)
{
    return {text(make), text(model), text(file), text(language)};
}

PrinterInfo samplePrinter()
{
    PrinterInfo info;
    info.name = text("Laser");
    info.description = text("Big one");
    info.make = text("make");
    info.state = 5;
    info.isDefault = true;
    info.location = text("2nd floor");
    info.info = text("info");
    info.modelInfo = text("T 100");
    info.localUri = text("usb://x");
    info.uri = text("ipp://u");
    info.uris = {text("ipp://u"), text("ipp://v")};
    info.printerType = 0x1004;
    info.stateMessage = text("message");
    return info;
}

constexpr char SampleDump[] = "\n\tName/Description/Location: <Laser/Big one/2nd floor>"
                              "\n\tInfo/ModelInfo: <info/T 100>"
                              "\n\tLocalURI: <usb://x>"
                              "\n\tUri: <ipp://u>"
                              "\n\tURIs: <ipp://u|ipp://v>"
                              "\n\tPrinterType: 0x00001004";
constexpr char EmptyDump[] = "\n\tName/Description/Location: <//>"
                             "\n\tInfo/ModelInfo: </>"
                             "\n\tLocalURI: <>"
                             "\n\tUri: <>"
                             "\n\tURIs: <>"
                             "\n\tPrinterType: 0x00000000";
} // namespace

Q_DECLARE_METATYPE(DriverInfo)
Q_DECLARE_METATYPE(PrinterInfo)
Q_DECLARE_METATYPE(ClassInfo)

class TestRecordDumps : public QObject
{
    Q_OBJECT

private slots:
    void ofADriver_data();
    void ofADriver();
    void ofAPrinter_data();
    void ofAPrinter();
    void ofAClass_data();
    void ofAClass();
};

void TestRecordDumps::ofADriver_data()
{
    QTest::addColumn<DriverInfo>("record");
    QTest::addColumn<QString>("dump");
    const auto row = [](const char *title, const DriverInfo &record, const char *dump) {
        QTest::addRow("%s", title) << record << text(dump);
    };
    row("empty", {}, "Manufacturer=<> Model=<> DriverFile=<> Language=<>");
    row("whole", driver("Tarvel", "T 100", "t/100.ppd", "en"),
        "Manufacturer=<Tarvel> Model=<T 100> DriverFile=<t/100.ppd> Language=<en>");
    row("not ASCII", driver("B\u00fcro", "\u8a08\u7b97", "\u00e4.ppd", "de"),
        "Manufacturer=<B\u00fcro> Model=<\u8a08\u7b97> DriverFile=<\u00e4.ppd> Language=<de>");
    row("percent signs", driver("%s", "%n", "%1", "%%"),
        "Manufacturer=<%s> Model=<%n> DriverFile=<%1> Language=<%%>");
}

void TestRecordDumps::ofADriver()
{
    QFETCH(DriverInfo, record);
    QTEST(dumpDriver(record), "dump");
}

void TestRecordDumps::ofAPrinter_data()
{
    QTest::addColumn<PrinterInfo>("record");
    QTest::addColumn<QString>("dump");
    QTest::addRow("empty") << PrinterInfo() << text(EmptyDump);
    QTest::addRow("whole") << samplePrinter() << text(SampleDump);
    PrinterInfo allBits = samplePrinter();
    allBits.printerType = -1;
    QTest::addRow("all bits") << allBits
                              << text(SampleDump).replace(text("00001004"), text("ffffffff"));
    PrinterInfo oneUri = samplePrinter();
    oneUri.uris = {text("ipp://u")};
    QTest::addRow("one URI") << oneUri << text(SampleDump).remove(text("|ipp://v"));
    PrinterInfo foreign = samplePrinter();
    foreign.location = text("Stra\u00dfe %d");
    QTest::addRow("not ASCII")
        << foreign << text(SampleDump).replace(text("2nd floor"), text("Stra\u00dfe %d"));
    PrinterInfo large = samplePrinter();
    large.location = QString(200'000, u'x');
    QTest::addRow("large") << large << text(SampleDump).replace(text("2nd floor"), large.location);
}

void TestRecordDumps::ofAPrinter()
{
    QFETCH(PrinterInfo, record);
    QTEST(dumpPrinter(record), "dump");
}

void TestRecordDumps::ofAClass_data()
{
    QTest::addColumn<ClassInfo>("record");
    QTest::addColumn<QString>("dump");
    QTest::addRow("empty") << ClassInfo() << text(EmptyDump) + text("\n\tprinters: <>");
    ClassInfo cls;
    static_cast<PrinterInfo &>(cls) = samplePrinter();
    cls.memberUris = {text("ipp://a")};
    cls.memberNames = {text("a"), text("\u00e4 %s")};
    QTest::addRow("whole") << cls << text(SampleDump) + text("\n\tprinters: <a|\u00e4 %s>");
}

void TestRecordDumps::ofAClass()
{
    QFETCH(ClassInfo, record);
    QTEST(dumpClass(record), "dump");
}

QTEST_GUILESS_MAIN(TestRecordDumps)
#include "tst_recorddumps.moc"
