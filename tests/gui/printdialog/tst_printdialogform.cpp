#include "DialogTest.h"
#include "ui_PrintDialogBase.h"

#include <QAccessible>
#include <QSet>

using namespace Qt::StringLiterals;
using DialogTest::child;

/** The form alone: what is in it before the dialog fills it. */
class TestPrintDialogForm : public QObject
{
    Q_OBJECT
public:
    TestPrintDialogForm()
    {
        Q_INIT_RESOURCE(printdialog);
        m_form.setupUi(&m_dialog);
    }

private slots:
    void window();
    void widgets_data();
    void widgets();
    void layouts_data();
    void layouts();
    void initialState();
    void serverTextsArePlain_data();
    void serverTextsArePlain();
    void mnemonicsDiffer();
    void buddies();
    void tabOrder();
    void accessibleNames_data();
    void accessibleNames();

private:
    QDialog m_dialog;
    Ui::PrintDialogBase m_form;
};

void TestPrintDialogForm::window()
{
    QCOMPARE(m_dialog.windowTitle(), u"LPR GUI"_s);
    QVERIFY(!m_dialog.windowIcon().isNull());
    QVERIFY(QFile::exists(u":/printdialog/images/PrintDialogIcon.png"_s));
    QCOMPARE(m_dialog.layout()->objectName(), u"gridLayout"_s);
}

void TestPrintDialogForm::widgets_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("groupBox") << "QGroupBox"
                              << "Printer";
    QTest::newRow("PrintersCombo") << "QComboBox" << QString();
    QTest::newRow("SetAsDefButton") << "QPushButton"
                                    << "Set as User Default";
    QTest::newRow("PropertiesButton") << "QPushButton"
                                      << "Properties...";
    QTest::newRow("PrinterImage") << "QLabel"
                                  << "";
    QTest::newRow("StartButton") << "QPushButton"
                                 << "Start";
    QTest::newRow("LocationLabel") << "QLabel"
                                   << "Location:";
    QTest::newRow("LocationText") << "QLabel"
                                  << "unknown";
    QTest::newRow("StatusLabel") << "QLabel"
                                 << "Status:";
    QTest::newRow("StatusText") << "QLabel"
                                << "unknown";
    QTest::newRow("DescriptionLabel") << "QLabel"
                                      << "Description:";
    QTest::newRow("DescriptionText") << "QLabel"
                                     << "unknown";
    QTest::newRow("groupBox_2") << "QGroupBox"
                                << "Page Selection";
    QTest::newRow("AllPagesRadio") << "QRadioButton"
                                   << "All pages";
    QTest::newRow("EvenPagesRadio") << "QRadioButton"
                                    << "Even pages";
    QTest::newRow("OddPagesRadio") << "QRadioButton"
                                   << "Odd pages";
    QTest::newRow("SomePagesRadio") << "QRadioButton"
                                    << "Some pages:";
    QTest::newRow("PagesEdit") << "QLineEdit"
                               << "";
    QTest::newRow("PagesComments")
        << "QLabel"
        << "Enter page numbers and/or groups of pages to print separated by commas "
           "(1,2-5,10-12,17).";
    QTest::newRow("groupBox_3") << "QGroupBox"
                                << "Copies";
    QTest::newRow("CopiesLabel") << "QLabel"
                                 << "Copies [1~100]:";
    QTest::newRow("CopiesSpinBox") << "QSpinBox"
                                   << "1";
    QTest::newRow("CollateCheckBox") << "QCheckBox"
                                     << "Collate copies";
    QTest::newRow("ReverseCheckBox") << "QCheckBox"
                                     << "Reverse All Pages (3,2,1)";
    QTest::newRow("CopiesImage") << "QLabel"
                                 << "";
    QTest::newRow("buttonHelp") << "QPushButton"
                                << "&Help";
    QTest::newRow("OkButton") << "QPushButton"
                              << "&OK";
    QTest::newRow("CancelButton") << "QPushButton"
                                  << "&Cancel";
}

void TestPrintDialogForm::widgets()
{
    const auto widget = child<QWidget>(m_dialog, QTest::currentDataTag());
    QTEST(QString::fromLatin1(widget->metaObject()->className()), "type");
    const char *property = widget->inherits("QGroupBox") ? "title" : "text";
    QTEST(widget->property(property).toString(), "text");
}

void TestPrintDialogForm::layouts_data()
{
    QTest::addColumn<QString>("type");
    for (const char *grid :
         {"gridLayout", "gridLayout1", "gridLayout2", "gridLayout3", "gridLayout4"})
        QTest::newRow(grid) << "QGridLayout";
    QTest::newRow("vboxLayout") << "QVBoxLayout";
    QTest::newRow("hboxLayout") << "QHBoxLayout";
    QTest::newRow("hboxLayout1") << "QHBoxLayout";
}

void TestPrintDialogForm::layouts()
{
    const auto layout = m_dialog.findChild<QLayout *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(layout);
    QTEST(QString::fromLatin1(layout->metaObject()->className()), "type");
}

void TestPrintDialogForm::initialState()
{
    QVERIFY(m_form.AllPagesRadio->isChecked());
    QVERIFY(m_form.CollateCheckBox->isChecked());
    QVERIFY(!m_form.ReverseCheckBox->isChecked());
    QCOMPARE(m_form.CopiesSpinBox->minimum(), 1);
    QCOMPARE(m_form.CopiesSpinBox->maximum(), 100);
    QCOMPARE(m_form.CopiesSpinBox->value(), 1);
    QCOMPARE(m_form.PrintersCombo->count(), 0);
    QVERIFY(!m_form.PrintersCombo->isEditable());
    QVERIFY(m_form.PagesComments->wordWrap());
    QVERIFY(m_form.OkButton->isDefault());
}

void TestPrintDialogForm::serverTextsArePlain_data()
{
    QTest::addColumn<QLabel *>("label");
    QTest::newRow("location") << m_form.LocationText;
    QTest::newRow("status") << m_form.StatusText;
    QTest::newRow("description") << m_form.DescriptionText;
}

void TestPrintDialogForm::serverTextsArePlain()
{
    QFETCH(QLabel *, label);
    QCOMPARE(label->textFormat(), Qt::PlainText);
}

void TestPrintDialogForm::mnemonicsDiffer()
{
    QStringList mnemonics;
    const QList<QWidget *> all = m_dialog.findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        for (const char *property : {"text", "title"}) {
            const QString text = widget->property(property).toString();
            const QKeySequence key = QKeySequence::mnemonic(text);
            if (!key.isEmpty())
                mnemonics.append(key.toString());
        }
    }
    mnemonics.sort();
    QCOMPARE(mnemonics, QStringList({u"Alt+C"_s, u"Alt+H"_s, u"Alt+O"_s}));
}

void TestPrintDialogForm::buddies()
{
    QCOMPARE(m_form.CopiesLabel->buddy(), m_form.CopiesSpinBox);
    QCOMPARE(m_form.PagesComments->buddy(), m_form.PagesEdit);
}

void TestPrintDialogForm::tabOrder()
{
    QStringList order;
    QWidget *widget = &m_dialog;
    while ((widget = widget->nextInFocusChain()) != &m_dialog) {
        if ((widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy() &&
            !widget->objectName().startsWith(u"qt_"))
            order.append(widget->objectName());
    }
    QCOMPARE(order, QStringList({u"PrintersCombo"_s, u"SetAsDefButton"_s, u"PropertiesButton"_s,
                                 u"StartButton"_s, u"AllPagesRadio"_s, u"EvenPagesRadio"_s,
                                 u"OddPagesRadio"_s, u"SomePagesRadio"_s, u"PagesEdit"_s,
                                 u"CopiesSpinBox"_s, u"CollateCheckBox"_s, u"ReverseCheckBox"_s,
                                 u"buttonHelp"_s, u"OkButton"_s, u"CancelButton"_s}));
}

void TestPrintDialogForm::accessibleNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("PrintersCombo") << "Printer";
    QTest::newRow("SetAsDefButton") << "Set as User Default";
    QTest::newRow("PropertiesButton") << "Properties...";
    QTest::newRow("PrinterImage") << "Picture of the printer";
    QTest::newRow("StartButton") << "Start";
    QTest::newRow("AllPagesRadio") << "All pages";
    QTest::newRow("EvenPagesRadio") << "Even pages";
    QTest::newRow("OddPagesRadio") << "Odd pages";
    QTest::newRow("SomePagesRadio") << "Some pages:";
    QTest::newRow("PagesEdit") << "Pages to print";
    QTest::newRow("CopiesSpinBox") << "Copies";
    QTest::newRow("CollateCheckBox") << "Collate copies";
    QTest::newRow("ReverseCheckBox") << "Reverse All Pages (3,2,1)";
    QTest::newRow("CopiesImage") << "Order of the printed pages";
    QTest::newRow("buttonHelp") << "Help";
    QTest::newRow("OkButton") << "OK";
    QTest::newRow("CancelButton") << "Cancel";
}

void TestPrintDialogForm::accessibleNames()
{
    QAccessibleInterface *accessible =
        QAccessible::queryAccessibleInterface(child<QWidget>(m_dialog, QTest::currentDataTag()));
    QVERIFY(accessible);
    QTEST(accessible->text(QAccessible::Name), "name");
}

QTEST_MAIN(TestPrintDialogForm)
#include "tst_printdialogform.moc"
