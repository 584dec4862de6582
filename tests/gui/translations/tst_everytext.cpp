#include "CupsHandles.h"
#include "HelpLauncher.h"
#include "IPPRequest.h"
#include "PPDNumericView.h"
#include "PPDTreeView.h"
#include "PasswordPrompt.h"
#include "PrintDialog.h"
#include "PropertiesTest.h"

#include <QInputDialog>
#include <QTimer>
#include <QTranslator>

#include <ranges>

using namespace Qt::StringLiterals;
using PropertiesTest::child;

/** Every text of the windows that is not the server's or the driver's goes through translation. */
class TestEveryText : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void findsAPlainText();
    void printDialog_data();
    void printDialog();
    void propertiesDialog_data();
    void propertiesDialog();
    void editors_data();
    void editors();
    void numericEditor();
    void passwordPrompt();
    void printMessages_data();
    void printMessages();
    void conflictMessages();
    void lostServerMessage();
    void lostPrinterMessage();
    void helpMessage();
};

namespace
{
constexpr QChar Mark = u'‹';

/** Marks every text that goes through translation. */
class Marking : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return Mark + QString::fromUtf8(sourceText);
    }
};

/**
 * What shows texts of the server or of the driver: by the name of the widget or of the one around
 * it. And one text of the program's own, which is the same in every language.
 */
const QStringList ForeignTexts = {u"LocationText"_s, u"DescriptionText"_s,  u"PrintersCombo"_s,
                                  u"CopiesLabel"_s,  u"ppdOptionView"_s,    u"SizeCombo"_s,
                                  u"MediaCombo"_s,   u"StartBannerCombo"_s, u"EndBannerCombo"_s};

/** In the editor of a driver's option, whose title, choices and labels are the driver's. */
const QStringList OwnTextsOfEditors = {
    u"m_customBox"_s,     u"m_widthLabel"_s,   u"m_heightLabel"_s,  u"label_3"_s,
    u"m_unitsComboBox"_s, u"m_widthSpinBox"_s, u"m_heightSpinBox"_s};

bool isForeign(const QWidget *widget)
{
    if (OwnTextsOfEditors.contains(widget->objectName()))
        return false;
    for (; widget && !widget->isWindow(); widget = widget->parentWidget()) {
        if (ForeignTexts.contains(widget->objectName()))
            return true;
    }
    return false;
}

bool hasLetters(const QString &text)
{
    return std::ranges::any_of(text, [](QChar sign) { return sign.isLetter(); });
}

QStringList entries(const QComboBox &combo)
{
    QStringList result;
    for (int i = 0; i < combo.count(); ++i)
        result.append(combo.itemText(i));
    return result;
}

QStringList tabTitles(const QTabWidget &tabs)
{
    QStringList result;
    for (int i = 0; i < tabs.count(); ++i)
        result.append(tabs.tabText(i));
    return result;
}

/** Everything that a widget says to those who see or hear it. */
QStringList textsOf(const QWidget *widget)
{
    QStringList result = {widget->toolTip(), widget->whatsThis(), widget->accessibleName(),
                          widget->accessibleDescription()};
    for (const char *name :
         {"text", "title", "suffix", "prefix", "specialValueText", "placeholderText"}) {
        if (!qobject_cast<const QLineEdit *>(widget) || qstrcmp(name, "text") != 0)
            result.append(widget->property(name).toString());
    }
    if (const auto combo = qobject_cast<const QComboBox *>(widget))
        result += entries(*combo);
    if (const auto tabs = qobject_cast<const QTabWidget *>(widget))
        result += tabTitles(*tabs);
    return result;
}

/** The texts of a window that did not go through translation. */
QString plainTexts(const QWidget &window)
{
    QStringList found;
    if (!window.windowTitle().contains(Mark))
        found.append(u"windowTitle: "_s + window.windowTitle());
    const QList<QWidget *> all = window.findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        if (!widget->isVisible() || isForeign(widget))
            continue;
        const QStringList texts = textsOf(widget);
        for (const QString &text : texts) {
            if (hasLetters(text) && !text.contains(Mark))
                found.append(widget->objectName() + u": "_s + text);
        }
    }
    return found.join(u"; "_s);
}

Marking marking;
} // namespace

void TestEveryText::initTestCase()
{
    PasswordPrompt::install();
    QCoreApplication::installTranslator(&marking);
}

void TestEveryText::cleanupTestCase()
{
    QCoreApplication::removeTranslator(&marking);
}

void TestEveryText::findsAPlainText()
{
    QWidget window;
    window.setWindowTitle(Mark + u"Window"_s);
    QPushButton button(Mark + u"Button"_s, &window);
    QLabel label(u"12 %"_s, &window);
    window.show();
    QCOMPARE(plainTexts(window), QString());
    button.setObjectName(u"button"_s);
    button.setAccessibleDescription(u"Presses"_s);
    QCOMPARE(plainTexts(window), u"button: Presses"_s);
    button.setObjectName(u"LocationText"_s);
    QCOMPARE(plainTexts(window), QString());
    label.setText(u"12 percent"_s);
    QCOMPARE(plainTexts(window), u": 12 percent"_s);
    label.hide();
    window.setWindowTitle(u"Window"_s);
    QCOMPARE(plainTexts(window), u"windowTitle: Window"_s);
}

void TestEveryText::printDialog_data()
{
    QTest::addColumn<QString>("printer");
    for (const char *printer : {"Laser", "Stopped", "Rejecting"})
        QTest::newRow(printer) << printer;
}

void TestEveryText::printDialog()
{
    QFETCH(QString, printer);
    PrintDialog dialog(printer, PrinterOptions());
    dialog.show();
    QCOMPARE(plainTexts(dialog), QString());
}

void TestEveryText::propertiesDialog_data()
{
    QTest::addColumn<QString>("printer");
    for (const char *printer : {"Laser", "Plain"})
        QTest::newRow(printer) << printer;
}

void TestEveryText::propertiesDialog()
{
    QFETCH(QString, printer);
    const auto dialog = PropertiesTest::open(printer);
    const auto tabs = child<QTabWidget>(*dialog, "TabControl");
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QCOMPARE(plainTexts(*dialog), QString());
    }
}

void TestEveryText::editors_data()
{
    QTest::addColumn<QString>("printer");
    for (const char *printer : {"Laser", "Photo"})
        QTest::newRow(printer) << printer;
}

void TestEveryText::editors()
{
    QFETCH(QString, printer);
    const auto dialog = PropertiesTest::open(printer);
    const auto tree = child<PPDTreeView>(*dialog, "ppdTreeView");
    PropertiesTest::turnTo(tree);
    for (QTreeWidgetItem *row : std::as_const(tree->m_dict)) {
        tree->setCurrentItem(row);
        QCOMPARE(plainTexts(*dialog), QString());
    }
}

void TestEveryText::numericEditor()
{
    PPDNumericView view;
    view.setWindowTitle(Mark);
    view.setRange(0, 1000);
    view.show();
    QCOMPARE(plainTexts(view), QString());
}

void TestEveryText::passwordPrompt()
{
    bool wasAsked = false;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        look.stop();
        wasAsked = true;
        QTRY_VERIFY(dialog->isVisible());
        QCOMPARE(plainTexts(*dialog), QString());
        dialog->close();
    });
    look.start(0);
    IPPRequest::rootPasswordCallback("Password for root on localhost? ");
    QVERIFY(wasAsked);
}

namespace
{
/** The plain texts of the message box that `action` shows, with its title. */
std::pair<QString, QString> plainTextsOfBox(const std::function<void()> &action)
{
    std::pair<QString, QString> result = {u"no box"_s, {}};
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        look.stop();
        result = {plainTexts(*box), box->windowTitle()};
        box->button(QMessageBox::Ok)->click();
    });
    look.start(0);
    action();
    return result;
}

using Texts = std::pair<QString, QString>;

/** What a box says whose texts are all translated. */
Texts allTranslated(const QString &title)
{
    return {QString(), Mark + title};
}
} // namespace

void TestEveryText::printMessages_data()
{
    QTest::addColumn<QString>("printer");
    QTest::addColumn<QString>("title");
    QTest::newRow("stopped") << u"Stopped"_s << u"Warning!"_s;
    QTest::newRow("page numbers") << u"Laser"_s << u"Error!"_s;
}

void TestEveryText::printMessages()
{
    QFETCH(QString, printer);
    QFETCH(QString, title);
    PrintDialog dialog(printer, PrinterOptions());
    dialog.show();
    child<QAbstractButton>(dialog, "SomePagesRadio")->click();
    child<QLineEdit>(dialog, "PagesEdit")->setText(u"5-3"_s);
    const auto ok = child<QPushButton>(dialog, "OkButton");
    QCOMPARE(plainTextsOfBox([ok] { ok->click(); }), allTranslated(title));
}

void TestEveryText::conflictMessages()
{
    const auto dialog = PropertiesTest::open(u"Laser"_s);
    PropertiesTest::work(*dialog, u"DuplexLongRadio"_s);
    Texts texts = plainTextsOfBox([&] { PropertiesTest::work(*dialog, u"MediaCombo=Labels"_s); });
    QCOMPARE(texts, allTranslated(u"Driver configuration"_s));
    texts = plainTextsOfBox([&] { PropertiesTest::applyButton(*dialog)->click(); });
    QCOMPARE(texts, allTranslated(u"LPR GUI: Options Conflict"_s));
}

void TestEveryText::lostServerMessage()
{
    const auto dialog = PropertiesTest::open(u"Laser"_s);
    PropertiesTest::work(*dialog, u"CpiSpinBox=17"_s);
    const QByteArray server = cupsServer();
    cupsSetServer("/nowhere/cups.sock");
    const Texts texts = plainTextsOfBox([&] { PropertiesTest::applyButton(*dialog)->click(); });
    cupsSetServer(server.constData());
    QCOMPARE(texts, allTranslated(u"Options Not Saved"_s));
}

void TestEveryText::lostPrinterMessage()
{
    DialogTest::addQueue(u"TestGone"_s);
    const auto dialog = PropertiesTest::open(u"TestGone"_s);
    PropertiesTest::work(*dialog, u"CpiSpinBox=17"_s);
    DialogTest::run("lpadmin", {u"-x"_s, u"TestGone"_s});
    const Texts texts = plainTextsOfBox([&] { PropertiesTest::applyButton(*dialog)->click(); });
    QCOMPARE(texts, allTranslated(u"Unknown Printer"_s));
}

void TestEveryText::helpMessage()
{
    const Texts texts = plainTextsOfBox([] { HelpLauncher::show(u"Missing.htm"_s); });
    QCOMPARE(texts, allTranslated(u"Help"_s));
}

QTEST_MAIN(TestEveryText)
#include "tst_everytext.moc"
