#include "PPDOptionView.h"

#include "EditorsTestSupport.h"
#include "PPDBooleanView.h"
#include "PPDCustomView.h"
#include "PPDNumericView.h"
#include "PPDTreeView.h"

#include <QAccessible>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QStackedWidget>
#include <QStyleOptionGroupBox>
#include <QVBoxLayout>

using namespace EditorsTest;
using namespace Qt::StringLiterals;

namespace
{
enum Page { EmptyPage, BooleanPage, ChoicePage, NumericPage, CustomPage };

/** The tree of a PPD with the pane beside it. */
struct Pane {
    explicit Pane(const Cups::PpdPtr &opened = openPpd())
        : ppd(opened)
        , stack(only<QStackedWidget>(view))
        , choices(qobject_cast<QListWidget *>(stack->widget(ChoicePage)))
        , custom(only<PPDCustomView>(view))
        , changed(&view, &PPDOptionView::optionChanged)
    {
        tree.setPPD(ppd.get());
    }
    template <typename Row = PPDTree::OptionItem> Row *row(const char *keyword) const
    {
        auto *found = dynamic_cast<Row *>(tree.m_dict.value(QString::fromLatin1(keyword), nullptr));
        if (!found)
            qFatal("no row %s", keyword);
        return found;
    }
    void select(const char *keyword) { view.setOption(row(keyword)); }
    QRadioButton *button(const char *name) const { return child<QRadioButton>(view, name); }
    /** A row of a number, among the options of a group. */
    PPDTree::NumericalItem *addNumber(bool isReal, double min, double max, double value) const
    {
        auto *number = new PPDTree::NumericalItem(
            ppd.get(), row("Dozen")->m_option,
            dynamic_cast<PPDTree::BaseItem *>(row("Dozen")->QTreeWidgetItem::parent()));
        number->m_isReal = isReal;
        number->m_min = min;
        number->m_max = max;
        number->setValue(value);
        return number;
    }

    Cups::PpdPtr ppd;
    PPDTreeView tree;
    PPDOptionView view;
    QStackedWidget *stack;
    QListWidget *choices;
    PPDCustomView *custom;
    QSignalSpy changed;
};

struct TitleOption : PPDOptionView {
    using PPDOptionView::initStyleOption;
};
} // namespace

/** The pane that edits the row selected in the tree. */
class TestPPDOptionView : public QObject
{
    Q_OBJECT
private slots:
    void asDesigned();
    void nothingSelected();
    void groupsAndRootAreEmpty();
    void emptyGroupIsEmpty();
    void titleIsWhatTheUserSees();
    void longTitleIsCutShort();
    void pages_data();
    void pages();
    void showingMarksNothing_data();
    void showingMarksNothing();
    void showingPageSizeKeepsItsChoice();
    void booleanShowsItsChoice();
    void booleanClickMarks();
    void booleanWithoutAChoice();
    void booleanWithAnotherNumberOfChoices_data();
    void booleanWithAnotherNumberOfChoices();
    void choiceListShowsTheChoices();
    void choiceIsCentred_data();
    void choiceIsCentred();
    void longListsScrollSmoothly();
    void choiceKeysMark();
    void choiceKeepsFocusAndScrolling();
    void undefinedChoiceStaysUndefined();
    void choiceOfAnotherOption();
    void optionWithoutChoices();
    void customChoiceMarks();
    void customValueMarks_data();
    void customValueMarks();
    void customKeepsFocusWhileTyping();
    void tabLeadsThroughTheEditors();
    void customPageSize();
    void customPageSizeInAnotherUnit();
    void pageSizeNotOffered();
    void rowGoesWithTheChange();
    void realNumber();
    void integerNumber();
    void scaleStaysReal();
    void numberNeedsItsDepth();
    void numberIsEnabledAfterAnInstalledOption();
    void installedOptionsAreDisabled();
    void signalsStayBlockedIfTheyWere();
    void slotsWithoutARow();
    void indexOutOfRangeIsTheFirst();
    void withTheTree();
    void spokenNames();
};

void TestPPDOptionView::asDesigned()
{
    const Pane pane;
    QCOMPARE(pane.view.sizeHint(), QSize(200, 120));
    QCOMPARE(pane.stack->count(), 5);
    QVERIFY(qobject_cast<PPDBooleanView *>(pane.stack->widget(BooleanPage)));
    QVERIFY(pane.choices);
    QVERIFY(qobject_cast<PPDNumericView *>(pane.stack->widget(NumericPage)));
    QCOMPARE(pane.stack->widget(CustomPage), pane.custom);
    const auto *layout = qobject_cast<QVBoxLayout *>(pane.view.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(layout->spacing(), 0);

    const QMetaObject &meta = PPDOptionView::staticMetaObject;
    QList<QByteArray> methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(meta.method(i).methodSignature());
    QCOMPARE(methods,
             QList<QByteArray>({"optionChanged()", "setOption(QTreeWidgetItem*)", "customChanged()",
                                "selectionChanged(int)", "valueChanged(double)"}));
}

void TestPPDOptionView::nothingSelected()
{
    Pane pane;
    QCOMPARE(pane.view.title(), u"No option selected"_s);
    QCOMPARE(pane.stack->currentIndex(), int{EmptyPage});
    pane.select("Toggle");
    pane.view.setOption(nullptr);
    QCOMPARE(pane.view.title(), u"No option selected"_s);
    QCOMPARE(pane.stack->currentIndex(), int{EmptyPage});
    QCOMPARE(pane.changed.count(), 0);
}

void TestPPDOptionView::groupsAndRootAreEmpty()
{
    Pane pane;
    for (QTreeWidgetItem *item : {static_cast<QTreeWidgetItem *>(pane.tree.m_root),
                                  pane.row("Toggle")->QTreeWidgetItem::parent()}) {
        pane.select("Toggle");
        pane.view.setOption(item);
        QCOMPARE(pane.view.title(), u"No option selected"_s);
        QCOMPARE(pane.stack->currentIndex(), int{EmptyPage});
    }
}

void TestPPDOptionView::emptyGroupIsEmpty()
{
    Pane pane;
    const auto empty = pane.tree.findItems(u"Nothing"_s, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(empty.size(), 1);
    pane.view.setOption(empty.first());
    QCOMPARE(pane.view.title(), u"No option selected"_s);
    QCOMPARE(pane.stack->currentIndex(), int{EmptyPage});
    pane.view.selectionChanged(0);
    pane.view.valueChanged(1);
    pane.view.customChanged();
}

void TestPPDOptionView::titleIsWhatTheUserSees()
{
    Pane pane;
    pane.select("Toggle");
    QCOMPARE(pane.view.title(), u"Black & White"_s);
    // The style draws a doubled '&' as one, and takes no mnemonic from it.
    QStyleOptionGroupBox option;
    (static_cast<const PPDOptionView &>(pane.view).*&TitleOption::initStyleOption)(&option);
    QCOMPARE(option.text, u"Black && White"_s);
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&pane.view);
    QCOMPARE(spoken->text(QAccessible::Name), u"Black & White"_s);
}

void TestPPDOptionView::longTitleIsCutShort()
{
    const QByteArray text("A very long text of an option that goes on & on beyond all sense");
    Pane pane(openPpdWith("Dozen/Dozen", "Dozen/" + text));
    pane.select("Empty");
    const int width = pane.view.minimumSizeHint().width();
    pane.select("Dozen");
    QCOMPARE(pane.view.minimumSizeHint().width(), width);
    QCOMPARE(pane.view.title(), QString::fromUtf8(text));
    pane.view.resize(200, 200);
    QStyleOptionGroupBox option;
    (static_cast<const PPDOptionView &>(pane.view).*&TitleOption::initStyleOption)(&option);
    QVERIFY(option.text.startsWith(u"A very long"_s));
    QVERIFY(option.text.endsWith(u'…'));
    QVERIFY(option.fontMetrics.horizontalAdvance(option.text) <= 200);
}

void TestPPDOptionView::pages_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("title");
    const auto row = [](const char *keyword, Page page, const char *title) {
        QTest::newRow(keyword) << QByteArray(keyword) << int{page} << QString::fromUtf8(title);
    };
    row("Toggle", BooleanPage, "Black & White");
    row("OneWay", BooleanPage, "One way");
    row("ThreeWay", BooleanPage, "Three ways");
    row("Dozen", ChoicePage, "Dozen");
    row("Unset", ChoicePage, "Nothing chosen");
    row("Empty", ChoicePage, "No choices");
    row("Many", EmptyPage, "Several at once");
    row("PageSize", CustomPage, "Media Size");
    row("Two", CustomPage, "Two parameters");
    row("Bare", CustomPage, "No parameters");
    row("Tray", BooleanPage, "Second tray");
}

void TestPPDOptionView::pages()
{
    QFETCH(QByteArray, keyword);
    Pane pane;
    pane.select(keyword.constData());
    QTEST(pane.stack->currentIndex(), "page");
    QTEST(pane.view.title(), "title");
    QCOMPARE(pane.changed.count(), 0);
}

void TestPPDOptionView::showingMarksNothing_data()
{
    QTest::addColumn<QByteArray>("keyword");
    for (const char *keyword :
         {"Toggle",   "OneWay",  "ThreeWay", "Dozen",      "Unset",     "Empty",     "Many",
          "PageSize", "ACurve",  "AnInt",    "AnInvCurve", "APasscode", "APassword", "APoints",
          "AReal",    "AString", "Two",      "Partly",     "Bare",      "Tray"})
        QTest::newRow(keyword) << QByteArray(keyword);
}

void TestPPDOptionView::showingMarksNothing()
{
    QFETCH(QByteArray, keyword);
    Pane pane;
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowActive(&pane.view));
    pane.select("PageSize");
    const QString page = marked(pane.ppd, "PageSize");
    const QString text = pane.row(keyword.constData())->text(0);
    const QString choice = marked(pane.ppd, keyword.constData());
    pane.select(keyword.constData());
    // Getting the focus is no choice either.
    for (QWidget *editor : pane.stack->currentWidget()->findChildren<QWidget *>())
        editor->setFocus(Qt::TabFocusReason);
    pane.stack->currentWidget()->setFocus(Qt::TabFocusReason);
    QCOMPARE(marked(pane.ppd, keyword.constData()), choice);
    QCOMPARE(marked(pane.ppd, "PageSize"), page);
    QCOMPARE(pane.row(keyword.constData())->text(0), text);
    QCOMPARE(pane.changed.count(), 0);
}

void TestPPDOptionView::showingPageSizeKeepsItsChoice()
{
    const Cups::PpdPtr ppd = openPpd();
    ppdMarkOption(ppd.get(), "PageSize", "Letter");
    Pane pane(ppd);
    pane.select("PageSize");
    pane.select("AReal");
    pane.select("PageSize");
    QCOMPARE(marked(ppd, "PageSize"), u"Letter"_s);
    QCOMPARE(pane.custom->currentRow(), 1);
}

void TestPPDOptionView::booleanShowsItsChoice()
{
    Pane pane;
    pane.select("Toggle");
    QCOMPARE(pane.button("button1")->text(), u"Colour && Tone"_s);
    QCOMPARE(pane.button("button2")->text(), u"Grey only"_s);
    QVERIFY(pane.button("button2")->isChecked());
    pane.row("Toggle")->setChoiceIndex(0);
    pane.select("Toggle");
    QVERIFY(pane.button("button1")->isChecked());
}

void TestPPDOptionView::booleanClickMarks()
{
    Pane pane;
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane.view));
    pane.select("Toggle");
    QTest::mouseClick(pane.button("button1"), Qt::LeftButton, {}, {10, 10});
    QCOMPARE(marked(pane.ppd, "Toggle"), u"False"_s);
    QCOMPARE(pane.row("Toggle")->text(0), u"Black & White: <Colour & Tone>"_s);
    QCOMPARE(pane.changed.count(), 1);
}

void TestPPDOptionView::booleanWithoutAChoice()
{
    Pane pane;
    pane.row("Toggle")->setChoice(nullptr);
    pane.select("Toggle");
    QVERIFY(pane.button("button2")->isChecked());
    pane.button("button2")->click();
    QCOMPARE(marked(pane.ppd, "Toggle"), u"True"_s);
    QCOMPARE(pane.changed.count(), 1);
}

void TestPPDOptionView::booleanWithAnotherNumberOfChoices_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QString>("second");
    QTest::newRow("one") << QByteArray("OneWay") << u"True"_s;
    QTest::newRow("three") << QByteArray("ThreeWay") << u"False"_s;
}

void TestPPDOptionView::booleanWithAnotherNumberOfChoices()
{
    QFETCH(QByteArray, keyword);
    Pane pane;
    pane.select("Toggle");
    pane.select(keyword.constData());
    QCOMPARE(pane.button("button1")->text(), u"Colour && Tone"_s);
    QCOMPARE(pane.button("button2")->text(), u"Grey only"_s);
    pane.button("button2")->click();
    QTEST(marked(pane.ppd, keyword.constData()), "second");
    pane.button("button1")->click();
    QCOMPARE(marked(pane.ppd, keyword.constData()), u"True"_s);
}

void TestPPDOptionView::choiceListShowsTheChoices()
{
    Pane pane;
    pane.select("Dozen");
    QCOMPARE(pane.choices->count(), 12);
    for (int row = 0; row < 11; ++row)
        QCOMPARE(pane.choices->item(row)->text(), u"Text %1"_s.arg(row + 1));
    QCOMPARE(pane.choices->item(11)->text(), u"Größe 12"_s);
    QCOMPARE(pane.choices->currentRow(), 6);
}

void TestPPDOptionView::choiceIsCentred_data()
{
    QTest::addColumn<bool>("shownBefore");
    QTest::newRow("in a pane on the screen") << true;
    QTest::newRow("in a pane that comes up later") << false;
}

void TestPPDOptionView::choiceIsCentred()
{
    QFETCH(bool, shownBefore);
    Pane pane;
    pane.view.resize(200, 130);
    if (shownBefore)
        pane.view.show();
    pane.select("Dozen");
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane.view));
    const QRect row = pane.choices->visualItemRect(pane.choices->item(6));
    const QRect viewport = pane.choices->viewport()->rect();
    QVERIFY(pane.choices->verticalScrollBar()->value() > 0);
    QVERIFY2(std::abs(row.center().y() - viewport.center().y()) <= row.height(),
             qPrintable(u"%1 of %2"_s.arg(row.center().y()).arg(viewport.height())));
}

void TestPPDOptionView::longListsScrollSmoothly()
{
    Pane pane(openPpdWith("*AReal Plain/Plain: \"pop\"",
                          "*AReal A/A: \"pop\"\n*AReal B/B: \"pop\"\n*AReal C/C: \"pop\"\n"
                          "*AReal D/D: \"pop\"\n*AReal Plain/Plain: \"pop\""));
    pane.view.resize(200, 130);
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane.view));
    pane.select("Dozen");
    QTRY_VERIFY(scrollsByPixels(*pane.choices));
    pane.select("AReal");
    auto *values = only<QListWidget>(*pane.custom);
    values->setFixedHeight(3 * values->sizeHintForRow(0));
    QTRY_VERIFY(scrollsByPixels(*values));
    pane.tree.resize(200, 120);
    pane.tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane.tree));
    QTRY_VERIFY(scrollsByPixels(pane.tree));
}

void TestPPDOptionView::choiceKeysMark()
{
    Pane pane;
    pane.select("Dozen");
    QTest::keyClick(pane.choices, Qt::Key_Down);
    QCOMPARE(marked(pane.ppd, "Dozen"), u"C8"_s);
    QCOMPARE(pane.row("Dozen")->text(0), u"Dozen: <Text 8>"_s);
    QCOMPARE(pane.changed.count(), 1);
    QTest::keyClick(pane.choices, Qt::Key_Home);
    QCOMPARE(marked(pane.ppd, "Dozen"), u"C1"_s);
    QCOMPARE(pane.changed.count(), 2);
}

void TestPPDOptionView::choiceKeepsFocusAndScrolling()
{
    Pane pane;
    connect(&pane.view, &PPDOptionView::optionChanged, &pane.tree, &PPDTreeView::checkConstraints);
    pane.view.resize(200, 130);
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowActive(&pane.view));
    pane.select("Dozen");
    pane.choices->setFocus();
    const int scrolled = pane.choices->verticalScrollBar()->value();
    QTest::mouseClick(pane.choices->viewport(), Qt::LeftButton, {},
                      pane.choices->visualItemRect(pane.choices->item(5)).center());
    QCOMPARE(marked(pane.ppd, "Dozen"), u"C6"_s);
    QVERIFY(pane.choices->hasFocus());
    QCOMPARE(pane.choices->verticalScrollBar()->value(), scrolled);
}

void TestPPDOptionView::undefinedChoiceStaysUndefined()
{
    Pane pane;
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowActive(&pane.view));
    pane.select("Unset");
    QCOMPARE(pane.choices->currentRow(), -1);
    pane.choices->setFocus(Qt::TabFocusReason);
    QVERIFY(pane.choices->hasFocus());
    QCOMPARE(marked(pane.ppd, "Unset"), QString());
    QTest::keyClick(pane.choices, Qt::Key_Down);
    QCOMPARE(marked(pane.ppd, "Unset"), u"One"_s);
    QCOMPARE(pane.changed.count(), 1);
}

/** Of two options of one keyword, the library tells the first one's choice for both. */
void TestPPDOptionView::choiceOfAnotherOption()
{
    Pane pane;
    pane.row("Dozen")->setChoice(&pane.row("Unset")->m_option->choices[1]);
    pane.select("Dozen");
    QCOMPARE(pane.choices->count(), 12);
    QCOMPARE(pane.choices->currentRow(), -1);
    QTest::keyClick(pane.choices, Qt::Key_Down);
    QCOMPARE(marked(pane.ppd, "Dozen"), u"C1"_s);
}

void TestPPDOptionView::optionWithoutChoices()
{
    Pane pane;
    pane.select("Empty");
    QCOMPARE(pane.choices->count(), 0);
    QTest::keyClick(pane.choices, Qt::Key_Down);
    pane.view.selectionChanged(0);
    QCOMPARE(pane.row("Empty")->m_choice, nullptr);
}

void TestPPDOptionView::customChoiceMarks()
{
    Pane pane;
    pane.select("Two");
    auto *list = only<QListWidget>(*pane.custom);
    QTest::keyClick(list, Qt::Key_End);
    QCOMPARE(marked(pane.ppd, "Two"), u"Custom"_s);
    QCOMPARE(pane.row("Two")->text(0), u"Two parameters: <Custom>"_s);
    QCOMPARE(pane.changed.count(), 1);
    QTest::keyClick(list, Qt::Key_Home);
    QCOMPARE(marked(pane.ppd, "Two"), u"Plain"_s);
    QCOMPARE(pane.changed.count(), 2);
}

void TestPPDOptionView::customValueMarks_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *what, const char *keyword, const char *name,
                        const QString &typed, const QVariant &value) {
        QTest::addRow("%s, %s", name, what)
            << QByteArray(keyword) << QByteArray(name) << typed << value;
    };
    row("minimum", "ACurve", "Curve", shown("0.1"), 0.1F);
    row("middle", "ACurve", "Curve", shown("2.5"), 2.5F);
    row("maximum", "ACurve", "Curve", shown("10"), 10.0F);
    row("minimum", "AnInt", "Int", u"-100"_s, -100);
    row("middle", "AnInt", "Int", u"-7"_s, -7);
    row("maximum", "AnInt", "Int", u"100000"_s, 100000);
    row("minimum", "AnInvCurve", "InvCurve", shown("0.1"), 0.1F);
    row("middle", "AnInvCurve", "InvCurve", shown("0.25"), 0.25F);
    row("maximum", "AnInvCurve", "InvCurve", shown("10"), 10.0F);
    row("minimum", "APasscode", "Passcode", u"0123"_s, QByteArray("0123"));
    row("middle", "APasscode", "Passcode", u"12345"_s, QByteArray("12345"));
    row("maximum", "APasscode", "Passcode", u"98765432"_s, QByteArray("98765432"));
    row("minimum", "APassword", "Password", u"s3c!"_s, QByteArray("s3c!"));
    row("middle", "APassword", "Password", u"s3cret"_s, QByteArray("s3cret"));
    row("maximum", "APassword", "Password", u"sixteen{letters}"_s, QByteArray("sixteen{letters}"));
    row("minimum", "APoints", "Points", shown("0"), 0.0F);
    row("middle", "APoints", "Points", shown("1234.5"), 1234.5F);
    row("maximum", "APoints", "Points", shown("10000"), 10000.0F);
    row("minimum", "AReal", "Real", shown("-100"), -100.0F);
    row("middle", "AReal", "Real", shown("-1.5"), -1.5F);
    row("maximum", "AReal", "Real", shown("100"), 100.0F);
    row("minimum", "AString", "String", QString(), QByteArray());
    row("middle", "AString", "String", u"two wörds"_s, QByteArray("two wörds"));
    row("maximum", "AString", "String", QString(40, u'm'), QByteArray(40, 'm'));
    row("minimum", "Two", "Resolution", u"0"_s, 0);
    row("middle", "Two", "Resolution", u"300"_s, 300);
    row("maximum", "Two", "Resolution", u"600"_s, 600);
}

void TestPPDOptionView::customValueMarks()
{
    QFETCH(QByteArray, keyword);
    QFETCH(QByteArray, name);
    QFETCH(QString, typed);
    QFETCH(QVariant, value);
    Pane pane;
    pane.select(keyword.constData());
    QTest::keyClick(only<QListWidget>(*pane.custom), Qt::Key_End);
    auto *spinBox = pane.custom->findChild<QAbstractSpinBox *>();
    auto *field = spinBox ? spinBox : static_cast<QWidget *>(only<QLineEdit>(*pane.custom));
    // Something else first, so that the value is not there before it is typed.
    type(field, u"5"_s);
    type(field, typed);
    QCOMPARE(marked(pane.ppd, keyword.constData()), u"Custom"_s);
    const ppd_cparam_t &read = param(pane.ppd, keyword.constData(), name.constData());
    if (value.typeId() == QMetaType::Int)
        QCOMPARE(read.current.custom_int, value.toInt());
    else if (value.typeId() == QMetaType::Float)
        QCOMPARE(read.current.custom_real, value.toFloat());
    else
        QCOMPARE(QByteArray(read.current.custom_string), value.toByteArray());
    QVERIFY(pane.changed.count() > 1);
}

void TestPPDOptionView::customKeepsFocusWhileTyping()
{
    Pane pane;
    connect(&pane.view, &PPDOptionView::optionChanged, &pane.tree, &PPDTreeView::checkConstraints);
    pane.view.resize(260, 300);
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowActive(&pane.view));
    pane.select("AString");
    QTest::keyClick(only<QListWidget>(*pane.custom), Qt::Key_End);
    auto *edit = only<QLineEdit>(*pane.custom);
    edit->setFocus();
    QTest::keyClicks(edit, u"abc"_s);
    QVERIFY(edit->hasFocus());
    QCOMPARE(edit->cursorPosition(), 3);
    QCOMPARE(QByteArray(param(pane.ppd, "AString", "String").current.custom_string),
             QByteArray("abc"));
}

void TestPPDOptionView::tabLeadsThroughTheEditors()
{
    QWidget window;
    Pane pane;
    auto *before = new QPushButton(&window);
    auto *after = new QPushButton(&window);
    after->setObjectName(u"after"_s);
    auto *layout = new QVBoxLayout(&window);
    for (QWidget *widget : std::initializer_list<QWidget *>{before, &pane.view, after})
        layout->addWidget(widget);
    QWidget::setTabOrder(before, after);
    pane.view.setTabPredecessor(before);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    const auto visited = [before] {
        before->setFocus();
        QStringList names;
        while (names.size() < 9 && !names.contains(u"after"_s)) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            names.append(QApplication::focusWidget()->objectName());
        }
        return names.join(u' ');
    };
    pane.choices->setObjectName(u"choices"_s);
    pane.select("Dozen");
    QCOMPARE(visited(), u"choices after"_s);
    pane.select("PageSize");
    QTest::keyClick(only<QListWidget>(*pane.custom), Qt::Key_End);
    QCOMPARE(visited(),
             u"m_valuesListWidget m_widthSpinBox m_heightSpinBox m_unitsComboBox after"_s);
    pane.select("Dozen");
    QCOMPARE(visited(), u"choices after"_s);
    for (const char *keyword : {"AReal", "AString", "AnInt"}) {
        pane.select(keyword);
        QTest::keyClick(only<QListWidget>(*pane.custom), Qt::Key_End);
        auto *spinBox = pane.custom->findChild<QAbstractSpinBox *>();
        auto *field = spinBox ? spinBox : static_cast<QWidget *>(only<QLineEdit>(*pane.custom));
        field->setObjectName(u"field"_s);
        QCOMPARE(visited(), u"m_valuesListWidget field after"_s);
    }
    pane.select("Dozen");
    QCOMPARE(visited(), u"choices after"_s);
    pane.view.setParent(nullptr);
}

void TestPPDOptionView::customPageSize()
{
    Pane pane;
    pane.select("PageSize");
    auto *list = only<QListWidget>(*pane.custom);
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(marked(pane.ppd, "PageSize"), u"Letter"_s);
    QCOMPARE(pane.view.customPageSize(), QString());

    QTest::keyClick(list, Qt::Key_End);
    QCOMPARE(marked(pane.ppd, "PageSize"), u"Custom"_s);
    QCOMPARE(pane.view.customPageSize(), u"Custom.72.000x72.000pt"_s);
    type(child<QDoubleSpinBox>(*pane.custom, "m_widthSpinBox"), shown("300.5"));
    type(child<QDoubleSpinBox>(*pane.custom, "m_heightSpinBox"), u"400"_s);
    QCOMPARE(pane.view.customPageSize(), u"Custom.300.500x400.000pt"_s);
    QCOMPARE(param(pane.ppd, "PageSize", "Width").current.custom_points, 300.5F);
    QCOMPARE(param(pane.ppd, "PageSize", "Height").current.custom_points, 400.0F);

    // Another row and back: the size is there.
    pane.select("Dozen");
    pane.select("PageSize");
    QCOMPARE(pane.custom->customValue(), u"Custom.300.500x400.000pt"_s);
    QTest::keyClick(list, Qt::Key_Home);
    QCOMPARE(pane.view.customPageSize(), u"Custom.300.500x400.000pt"_s);
}

void TestPPDOptionView::customPageSizeInAnotherUnit()
{
    Pane pane;
    pane.select("PageSize");
    QTest::keyClick(only<QListWidget>(*pane.custom), Qt::Key_End);
    child<QComboBox>(*pane.custom, "m_unitsComboBox")->setCurrentIndex(1);
    type(child<QDoubleSpinBox>(*pane.custom, "m_widthSpinBox"), u"100"_s);
    type(child<QDoubleSpinBox>(*pane.custom, "m_heightSpinBox"), u"150"_s);
    QCOMPARE(pane.view.customPageSize(), u"Custom.100.000x150.000mm"_s);
    QVERIFY(std::abs(param(pane.ppd, "PageSize", "Width").current.custom_points - 283.465F) <
            0.01F);
}

void TestPPDOptionView::pageSizeNotOffered()
{
    const Cups::PpdPtr ppd = openPpdWith("*DefaultPageSize: A4", "*DefaultPageSize: Custom.1x2ft");
    ppdMarkOption(ppd.get(), "PageSize", "A4");
    Pane pane(ppd);
    pane.select("PageSize");
    QTest::keyClick(only<QListWidget>(*pane.custom), Qt::Key_End);
    QCOMPARE(pane.custom->customValue(), QString());
    QCOMPARE(marked(ppd, "PageSize"), u"A4"_s);
}

/** Whoever hears of the change may close the PPD that the row belongs to. */
void TestPPDOptionView::rowGoesWithTheChange()
{
    Pane pane;
    connect(&pane.tree, qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged), &pane.view,
            &PPDOptionView::setOption);
    pane.tree.setCurrentItem(pane.row("PageSize"));
    connect(&pane.view, &PPDOptionView::optionChanged, &pane.tree, [&] {
        pane.tree.setPPD(nullptr);
        pane.ppd.reset();
    });
    QTest::keyClick(only<QListWidget>(*pane.custom), Qt::Key_End);
    QVERIFY(!pane.ppd);
    QCOMPARE(pane.view.customPageSize(), QString());
    QCOMPARE(pane.view.title(), u"No option selected"_s);
}

void TestPPDOptionView::realNumber()
{
    Pane pane;
    PPDTree::NumericalItem *number = pane.addNumber(true, 0.5, 2.0, 1.0004);
    pane.view.setOption(number);
    QCOMPARE(pane.stack->currentIndex(), int{NumericPage});
    QCOMPARE(pane.view.title(), u"Dozen"_s);
    QCOMPARE(number->m_value, 1.0004);
    const auto *slider = child<QSlider>(pane.view, "sliderValue");
    QCOMPARE(slider->minimum(), 500);
    QCOMPARE(slider->maximum(), 2000);
    QCOMPARE(slider->pageStep(), 75);
    QCOMPARE(child<QLabel>(pane.view, "labelMin")->text(), shown("0.500"));
    QCOMPARE(child<QLabel>(pane.view, "labelMax")->text(), shown("2.000"));
    type(child<QLineEdit>(pane.view, "editValue"), shown("1.25"));
    QCOMPARE(slider->value(), 1250);
    QCOMPARE(number->m_value, 1.25);
    QCOMPARE(number->text(0), u"Dozen: <1.250>"_s);
    QCOMPARE(pane.changed.count(), 0);
}

void TestPPDOptionView::integerNumber()
{
    Pane pane;
    PPDTree::NumericalItem *number = pane.addNumber(false, 0, 100, 50);
    pane.view.setOption(number);
    QCOMPARE(child<QLineEdit>(pane.view, "editValue")->text(), u"50"_s);
    QTest::keyClick(child<QSlider>(pane.view, "sliderValue"), Qt::Key_PageUp);
    QCOMPARE(number->m_value, 55.0);
    QCOMPARE(pane.changed.count(), 0);
}

void TestPPDOptionView::scaleStaysReal()
{
    Pane pane;
    pane.view.setOption(pane.addNumber(true, 0.5, 2.0, 1));
    pane.view.setOption(pane.addNumber(false, 0, 10, 5));
    QCOMPARE(only<PPDNumericView>(pane.view)->scale(), 1000);
    QCOMPARE(child<QSlider>(pane.view, "sliderValue")->maximum(), 10000);
    QCOMPARE(child<QLabel>(pane.view, "labelMax")->text(), shown("10.000"));
}

void TestPPDOptionView::numberNeedsItsDepth()
{
    Pane pane;
    auto *number =
        new PPDTree::NumericalItem(pane.ppd.get(), pane.row("Dozen")->m_option, pane.tree.m_root);
    QCOMPARE(number->depth(), 1);
    pane.view.setOption(number);
    QCOMPARE(pane.stack->currentIndex(), int{EmptyPage});
    pane.view.valueChanged(42);
    QVERIFY(number->m_value != 42);
}

void TestPPDOptionView::numberIsEnabledAfterAnInstalledOption()
{
    Pane pane;
    pane.select("Tray");
    QVERIFY(!pane.stack->isEnabled());
    pane.view.setOption(pane.addNumber(false, 0, 10, 5));
    QVERIFY(pane.stack->isEnabled());
}

void TestPPDOptionView::installedOptionsAreDisabled()
{
    Pane pane;
    pane.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane.view));
    pane.select("Tray");
    QVERIFY(!pane.stack->isEnabled());
    QTest::mouseClick(pane.button("button2"), Qt::LeftButton, {}, {10, 10});
    QCOMPARE(marked(pane.ppd, "Tray"), u"False"_s);
    QCOMPARE(pane.changed.count(), 0);
    pane.select("Toggle");
    QVERIFY(pane.stack->isEnabled());
}

void TestPPDOptionView::signalsStayBlockedIfTheyWere()
{
    Pane pane;
    pane.view.blockSignals(true);
    pane.select("Toggle");
    QVERIFY(pane.view.signalsBlocked());
}

void TestPPDOptionView::slotsWithoutARow()
{
    Pane pane;
    pane.view.selectionChanged(0);
    QCOMPARE(pane.changed.count(), 1);
    pane.view.valueChanged(1);
    pane.view.customChanged();
    QCOMPARE(pane.changed.count(), 1);
    pane.select("Dozen");
    pane.view.customChanged();
    QCOMPARE(pane.changed.count(), 1);
    pane.view.selectionChanged(-1);
    QCOMPARE(marked(pane.ppd, "Dozen"), u"C7"_s);
    QCOMPARE(pane.changed.count(), 2);
}

void TestPPDOptionView::indexOutOfRangeIsTheFirst()
{
    Pane pane;
    pane.select("Dozen");
    pane.view.selectionChanged(12);
    QCOMPARE(marked(pane.ppd, "Dozen"), u"C1"_s);
    QCOMPARE(pane.changed.count(), 1);
}

void TestPPDOptionView::withTheTree()
{
    Pane pane;
    connect(&pane.tree, qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged), &pane.view,
            &PPDOptionView::setOption);
    pane.tree.setCurrentItem(pane.row("Dozen"));
    QCOMPARE(pane.view.title(), u"Dozen"_s);
    QTest::keyClick(pane.choices, Qt::Key_Down);
    QCOMPARE(marked(pane.ppd, "Dozen"), u"C8"_s);
    pane.tree.setPPD(nullptr);
    QCOMPARE(pane.view.title(), u"No option selected"_s);
}

void TestPPDOptionView::spokenNames()
{
    Pane pane;
    pane.select("Dozen");
    QCOMPARE(pane.choices->accessibleName(), u"Dozen"_s);
    pane.select("APasscode");
    QCOMPARE(only<QListWidget>(*pane.custom)->accessibleName(), u"Passcode"_s);
    QAccessibleInterface *code =
        QAccessible::queryAccessibleInterface(only<QLineEdit>(*pane.custom));
    QCOMPARE(code->text(QAccessible::Name), u"Code"_s);
    QVERIFY(code->state().passwordEdit);
}

int main(int argc, char **argv)
{
    return runInBothLocales<TestPPDOptionView>(argc, argv);
}
#include "tst_ppdoptionview.moc"
