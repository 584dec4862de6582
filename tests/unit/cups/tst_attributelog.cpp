#include "AttributeLog.h"
#include "ClassInfo.h"
#include "DriverInfo.h"
#include "IppBytes.h"
#include "JobInfo.h"
#include "LogTail.h"
#include "PrinterInfo.h"

#include <QTest>

#include <dlfcn.h>

namespace
{
bool saysNoValues = false;
} // namespace

/** In place of the library's, which cannot make an attribute with a name and without values. */
extern "C" int ippGetCount(ipp_attribute_t *attribute)
{
    static const auto real =
        reinterpret_cast<int (*)(ipp_attribute_t *)>(dlsym(RTLD_NEXT, "ippGetCount"));
    return saysNoValues ? 0 : real(attribute);
}

namespace
{
/** What is logged of the first attribute after `message`'s operation group. */
QByteArray logged(const QByteArray &message)
{
    const Cups::IppPtr parsed = parseIpp(message);
    QByteArray buffer(4096, '\0');
    FILE *log = fmemopen(buffer.data(), static_cast<size_t>(buffer.size()), "wb");
    logAttribute(log, ippFirstAttribute(parsed.get()));
    std::fclose(log);
    return QByteArray(buffer.constData());
}

IppBytes message()
{
    return IppBytes(0).group(4);
}

QByteArray entry(const char *name, int count, const QByteArray &rest)
{
    return QByteArray("\n*************\nProperty name: ") + name +
           "\r\nValues: " + QByteArray::number(count) + "\r\n" + rest;
}
} // namespace

class TestAttributeLog : public QObject
{
    Q_OBJECT

private slots:
    void attribute_data();
    void attribute();
    void withoutValues();
    void separator();
    void stringThatIsNull();
    void withoutLog();
    void readersLogWhatTheyAreHanded();
};

void TestAttributeLog::attribute_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char *title, const IppBytes &bytes, const QByteArray &text) {
        QTest::addRow("%s", title) << bytes.bytes() << text;
    };
    const auto tagged = [](int tag, const QByteArray &value) {
        return message().attribute(tag, "a", value);
    };
    row("integer", message().integer(0x21, "a", -3),
        entry("a", 1, "Value tag: 0x21\r\nInteger: -3\r\n"));
    row("two integers", message().integer(0x21, "a", 3).more(0x21, IppBytes::number32(4)),
        entry("a", 2, "Value tag: 0x21\r\nInteger: 3\r\n"));
    row("octetString", tagged(0x30, "x"), entry("a", 1, "Value tag: 0x30\r\nString: x\r\n"));
    row("text", tagged(0x41, "x"), entry("a", 1, "Value tag: 0x41\r\nString: x\r\n"));
    row("text with line end", tagged(0x41, "x\ny"),
        entry("a", 1, "Value tag: 0x41\r\nString: x\ny\r\n"));
    row("name", tagged(0x42, "x"), entry("a", 1, "Value tag: 0x42\r\nString: x\r\n"));
    row("uri", tagged(0x45, "x"), entry("a", 1, "Value tag: 0x45\r\nString: x\r\n"));
    row("mimeMediaType", tagged(0x49, "x"), entry("a", 1, "Value tag: 0x49\r\nString: x\r\n"));
    row("empty octetString is null", tagged(0x30, ""), entry("a", 1, "Value tag: 0x30\r\n"));
    row("empty text", tagged(0x41, ""), entry("a", 1, "Value tag: 0x41\r\nString: \r\n"));
    row("enum", message().integer(0x23, "a", 3), entry("a", 1, "Value tag: 0x23\r\n"));
    row("boolean", message().boolean("a", 1), entry("a", 1, "Value tag: 0x22\r\n"));
    row("keyword", tagged(0x44, "x"), entry("a", 1, "Value tag: 0x44\r\n"));
    row("charset", tagged(0x47, "x"), entry("a", 1, "Value tag: 0x47\r\n"));
    row("range", message().range("a", 1, 2), entry("a", 1, "Value tag: 0x33\r\n"));
    row("no-value", tagged(0x13, ""), entry("a", 1, "Value tag: 0x13\r\n"));
}

void TestAttributeLog::attribute()
{
    QFETCH(QByteArray, message);
    QTEST(logged(message), "text");
}

void TestAttributeLog::withoutValues()
{
    saysNoValues = true;
    const QByteArray text = logged(message().text("a", "x"));
    saysNoValues = false;
    QCOMPARE(text, entry("a", 0, ""));
}

void TestAttributeLog::separator()
{
    const Cups::IppPtr ipp(ippNew());
    ippAddSeparator(ipp.get());
    QByteArray buffer(256, '\0');
    FILE *log = fmemopen(buffer.data(), static_cast<size_t>(buffer.size()), "wb");
    logAttribute(log, ippFirstAttribute(ipp.get()));
    std::fclose(log);
    QCOMPARE(buffer.constData(), "\n----------\nProperty with no name!\n\r\n");
}

void TestAttributeLog::stringThatIsNull()
{
    const Cups::IppPtr ipp(ippNew());
    ipp_attribute_t *attribute =
        ippAddStrings(ipp.get(), IPP_TAG_PRINTER, IPP_TAG_TEXT, "a", 1, nullptr, nullptr);
    QByteArray buffer(256, '\0');
    FILE *log = fmemopen(buffer.data(), static_cast<size_t>(buffer.size()), "wb");
    logAttribute(log, attribute);
    std::fclose(log);
    QCOMPARE(buffer.constData(), entry("a", 1, "Value tag: 0x41\r\n"));
}

void TestAttributeLog::withoutLog()
{
    const Cups::IppPtr parsed = parseIpp(message().text("a", "x"));
    FILE *none = nullptr;
    logAttribute(none, ippFirstAttribute(parsed.get()));
    QCOMPARE(none, nullptr);
}

void TestAttributeLog::readersLogWhatTheyAreHanded()
{
    const LogTail printers("ipp_printer.log");
    const LogTail drivers("ipp_driver.log");
    const LogTail jobs("ipp_job.log");
    const LogTail classes("ipp_class.log");

    // Of a group, and with a name, that no reader takes.
    const Cups::IppPtr parsed = parseIpp(IppBytes(0).group(5).text("other", "x"));
    ipp_attribute_t *attribute = ippFirstAttribute(parsed.get());
    const QByteArray text = entry("other", 1, "Value tag: 0x41\r\nString: x\r\n");

    PrinterInfo().readAttribute(attribute);
    QCOMPARE(printers.added(), text);
    DriverInfo().readAttribute(attribute);
    QCOMPARE(drivers.added(), text);
    JobInfo().readAttribute(attribute);
    QCOMPARE(jobs.added(), text);
    ClassInfo().readAttribute(attribute);
    QCOMPARE(classes.added(), text);
    QCOMPARE(printers.added(), text);

    // What the class reader hands on is in both logs.
    const Cups::IppPtr named = parseIpp(message().name("printer-name", "x"));
    ClassInfo().readAttribute(ippFirstAttribute(named.get()));
    const QByteArray nameText = entry("printer-name", 1, "Value tag: 0x42\r\nString: x\r\n");
    QCOMPARE(classes.added(), text + nameText);
    QCOMPARE(printers.added(), text + nameText);
    QCOMPARE(drivers.added(), text);
    QCOMPARE(jobs.added(), text);
}

QTEST_GUILESS_MAIN(TestAttributeLog)
#include "tst_attributelog.moc"
