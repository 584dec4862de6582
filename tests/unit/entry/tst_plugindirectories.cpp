#include "PluginDirectories.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestPluginDirectories : public QObject
{
    Q_OBJECT
private slots:
    void splitsTheVariable();
    void findsFoldersBesideTheProgram();
    void findsNothingTooHighUp();
    void knowsTheRunningProgram();

private:
    QString path(const char *name) const { return m_directory.filePath(QString::fromLatin1(name)); }
    QTemporaryDir m_directory;
};

void TestPluginDirectories::splitsTheVariable()
{
    QCOMPARE(pluginDirectories("/a;;b c;", QStringLiteral("/x/y/z")),
             (QStringList{QStringLiteral("/a"), QStringLiteral("b c")}));
    QCOMPARE(pluginDirectories("", QStringLiteral("/x/y/z")), QStringList());
}

void TestPluginDirectories::findsFoldersBesideTheProgram()
{
    const QDir base(m_directory.path());
    for (const char *name : {"mfp/bin", "mfp/plugins", "other/plugins", ".hidden/plugins", "none"})
        QVERIFY(base.mkpath(QString::fromLatin1(name)));
    for (const char *name : {"file", "none/plugins"}) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QStringList found = pluginDirectories(nullptr, path("mfp/bin/vesk"));
    found.sort();
    QCOMPARE(found, (QStringList{path("mfp/plugins"), path("other/plugins")}));
}

void TestPluginDirectories::findsNothingTooHighUp()
{
    QCOMPARE(pluginDirectories(nullptr, path("absent/bin/vesk")), QStringList());
    QCOMPARE(pluginDirectories(nullptr, QStringLiteral("/usr/vesk")), QStringList());
}

void TestPluginDirectories::knowsTheRunningProgram()
{
    const QString program = QCoreApplication::applicationFilePath();
    QVERIFY(isRunningProgram(program));
    QVERIFY(QFile::link(program, path("link")));
    QVERIFY(isRunningProgram(path("link")));
    QVERIFY(QFile::copy(program, path("copy")));
    QVERIFY(!isRunningProgram(path("copy")));
    QVERIFY(!isRunningProgram(path("absent")));
    QVERIFY(!isRunningProgram(QString()));
}

QTEST_GUILESS_MAIN(TestPluginDirectories)
#include "tst_plugindirectories.moc"
