#include "DevicePicture.h"
#include "IPPRequest.h"
#include "Language.h"
#include "Look.h"
#include "PPDNumericView.h"
#include "PPDTreeView.h"
#include "PasswordPrompt.h"
#include "PrintDialog.h"
#include "PropertiesTest.h"

#include <QAbstractButton>
#include <QGlyphRun>
#include <QInputDialog>
#include <QKeySequence>
#include <QStyleFactory>
#include <QTabBar>
#include <QTextLayout>
#include <QTimer>

#include <ranges>

using namespace Qt::StringLiterals;
using PropertiesTest::child;

/**
 * The windows with the catalogues of each language: no two of what a key reaches have the same key,
 * no text is cut or drawn without its signs, and the window with all options fits a small screen.
 */
class TestTranslatedWindows : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void languages();
    void findsCollisions();
    void findsCutTexts();
    void findsMissingSigns();
    void printDialog_data();
    void printDialog();
    void propertiesDialog_data() { addLanguages(); }
    void propertiesDialog();
    void editors_data() { addLanguages(); }
    void editors();
    void numericEditor_data() { addLanguages(); }
    void numericEditor();
    void passwordPrompt_data() { addLanguages(); }
    void passwordPrompt();

private:
    static void addLanguages();
};

namespace
{
const QString Catalogues = QStringLiteral(VESK_TRANSLATIONS);
const QStringList TabNames = {u"GeneralPage"_s, u"TextPage"_s, u"tab"_s, u"AdvancedPage"_s};

QString shownBy(const QWidget *widget)
{
    if (const auto button = qobject_cast<const QAbstractButton *>(widget))
        return button->text();
    if (const auto box = qobject_cast<const QGroupBox *>(widget))
        return box->title();
    const auto label = qobject_cast<const QLabel *>(widget);
    return label ? label->text() : QString();
}

/** A label only names the key of another widget. */
bool hasMnemonic(const QWidget *widget)
{
    const auto label = qobject_cast<const QLabel *>(widget);
    return label ? label->buddy() != nullptr : !shownBy(widget).isEmpty();
}

/** All texts in sight that may have a mnemonic. */
QStringList texts(const QWidget &window)
{
    QStringList result;
    const QList<QWidget *> all = window.findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        if (!widget->isVisible())
            continue;
        if (const auto bar = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < bar->count(); ++i)
                result.append(bar->tabText(i));
        } else if (hasMnemonic(widget)) {
            result.append(shownBy(widget));
        }
    }
    return result;
}

/** The texts in sight that have the same mnemonic as another one. */
QString collisions(const QWidget &window)
{
    QMap<QKeySequence, QStringList> byKey;
    const QStringList all = texts(window);
    for (const QString &text : all) {
        if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
            byKey[key].append(text);
    }
    QStringList found;
    for (auto key = byKey.cbegin(); key != byKey.cend(); ++key) {
        if (key->size() > 1)
            found.append(key.key().toString() + u": "_s + key->join(u", "_s));
    }
    return found.join(u"; "_s);
}

/** Where the server's words may be longer than there is room: the tool tip has them in full. */
bool isTextOfTheServer(const QWidget *widget)
{
    return widget->objectName() == "LocationText"_L1 ||
           widget->objectName() == "DescriptionText"_L1;
}

/** What shows a text of the program that has to be seen whole. */
bool showsText(const QWidget *widget)
{
    return !isTextOfTheServer(widget) &&
           (qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QLabel *>(widget) ||
            qobject_cast<const QGroupBox *>(widget) || qobject_cast<const QComboBox *>(widget) ||
            qobject_cast<const QTabBar *>(widget));
}

bool isCut(const QWidget *widget)
{
    const auto label = qobject_cast<const QLabel *>(widget);
    if (label && !label->wordWrap())
        return label->width() < label->sizeHint().width();
    if (const auto bar = qobject_cast<const QTabBar *>(widget))
        return bar->width() < bar->sizeHint().width();
    return !hasRoom(widget);
}

/** The texts in sight that do not fit. */
QString cutTexts(const QWidget &window)
{
    QStringList found;
    const QList<QWidget *> all = window.findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        if (widget->isVisible() && showsText(widget) && isCut(widget))
            found.append(u"%1 \"%2\" %3<%4"_s.arg(widget->objectName(), shownBy(widget))
                             .arg(widget->width())
                             .arg(widget->sizeHint().width()));
    }
    return found.join(u"; "_s);
}

/** Whether no font has a sign of the text: a box is drawn in its place, and measured. */
bool lacksSigns(const QString &text, const QFont &font)
{
    QTextLayout layout(text.simplified(), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    return std::ranges::any_of(layout.glyphRuns(),
                               [](const QGlyphRun &run) { return run.glyphIndexes().contains(0); });
}

/** The texts of a widget, with those of its list or its tabs. */
QStringList textsOf(const QWidget *widget)
{
    QStringList result = {shownBy(widget)};
    if (const auto combo = qobject_cast<const QComboBox *>(widget)) {
        for (int i = 0; i < combo->count(); ++i)
            result.append(combo->itemText(i));
    } else if (const auto bar = qobject_cast<const QTabBar *>(widget)) {
        for (int i = 0; i < bar->count(); ++i)
            result.append(bar->tabText(i));
    }
    return result;
}

/** The texts in sight that no font has all signs of. */
QString textsWithoutSigns(const QWidget &window)
{
    QStringList found;
    const QList<QWidget *> all = window.findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        if (!widget->isVisible())
            continue;
        const QStringList texts = textsOf(widget);
        for (const QString &text : texts) {
            if (lacksSigns(text, widget->font()))
                found.append(text);
        }
    }
    return found.join(u"; "_s);
}

/** A screen of 1024 by 768 with a title bar and a panel on it. */
bool fitsASmallScreen(const QWidget &window)
{
    return window.width() <= 1000 && window.height() <= 700;
}

void verify(const QWidget &window)
{
    QCOMPARE(collisions(window), QString());
    QCOMPARE(textsWithoutSigns(window), QString());
    QTRY_COMPARE(cutTexts(window), QString());
    QVERIFY2(fitsASmallScreen(window),
             qPrintable(u"%1x%2"_s.arg(window.width()).arg(window.height())));
}

bool isArabic()
{
    return QLatin1StringView(QTest::currentDataTag()).startsWith("ar"_L1);
}

/** The language of the current row. */
Language languageOfRow()
{
    QFETCH(QString, language);
    return {language, Catalogues};
}

PrintDialogServices services()
{
    PrintDialogServices result;
    result.devicePicture = devicePicture;
    result.createPropertiesDialog = [](const QString &, const PrinterOptions &, QWidget *parent) {
        return new QDialog(parent);
    };
    return result;
}
} // namespace

void TestTranslatedWindows::addLanguages()
{
    QTest::addColumn<QString>("language");
    const QStringList all = Language::languages(Catalogues);
    for (const QString &language : all)
        QTest::newRow(qPrintable(language)) << language;
}

void TestTranslatedWindows::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    PasswordPrompt::install();
}

void TestTranslatedWindows::languages()
{
    QCOMPARE(Language::languages(Catalogues).size(), 15);
}

void TestTranslatedWindows::findsCollisions()
{
    QWidget window;
    QTabWidget tabs(&window);
    auto page = new QWidget;
    auto other = new QWidget;
    tabs.addTab(page, u"&General"_s);
    tabs.addTab(other, u"&Text"_s);
    QPushButton apply(u"&Apply"_s, &window);
    QLabel label(u"Page r&anges:"_s, page);
    QLabel elsewhere(u"P&aper:"_s, other);
    QPushButton tea(u"&Tea && coffee"_s, &window);
    window.show();
    QCOMPARE(collisions(window), u"Alt+T: &Text, &Tea && coffee"_s);
    label.setBuddy(page);
    elsewhere.setBuddy(other);
    QVERIFY(collisions(window).startsWith("Alt+A: "_L1));
    QVERIFY(!collisions(window).contains(elsewhere.text()));
    tea.hide();
    label.hide();
    QCOMPARE(collisions(window), QString());
}

void TestTranslatedWindows::findsCutTexts()
{
    QWidget window;
    QPushButton button(u"A button"_s, &window);
    QLabel label(u"A label"_s, &window);
    label.move(0, 100);
    window.show();
    QCOMPARE(cutTexts(window), QString());
    label.resize(label.sizeHint().width() - 1, label.height());
    QVERIFY(cutTexts(window).contains("A label"_L1));
    label.hide();
    QCOMPARE(cutTexts(window), QString());
    button.resize(button.sizeHint().width() - 1, button.height());
    QVERIFY(cutTexts(window).contains("A button"_L1));
}

void TestTranslatedWindows::findsMissingSigns()
{
    QWidget window;
    QPushButton button(u"Drücken нажать اضغط 按 押す 눌러"_s, &window);
    QComboBox box(&window);
    window.show();
    QCOMPARE(textsWithoutSigns(window), QString());
    // No font has a sign for a code point that is none.
    const QString nothing(QChar(0xfdd0));
    box.addItem(nothing);
    QCOMPARE(textsWithoutSigns(window), nothing);
    button.setText(u"Press "_s + nothing);
    QCOMPARE(textsWithoutSigns(window), u"Press "_s + nothing + u"; "_s + nothing);
    box.hide();
    button.hide();
    QCOMPARE(textsWithoutSigns(window), QString());
}

void TestTranslatedWindows::printDialog_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("printer");
    const QStringList all = Language::languages(Catalogues);
    for (const QString &language : all) {
        for (const char *printer : {"Laser", "Stopped", "Rejecting"})
            QTest::newRow(qPrintable(language + u' ' + QLatin1StringView(printer)))
                << language << printer;
    }
}

void TestTranslatedWindows::printDialog()
{
    QFETCH(QString, printer);
    const Language language = languageOfRow();
    PrintDialog dialog(printer, PrinterOptions(), services());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTRY_VERIFY(dialog.height() >= dialog.sizeHint().height());
    verify(dialog);
    QCOMPARE(dialog.isRightToLeft(), isArabic());
}

void TestTranslatedWindows::propertiesDialog()
{
    const Language language = languageOfRow();
    const auto dialog = PropertiesTest::open(u"Laser"_s);
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QCOMPARE(dialog->isRightToLeft(), isArabic());
    const auto tabs = child<QTabWidget>(*dialog, "TabControl");
    QCOMPARE(tabs->count(), TabNames.size());
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QCOMPARE(tabs->currentWidget()->objectName(), TabNames[i]);
        QCoreApplication::processEvents();
        verify(*dialog);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(TabNames[i]));
    }
}

void TestTranslatedWindows::editors()
{
    const Language language = languageOfRow();
    for (const QString &printer : {u"Laser"_s, u"Photo"_s}) {
        const auto dialog = PropertiesTest::open(printer);
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        const auto tree = child<PPDTreeView>(*dialog, "ppdTreeView");
        PropertiesTest::turnTo(tree);
        QVERIFY(tree->m_dict.size() > 10);
        for (QTreeWidgetItem *row : std::as_const(tree->m_dict)) {
            tree->setCurrentItem(row);
            QCoreApplication::processEvents();
            verify(*dialog);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(row->text(0)));
        }
    }
}

void TestTranslatedWindows::numericEditor()
{
    const Language language = languageOfRow();
    PPDNumericView view;
    view.setRange(0, 1000);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    verify(view);
}

void TestTranslatedWindows::passwordPrompt()
{
    const Language language = languageOfRow();
    bool wasAsked = false;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        if (!dialog || !QTest::qWaitForWindowExposed(dialog))
            return;
        look.stop();
        wasAsked = true;
        verify(*dialog);
        dialog->close();
    });
    look.start(0);
    IPPRequest::rootPasswordCallback("Password for root on localhost? ");
    QVERIFY(wasAsked);
}

QTEST_MAIN(TestTranslatedWindows)
#include "tst_translatedwindows.moc"
