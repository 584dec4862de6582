#include "DialogRun.h"
#include "Plugins.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <array>

/** A run that has no file to print. The dialogs make the application object, so there is one run.
 */

extern "C" DialogRun::Outcome vesk_run_dialogs(DialogRun &run);

namespace
{
/** What was seen while the file dialog was open. */
struct Seen {
    bool isFileDialog = false;
    bool isModal = false;
    bool hasParent = true;
    QString title;
    QString folder;
    QFileDialog::FileMode mode = QFileDialog::AnyFile;
    QFileDialog::AcceptMode acceptMode = QFileDialog::AcceptSave;
    QStringList nameFilters;
    QStringList pluginPaths;
};
Seen seen;

void lookAtTheDialog()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal) {
        QTimer::singleShot(10, lookAtTheDialog);
        return;
    }
    seen.pluginPaths = Plugins::pluginPaths();
    seen.isModal = modal->isModal();
    seen.hasParent = modal->parentWidget() != nullptr;
    seen.title = modal->windowTitle();
    if (auto *dialog = qobject_cast<QFileDialog *>(modal)) {
        seen.isFileDialog = true;
        seen.folder = dialog->directory().path();
        seen.mode = dialog->fileMode();
        seen.acceptMode = dialog->acceptMode();
        seen.nameFilters = dialog->nameFilters();
    }
    modal->close();
}

void watchFromTheStart()
{
    QTimer::singleShot(0, lookAtTheDialog);
}
} // namespace
Q_COREAPP_STARTUP_FUNCTION(watchFromTheStart)

class TestDialogRun : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void asksForFiles();
    void startsAtHome();
    void offersAllFiles();
    void findsThePlugins();
    void endsWithoutFiles();

private:
    QTemporaryDir m_home;
    DialogRun::Outcome m_outcome = DialogRun::Outcome::Accepted;
    DialogRun m_run;
};

void TestDialogRun::initTestCase()
{
    qputenv("HOME", QFile::encodeName(m_home.path()));
    qputenv("VESK_PLUGIN_DIR", "/one;/two words;;/three");
    static std::array<char, 5> name{"vesk"};
    m_run.toolkitArguments = {name.data()};
    m_run.arguments = {name.data()};
    m_run.programPath = "/nonexistent/mfp/bin/vesk";
    m_outcome = vesk_run_dialogs(m_run);
}

void TestDialogRun::asksForFiles()
{
    QVERIFY(seen.isFileDialog);
    QVERIFY(seen.isModal);
    QVERIFY(!seen.hasParent);
    QCOMPARE(seen.title, QStringLiteral("Select file(s) to print"));
    QCOMPARE(seen.mode, QFileDialog::ExistingFiles);
    QCOMPARE(seen.acceptMode, QFileDialog::AcceptOpen);
}

void TestDialogRun::startsAtHome()
{
    QCOMPARE(seen.folder, m_home.path());
}

void TestDialogRun::offersAllFiles()
{
    // What the toolkit says of a dialog that was given no filter.
    QCOMPARE(seen.nameFilters, QStringList{QStringLiteral("All Files (*)")});
}

void TestDialogRun::findsThePlugins()
{
    QCOMPARE(seen.pluginPaths, (QStringList{QStringLiteral("/one"), QStringLiteral("/two words"),
                                            QStringLiteral("/three")}));
}

void TestDialogRun::endsWithoutFiles()
{
    QCOMPARE(m_outcome, DialogRun::Outcome::NoFiles);
    QVERIFY(m_run.files.empty());
    QVERIFY(m_run.clientOptions.empty());
}

QTEST_APPLESS_MAIN(TestDialogRun)
#include "tst_dialogrun.moc"
