#include "IPPRequest.h"
#include "PasswordPrompt.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

class TestPasswordPrompt : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void asksInAModalDialog();
    void givesWhatWasTyped_data();
    void givesWhatWasTyped();
    void givesNothingWhenCancelled_data();
    void givesNothingWhenCancelled();

private:
    /** Answers the dialog that `rootPasswordCallback` opens; returns what that returned. */
    QByteArray answer(const std::function<void(QInputDialog &)> &reply);

    bool m_wasAsked = false;
};

void TestPasswordPrompt::initTestCase()
{
    PasswordPrompt::install();
}

void TestPasswordPrompt::init()
{
    m_wasAsked = false;
}

QByteArray TestPasswordPrompt::answer(const std::function<void(QInputDialog &)> &reply)
{
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        look.stop();
        m_wasAsked = true;
        reply(*dialog);
        dialog->close(); // where the reply has not
    });
    look.start(10);
    return IPPRequest::rootPasswordCallback("Password for root on localhost? ");
}

void TestPasswordPrompt::asksInAModalDialog()
{
    answer([](QInputDialog &dialog) {
        QVERIFY(dialog.isModal());
        QVERIFY(!dialog.parentWidget());
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Authorization"));
        QCOMPARE(dialog.labelText(), QStringLiteral("Please, enter the root password:"));
        QCOMPARE(dialog.inputMode(), QInputDialog::TextInput);
        QCOMPARE(dialog.textEchoMode(), QLineEdit::Password);
        QCOMPARE(dialog.textValue(), QString());
        QCOMPARE(dialog.findChild<QLineEdit *>()->echoMode(), QLineEdit::Password);
    });
    QVERIFY(m_wasAsked);
}

void TestPasswordPrompt::givesWhatWasTyped_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *text : {"secret", " with blanks ", "\"quotes'\\"})
        QTest::newRow(text) << QString::fromUtf8(text);
}

void TestPasswordPrompt::givesWhatWasTyped()
{
    QFETCH(QString, typed);
    const QByteArray password = answer([&typed](QInputDialog &dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit *>(), typed);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QVERIFY(m_wasAsked);
    QCOMPARE(password, typed.toUtf8());
}

void TestPasswordPrompt::givesNothingWhenCancelled_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::newRow("cancelled") << QString() << int(Qt::Key_Escape);
    QTest::newRow("cancelled after typing") << QStringLiteral("secret") << int(Qt::Key_Escape);
    QTest::newRow("nothing typed") << QString() << int(Qt::Key_Return);
}

void TestPasswordPrompt::givesNothingWhenCancelled()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    const QByteArray password = answer([&](QInputDialog &dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit *>(), typed);
        QTest::keyClick(&dialog, static_cast<Qt::Key>(key));
    });
    QVERIFY(m_wasAsked);
    QVERIFY(password.isNull());
}

QTEST_MAIN(TestPasswordPrompt)
#include "tst_passwordprompt.moc"
