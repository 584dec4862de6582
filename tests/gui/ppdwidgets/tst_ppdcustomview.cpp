#include "PPDCustomView.h"

#include "CustomPageSizeView.h"
#include "EditorsTestSupport.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>

using namespace EditorsTest;
using namespace Qt::StringLiterals;

namespace
{
/** A view that shows an option of the PPD. */
struct Custom {
    explicit Custom(const char *keyword, const Cups::PpdPtr &opened = openPpd())
        : ppd(opened)
        , list(child<QListWidget>(view, "m_valuesListWidget"))
        , box(child<QGroupBox>(view, "m_customBox"))
    {
        setUp(keyword);
    }
    void setUp(const char *keyword)
    {
        view.setup(ppdFindOption(ppd.get(), keyword), ppdFindCustomOption(ppd.get(), keyword));
    }
    QStringList texts() const
    {
        QStringList result;
        for (int row = 0; row < list->count(); ++row)
            result.append(list->item(row)->text());
        return result;
    }

    Cups::PpdPtr ppd;
    PPDCustomView view;
    QListWidget *list;
    QGroupBox *box;
};

Cups::PpdPtr openMarked(const char *keyword, const char *choice)
{
    Cups::PpdPtr ppd = openPpd();
    ppdMarkOption(ppd.get(), keyword, choice);
    return ppd;
}

constexpr int customRow = 1;
constexpr int customPageSizeRow = 2;
} // namespace

/** The choices of an option with its custom values. */
class TestPPDCustomView : public QObject
{
    Q_OBJECT
private slots:
    void formAsDesigned();
    void typeNames_data();
    void typeNames();
    void choicesOfTheOption();
    void lastMarkedChoiceIsCurrent();
    void withoutAMarkTheFirstIsCurrent();
    void boxIsEnabledForCustomOnly();
    void settingUpEmitsNoChangeOfTheList();
    void editorOfEachType_data();
    void editorOfEachType();
    void oneParameter();
    void twoParameters();
    void listValuesThatNeedEscapes();
    void fixedParameterIsHiddenButCounts();
    void noParameters();
    void unsupportedType_data();
    void unsupportedType();
    void pageSize();
    void pageSizeStartsAtItsDefault();
    void pageSizeShowsTheMarkedSize();
    void pageSizeEditIsTold();
    void setUpAgainRemovesTheEditors();
    void setUpFromAnEditorsSignal();
    void nullOption();
    void nullCustomOption();
    void optionWithoutChoices();
    void brokenPageSizeIsFatal();
    void labelsAreAlignedAndLiteral();
    void longLabelsAreWrapped();
    void editedByTheKeyboard();
};

void TestPPDCustomView::formAsDesigned()
{
    const PPDCustomView view;
    QCOMPARE(view.objectName(), u"Form"_s);
    QCOMPARE(child<QGroupBox>(view, "m_customBox")->title(), u"Custom Value"_s);
    QCOMPARE(view.currentRow(), -1);
    QVERIFY(!view.isCustomSelected());
    QCOMPARE(view.customValue(), QString());
}

void TestPPDCustomView::typeNames_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::newRow("0") << 0 << u"PPD_CUSTOM_CURVE"_s;
    QTest::newRow("1") << 1 << u"PPD_CUSTOM_INT"_s;
    QTest::newRow("2") << 2 << u"PPD_CUSTOM_INVCURVE"_s;
    QTest::newRow("3") << 3 << u"PPD_CUSTOM_PASSCODE"_s;
    QTest::newRow("4") << 4 << u"PPD_CUSTOM_PASSWORD"_s;
    QTest::newRow("5") << 5 << u"PPD_CUSTOM_POINTS"_s;
    QTest::newRow("6") << 6 << u"PPD_CUSTOM_REAL"_s;
    QTest::newRow("7") << 7 << u"PPD_CUSTOM_STRING"_s;
}

void TestPPDCustomView::typeNames()
{
    QFETCH(int, number);
    QTEST(PPDCustomView::m_typeNames.value(number), "name");
    QCOMPARE(PPDCustomView::m_typeNames.size(), 8);
}

void TestPPDCustomView::choicesOfTheOption()
{
    const Custom custom("PageSize");
    QCOMPARE(custom.texts(), QStringList({u"A4"_s, u"US Letter"_s, u"Custom"_s}));
    QCOMPARE(custom.list->item(1)->data(Qt::UserRole).toString(), u"Letter"_s);
    QCOMPARE(custom.view.currentRow(), 0);
    QVERIFY(!custom.view.isCustomSelected());
    QVERIFY(!custom.box->isEnabled());
}

void TestPPDCustomView::lastMarkedChoiceIsCurrent()
{
    const Cups::PpdPtr ppd = openPpd();
    ppd_option_t *option = ppdFindOption(ppd.get(), "PageSize");
    option->choices[0].marked = 1;
    option->choices[1].marked = 1;
    const Custom custom("PageSize", ppd);
    QCOMPARE(custom.view.currentRow(), 1);
    QCOMPARE(custom.list->selectedItems(), QList{custom.list->item(1)});
}

void TestPPDCustomView::withoutAMarkTheFirstIsCurrent()
{
    const Cups::PpdPtr ppd = openPpd();
    ppdFindMarkedChoice(ppd.get(), "PageSize")->marked = 0;
    const Custom custom("PageSize", ppd);
    QCOMPARE(custom.view.currentRow(), 0);
    QVERIFY(!custom.box->isEnabled());
}

void TestPPDCustomView::boxIsEnabledForCustomOnly()
{
    const Custom custom("PageSize", openMarked("PageSize", "Custom.300x400pt"));
    QCOMPARE(custom.view.currentRow(), customPageSizeRow);
    QVERIFY(custom.view.isCustomSelected());
    QVERIFY(custom.box->isEnabled());
    only<CustomPageSizeView>(custom.view);

    const QSignalSpy told(&custom.view, &PPDCustomView::choiceChanged);
    QTest::keyClick(custom.list, Qt::Key_Home);
    QVERIFY(!custom.box->isEnabled());
    QCOMPARE(told.count(), 1);
    QTest::keyClick(custom.list, Qt::Key_End);
    QVERIFY(custom.box->isEnabled());
    QVERIFY(custom.view.isCustomSelected());
    QCOMPARE(told.count(), 2);
}

void TestPPDCustomView::settingUpEmitsNoChangeOfTheList()
{
    Custom custom("Two");
    const QSignalSpy told(&custom.view, &PPDCustomView::choiceChanged);
    custom.setUp("AReal");
    custom.setUp("Two");
    QCOMPARE(told.count(), 0);
}

void TestPPDCustomView::editorOfEachType_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    QTest::newRow("curve") << QByteArray("ACurve") << shown("2.5") << u"Custom.2.500"_s;
    QTest::newRow("int") << QByteArray("AnInt") << u"-7"_s << u"Custom.-7"_s;
    QTest::newRow("inverse curve")
        << QByteArray("AnInvCurve") << shown("0.25") << u"Custom.0.250"_s;
    QTest::newRow("passcode") << QByteArray("APasscode") << u"12345"_s << u"Custom.12345"_s;
    QTest::newRow("password") << QByteArray("APassword") << u"s3cret"_s << u"Custom.s3cret"_s;
    QTest::newRow("points") << QByteArray("APoints") << shown("1234.5") << u"Custom.1234.500"_s;
    QTest::newRow("real") << QByteArray("AReal") << shown("-1.5") << u"Custom.-1.500"_s;
    QTest::newRow("string") << QByteArray("AString") << u"two words"_s << u"Custom.two words"_s;
}

void TestPPDCustomView::editorOfEachType()
{
    QFETCH(QByteArray, keyword);
    QFETCH(QString, typed);
    QFETCH(QString, value);
    const Custom custom(keyword.constData(), openMarked(keyword.constData(), "Custom"));
    QTest::keyClick(custom.list, Qt::Key_End);
    const QSignalSpy told(&custom.view, &PPDCustomView::choiceChanged);
    auto *spinBox = custom.box->findChild<QAbstractSpinBox *>();
    type(spinBox ? spinBox : static_cast<QWidget *>(only<QLineEdit>(*custom.box)), typed);
    QCOMPARE(custom.view.customValue(), value);
    QVERIFY(told.count() > 0);

    // The library reads it back: marked again, the view shows the same.
    ppdMarkOption(custom.ppd.get(), keyword.constData(), value.toUtf8().constData());
    const Custom again(keyword.constData(), custom.ppd);
    QCOMPARE(again.view.customValue(), value);
    QVERIFY(again.view.isCustomSelected());
}

void TestPPDCustomView::oneParameter()
{
    const Cups::PpdPtr ppd = openPpd();
    param(ppd, "AReal", "Real").current.custom_real = 1.5F;
    const Custom custom("AReal", ppd);
    QCOMPARE(custom.view.customValue(), u"Custom.1.500"_s);
}

void TestPPDCustomView::twoParameters()
{
    const Custom custom("Two", openMarked("Two", "{Resolution=300 Mode=fast}"));
    QCOMPARE(custom.view.customValue(), u"{Resolution=300 Mode=fast}"_s);
    QVERIFY(custom.view.isCustomSelected());
}

void TestPPDCustomView::listValuesThatNeedEscapes()
{
    const Custom custom("Two", openMarked("Two", "Custom"));
    auto *mode = custom.box->findChildren<QLineEdit *>().last();
    const QString text = u"two words}' \\ \"x\" Resolution=5"_s;
    type(mode, text);
    ppdMarkOption(custom.ppd.get(), "Two", custom.view.customValue().toUtf8().constData());
    QCOMPARE(QString::fromUtf8(param(custom.ppd, "Two", "Mode").current.custom_string), text);
    QCOMPARE(param(custom.ppd, "Two", "Resolution").current.custom_int, 0);
}

void TestPPDCustomView::fixedParameterIsHiddenButCounts()
{
    Custom custom("Partly", openMarked("Partly", "Custom"));
    custom.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&custom.view));
    const auto boxes = custom.box->findChildren<QDoubleSpinBox *>();
    QCOMPARE(boxes.size(), 2);
    QVERIFY(boxes[0]->isVisible());
    QVERIFY(!boxes[1]->isVisible());
    QCOMPARE(custom.view.customValue(), u"{Factor=0.250 Fixed=1.000}"_s);
}

void TestPPDCustomView::noParameters()
{
    const Custom custom("Bare", openMarked("Bare", "Custom"));
    QCOMPARE(custom.texts(), QStringList({u"Plain"_s, u"Custom"_s}));
    QCOMPARE(custom.view.customValue(), QString());
}

void TestPPDCustomView::unsupportedType_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("above the last") << 8 << QByteArray("Unsupported type 8\n");
    QTest::newRow("far above") << 100 << QByteArray("Unsupported type 100\n");
    QTest::newRow("unknown") << -1 << QByteArray("Unsupported type -1\n");
}

void TestPPDCustomView::unsupportedType()
{
    QFETCH(int, number);
    const Cups::PpdPtr ppd = openPpd();
    ppd_cparam_t &changed = param(ppd, "Two", "Mode");
    std::memcpy(&changed.type, &number, sizeof number);
    QString value;
    const QByteArray message =
        standardErrorOf([&] { value = Custom("Two", ppd).view.customValue(); });
    changed.type = PPD_CUSTOM_STRING;
    QTEST(message, "message");
    QCOMPARE(value, u"Custom.0"_s);
}

void TestPPDCustomView::pageSize()
{
    const Custom custom("PageSize", openMarked("PageSize", "Custom.72x72pt"));
    QCOMPARE(custom.view.customValue(), u"Custom.72.000x72.000pt"_s);
    QCOMPARE(custom.box->findChildren<QSpinBox *>().size(), 0);
    type(child<QDoubleSpinBox>(*custom.box, "m_widthSpinBox"), shown("595.28"));
    type(child<QDoubleSpinBox>(*custom.box, "m_heightSpinBox"), shown("841.89"));
    QCOMPARE(custom.view.customValue(), u"Custom.595.280x841.890pt"_s);
    child<QComboBox>(*custom.box, "m_unitsComboBox")->setCurrentIndex(1);
    QCOMPARE(custom.view.customValue(), u"Custom.210.015x297.019mm"_s);
}

void TestPPDCustomView::pageSizeStartsAtItsDefault()
{
    const Custom inches("PageSize",
                        openPpdWith("*DefaultPageSize: A4", "*DefaultPageSize: Custom.8.5x11in"));
    QVERIFY(inches.view.isCustomSelected());
    QCOMPARE(inches.view.customValue(), u"Custom.8.500x11.000in"_s);
    const Custom unreadable("PageSize");
    QCOMPARE(unreadable.view.customValue(), u"Custom.72.000x72.000pt"_s);
}

void TestPPDCustomView::pageSizeShowsTheMarkedSize()
{
    const Custom custom("PageSize", openMarked("PageSize", "Custom.300.5x400.25pt"));
    QCOMPARE(custom.view.customValue(), u"Custom.300.500x400.250pt"_s);
}

void TestPPDCustomView::pageSizeEditIsTold()
{
    const Custom custom("PageSize", openMarked("PageSize", "Custom.300x400pt"));
    const QSignalSpy told(&custom.view, &PPDCustomView::choiceChanged);
    child<QDoubleSpinBox>(*custom.box, "m_widthSpinBox")->setValue(100);
    QCOMPARE(told.count(), 1);
}

void TestPPDCustomView::setUpAgainRemovesTheEditors()
{
    Custom custom("PageSize");
    custom.setUp("Two");
    QCOMPARE(custom.box->findChildren<CustomPageSizeView *>().size(), 0);
    QCOMPARE(custom.box->findChildren<QLineEdit *>(u"qt_spinbox_lineedit"_s).size(), 1);
    QCOMPARE(custom.texts(), QStringList({u"Plain"_s, u"Custom"_s}));
    custom.setUp("AString");
    QCOMPARE(custom.box->findChildren<QSpinBox *>().size(), 0);
    only<QLineEdit>(*custom.box);
    QCOMPARE(custom.view.customValue(), u"Custom."_s);
}

void TestPPDCustomView::setUpFromAnEditorsSignal()
{
    Custom custom("AReal", openMarked("AReal", "Custom"));
    connect(
        &custom.view, &PPDCustomView::choiceChanged, &custom.view, [&] { custom.setUp("AString"); },
        Qt::SingleShotConnection);
    type(only<QDoubleSpinBox>(*custom.box), u"5"_s);
    only<QLineEdit>(*custom.box);
    QCoreApplication::processEvents();
    QCOMPARE(custom.view.customValue(), u"Custom."_s);
}

void TestPPDCustomView::nullOption()
{
    Custom custom("PageSize");
    custom.view.setup(nullptr, nullptr);
    QCOMPARE(custom.box->findChildren<QAbstractSpinBox *>().size(), 0);
    QCOMPARE(custom.view.customValue(), QString());
}

void TestPPDCustomView::nullCustomOption()
{
    Custom custom("PageSize");
    custom.view.setup(ppdFindOption(custom.ppd.get(), "Dozen"), nullptr);
    QCOMPARE(custom.list->count(), 12);
    QCOMPARE(custom.view.currentRow(), 6);
    QCOMPARE(custom.view.customValue(), QString());
}

void TestPPDCustomView::optionWithoutChoices()
{
    Custom custom("PageSize");
    custom.view.setup(ppdFindOption(custom.ppd.get(), "Empty"),
                      ppdFindCustomOption(custom.ppd.get(), "AReal"));
    QCOMPARE(custom.view.currentRow(), -1);
    QVERIFY(!custom.view.isCustomSelected());
    QVERIFY(!custom.box->isEnabled());
}

void TestPPDCustomView::brokenPageSizeIsFatal()
{
    const Cups::PpdPtr ppd = openPpd();
    std::strcpy(param(ppd, "PageSize", "Height").name, "Other");
    const End end = endOf([&] { Custom("PageSize", ppd); });
    QCOMPARE(end.signal, SIGABRT);
    QCOMPARE(end.message.trimmed(), QByteArray("Height not found!"));
}

void TestPPDCustomView::labelsAreAlignedAndLiteral()
{
    Custom custom("Two", openMarked("Two", "Custom"));
    custom.view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&custom.view));
    const auto labels = custom.box->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 2);
    QCOMPARE(labels[0]->width(), labels[1]->width());
    custom.setUp("AReal");
    QCOMPARE(only<QLabel>(*custom.box)->text(), u"Factor && more"_s);
}

void TestPPDCustomView::longLabelsAreWrapped()
{
    const QByteArray text("How far the picture is to be moved to the right of the left margin");
    Custom custom("APoints", openPpdWith("Points/Shift", "Points/" + text));
    const auto *label = only<QLabel>(*custom.box);
    QCOMPARE(label->text(), QString::fromUtf8(text));
    QVERIFY(label->wordWrap());
    QVERIFY(custom.box->minimumSizeHint().width() <
            label->fontMetrics().horizontalAdvance(label->text()));
}

void TestPPDCustomView::editedByTheKeyboard()
{
    Custom custom("Two");
    custom.view.show();
    QVERIFY(QTest::qWaitForWindowActive(&custom.view));
    custom.list->setFocus();
    QTest::keyClick(custom.list, Qt::Key_Down);
    QCOMPARE(custom.view.currentRow(), customRow);
    QTest::keyClick(custom.list, Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"45"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), u"fast"_s);
    QCOMPARE(custom.view.customValue(), u"{Resolution=45 Mode=fast}"_s);
}

int main(int argc, char **argv)
{
    return runInBothLocales<TestPPDCustomView>(argc, argv);
}
#include "tst_ppdcustomview.moc"
