#include "HelpLauncher.h"
#include "InstallationSettings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace HelpLauncher;

namespace
{
QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

About emptyAbout()
{
    About about;
    about.topic.clear();
    about.helpDirectory.clear();
    return about;
}
} // namespace

class TestHelpLauncher : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void installationsFolders();
    void folderOfAnEmptyRoot();
    void companionInItsFolder();
    void pageByDefault();
    void pageOfADialog();
    void pageWithoutATopic();
    void aboutByDefault();
    void aboutLeavesOutWhatIsEmpty_data();
    void aboutLeavesOutWhatIsEmpty();
    void aboutWithAll();
    void aboutWithNothing();
    void folders_data();
    void folders();
    void pageInALanguage_data();
    void pageInALanguage();
    void noPage();

private:
    void place(const QString &name);

    std::unique_ptr<QTemporaryDir> m_root;
};

void TestHelpLauncher::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(m_root->isValid());
    InstallationSettings::load("/opt/x/bin/vesk");
}

void TestHelpLauncher::place(const QString &name)
{
    const QString path = m_root->filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
}

void TestHelpLauncher::installationsFolders()
{
    QCOMPARE(helpDirectory(), QStringLiteral("/opt/x/share/help"));
    QCOMPARE(programDirectory(), QStringLiteral("/opt/x/bin"));
}

void TestHelpLauncher::folderOfAnEmptyRoot()
{
    InstallationSettings::load("/vesk");
    QCOMPARE(helpDirectory(), QStringLiteral("/share/help"));
    QCOMPARE(programDirectory(), QStringLiteral("/bin"));
}

void TestHelpLauncher::companionInItsFolder()
{
    QCOMPARE(companionProgram(programDirectory()), QStringLiteral("/opt/x/bin/orrn"));
    QCOMPARE(companionProgram(QStringLiteral("/elsewhere/")), QStringLiteral("/elsewhere/orrn"));
}

void TestHelpLauncher::pageByDefault()
{
    QCOMPARE(arguments(Page()), words("-g DriverPackageOverview.htm -n 0 -h 0 -f 0"));
}

void TestHelpLauncher::pageOfADialog()
{
    Page page;
    page.topic = QStringLiteral("VESK.htm#GuiLPRDialog");
    page.n = 1;
    page.h = -20;
    page.f = 300;
    page.vendorConfigDirectory = QStringLiteral("/opt/x/vendor");
    QCOMPARE(arguments(page), words("-g VESK.htm#GuiLPRDialog -n 1 -h -20 -f 300 "
                                    "--vendorconfigdir /opt/x/vendor"));
}

void TestHelpLauncher::pageWithoutATopic()
{
    Page page;
    page.topic.clear();
    QCOMPARE(arguments(page), words("-n 0 -h 0 -f 0"));
}

void TestHelpLauncher::aboutByDefault()
{
    QCOMPARE(arguments(About()), words("-u DriverPackageOverview.htm -s /opt/x/share/help"));
}

void TestHelpLauncher::aboutLeavesOutWhatIsEmpty_data()
{
    QTest::addColumn<QString About::*>("text");
    QTest::addColumn<QString>("option");
    QTest::newRow("--ui-about") << &About::uiAbout << "--ui-about";
    QTest::newRow("--res-about") << &About::resAbout << "--res-about";
    QTest::newRow("--translate") << &About::translate << "--translate";
    QTest::newRow("--sharedir") << &About::shareDirectory << "--sharedir";
    QTest::newRow("-u") << &About::topic << "-u";
    QTest::newRow("-s") << &About::helpDirectory << "-s";
}

void TestHelpLauncher::aboutLeavesOutWhatIsEmpty()
{
    QFETCH(QString About::*, text);
    QFETCH(QString, option);
    About about = emptyAbout();
    about.*text = QStringLiteral("a text");
    QCOMPARE(arguments(about), (QStringList{option, QStringLiteral("a text")}));
}

void TestHelpLauncher::aboutWithAll()
{
    About about;
    about.uiAbout = QStringLiteral("ui");
    about.resAbout = QStringLiteral("res");
    about.translate = QStringLiteral("tr");
    about.shareDirectory = QStringLiteral("/share");
    about.topic = QStringLiteral("VESK.htm");
    about.helpDirectory = QStringLiteral("/help");
    QCOMPARE(arguments(about), words("--ui-about ui --res-about res --translate tr "
                                     "--sharedir /share -u VESK.htm -s /help"));
}

void TestHelpLauncher::aboutWithNothing()
{
    QCOMPARE(arguments(emptyAbout()), QStringList());
}

void TestHelpLauncher::folders_data()
{
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << words("") << "";
    QTest::newRow("English") << words("en-US en") << "";
    QTest::newRow("without a language") << words("C") << "";
    QTest::newRow("German") << words("de") << "de ";
    QTest::newRow("German of Austria") << words("de-AT de") << "de ";
    QTest::newRow("with underscores") << words("de_CH") << "de ";
    QTest::newRow("with a script") << words("zh-Hans-CN zh-Hans zh") << "zh ";
    QTest::newRow("several") << words("fr-CA fr de-DE de") << "fr de ";
    QTest::newRow("English between") << words("fr en de") << "fr ";
    QTest::newRow("a path") << words("../de") << "";
    QTest::newRow("a path after a language") << words("de ../../fr") << "de ";
    QTest::newRow("a path behind a language") << words("de.x/../fr") << "de ";
}

void TestHelpLauncher::folders()
{
    QFETCH(QStringList, languages);
    QFETCH(QString, expected);
    QCOMPARE(languageFolders(languages).join(u' '), expected);
    QCOMPARE(languageFolders(languages).constLast(), QString());
}

void TestHelpLauncher::pageInALanguage_data()
{
    QTest::addColumn<QString>("files");
    QTest::addColumn<QString>("languages");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << "P.htm de/P.htm"
                             << "en-GB en"
                             << "P.htm";
    QTest::newRow("German") << "P.htm de/P.htm"
                            << "de-DE de"
                            << "de/P.htm";
    QTest::newRow("not translated") << "P.htm de/P.htm"
                                    << "fr-FR fr"
                                    << "P.htm";
    QTest::newRow("second language") << "P.htm de/P.htm"
                                     << "fr-FR fr de-DE de"
                                     << "de/P.htm";
    QTest::newRow("another page translated") << "P.htm de/Q.htm"
                                             << "de"
                                             << "P.htm";
    QTest::newRow("a folder of the name") << "P.htm de/P.htm/x"
                                          << "de"
                                          << "P.htm";
}

void TestHelpLauncher::pageInALanguage()
{
    QFETCH(QString, files);
    QFETCH(QString, languages);
    QFETCH(QString, expected);
    for (const QString &name : files.split(u' '))
        place(name);
    QCOMPARE(QDir::cleanPath(
                 pageFile(QStringLiteral("P.htm#anchor"), m_root->path(), languages.split(u' '))),
             m_root->filePath(expected));
}

void TestHelpLauncher::noPage()
{
    place(QStringLiteral("Q.htm"));
    const QStringList english = words("en");
    QCOMPARE(pageFile(QStringLiteral("P.htm"), m_root->path(), english), QString());
    QCOMPARE(pageFile(QString(), m_root->path(), english), QString());
    QCOMPARE(pageFile(QStringLiteral("#anchor"), m_root->path(), english), QString());
}

QTEST_GUILESS_MAIN(TestHelpLauncher)
#include "tst_helplauncher.moc"
