#include "PluginPages.h"
#include "Plugins.h"
#include "PrinterOptions.h"

#include <vesk/plugin.h>

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
const QString Queue = u"Laser"_s;

/** What a properties dialog does with plug-ins, from opening to closing. */
class Dialog
{
public:
    explicit Dialog(const QString &destination)
    {
        if (!options.load(destination))
            qFatal("no queue %s", qPrintable(destination));
        options.openPPD();
        pages.addTo(&tabs, options, *Plugins::plugins());
    }

    QLineEdit *number() const { return tabs.findChild<QLineEdit *>(u"NumberEdit"_s); }
    QComboBox *cover() const { return tabs.findChild<QComboBox *>(u"CoverCombo"_s); }
    void fill(const QString &digits, int coverIndex)
    {
        number()->selectAll();
        QTest::keyClicks(number(), digits);
        cover()->setFocus();
        QTest::keyClick(cover(), Qt::Key_Home);
        for (int i = 0; i < coverIndex; ++i)
            QTest::keyClick(cover(), Qt::Key_Down);
    }
    bool apply()
    {
        pages.apply(options);
        return options.save(Queue);
    }

    PrinterOptions options;
    QTabWidget tabs;
    PluginPages pages;
};

/** The user's saved options of the queue: the words of its line. */
QStringList savedOptions()
{
    QFile file(qEnvironmentVariable("HOME") + u"/.cups/lpoptions"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (const QString &line : QString::fromLocal8Bit(file.readAll()).split(u'\n')) {
        const QStringList words = line.split(u' ');
        if (words.value(1) == Queue)
            return words.mid(2);
    }
    return {};
}
} // namespace

class TestFaxPlugin : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void showsATab();
    void startsEmpty();
    void saysWhatTheUserChanges();
    void savesUnderTheVolatilePrefix();
    void comesBack();
    void keepsWhatIsTyped();
    void removesWhatIsCleared();
    void leavesOtherOptionsAlone();
};

void TestFaxPlugin::initTestCase()
{
    Plugins::setPluginPaths({qEnvironmentVariable("VESK_TEST_PLUGINS")});
    QCOMPARE(Plugins::plugins()->size(), 1);
}

void TestFaxPlugin::init()
{
    Dialog dialog(Queue);
    dialog.fill(u"\b"_s, 0);
    QVERIFY(dialog.apply());
    QCOMPARE(savedOptions().filter(u"qfax"_s), QStringList());
}

void TestFaxPlugin::showsATab()
{
    const Dialog dialog(Queue);
    QCOMPARE(dialog.tabs.count(), 1);
    QCOMPARE(dialog.tabs.tabText(0), u"Fax"_s);
    QVERIFY(dialog.number() && dialog.cover());
    QCOMPARE(dialog.options.volatileOptions(), (QStringList{u"qfax-number"_s, u"qfax-cover"_s}));
}

void TestFaxPlugin::startsEmpty()
{
    const Dialog dialog(Queue);
    QCOMPARE(dialog.number()->text(), QString());
    QCOMPARE(dialog.cover()->currentText(), u"None"_s);
}

void TestFaxPlugin::saysWhatTheUserChanges()
{
    Dialog dialog(Queue);
    const QSignalSpy changed(&dialog.pages, &PluginPages::optionChanged);
    QTest::keyClicks(dialog.number(), u"12x"_s);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(dialog.number()->text(), u"12"_s);
    QTest::keyClick(dialog.cover(), Qt::Key_Down);
    QCOMPARE(changed.size(), 3);
    dialog.pages.update(dialog.options);
    QCOMPARE(changed.size(), 3);
}

void TestFaxPlugin::savesUnderTheVolatilePrefix()
{
    Dialog dialog(Queue);
    dialog.fill(u"+49 30 1234"_s, 1);
    QVERIFY(dialog.apply());
    QCOMPARE(dialog.options.value(u"qfax-number"_s, {}), u"+49 30 1234"_s);
    const QStringList saved = savedOptions();
    QVERIFY2(saved.contains(u"volatile-qfax-cover=standard"_s), qPrintable(saved.join(u' ')));
    QCOMPARE(saved.filter(u"qfax-number"_s).size(), 1);
    QVERIFY(saved.filter(u"qfax-number"_s).first().startsWith(u"volatile-qfax-number="_s));
}

void TestFaxPlugin::comesBack()
{
    {
        Dialog dialog(Queue);
        dialog.fill(u"+49 30 1234"_s, 2);
        QVERIFY(dialog.apply());
    }
    Dialog again(Queue);
    QCOMPARE(again.number()->text(), u"+49 30 1234"_s);
    QCOMPARE(again.cover()->currentText(), u"Confidential"_s);
    const QStringList saved = savedOptions();
    QVERIFY(again.apply());
    QCOMPARE(savedOptions(), saved);
}

void TestFaxPlugin::keepsWhatIsTyped()
{
    Dialog dialog(Queue);
    dialog.fill(u"123"_s, 1);
    QVERIFY(dialog.apply());
    dialog.fill(u"456"_s, 2);
    dialog.pages.update(dialog.options);
    QCOMPARE(dialog.number()->text(), u"456"_s);
    QCOMPARE(dialog.cover()->currentText(), u"Confidential"_s);
}

void TestFaxPlugin::removesWhatIsCleared()
{
    {
        Dialog dialog(Queue);
        dialog.fill(u"123"_s, 1);
        QVERIFY(dialog.apply());
        QCOMPARE(savedOptions().filter(u"qfax"_s).size(), 2);
    }
    Dialog dialog(Queue);
    dialog.fill(u"\b"_s, 0);
    QVERIFY(dialog.apply());
    QCOMPARE(savedOptions().filter(u"qfax"_s), QStringList());
    QCOMPARE(Dialog(Queue).number()->text(), QString());
}

void TestFaxPlugin::leavesOtherOptionsAlone()
{
    const QStringList before = savedOptions();
    Dialog dialog(Queue);
    dialog.fill(u"123"_s, 1);
    QVERIFY(dialog.apply());
    QStringList after = savedOptions();
    after.removeIf([](const QString &option) { return option.contains(u"qfax"_s); });
    QCOMPARE(after, before);
}

QTEST_MAIN(TestFaxPlugin)
#include "tst_faxplugin.moc"
