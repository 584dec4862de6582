#include "Plugins.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

class TestPlugins : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void recordsTheFolders();
    void loadsInOrder();
    void loadsNothing_data();
    void loadsNothing();
    void leavesOtherNamesAlone_data();
    void leavesOtherNamesAlone();
    void ignoresALibraryWithoutTheFunction();
    void ignoresANullObject();
    void brokenLibraryIsFatal_data();
    void brokenLibraryIsFatal();
    void refusesRelativeFolders_data();
    void refusesRelativeFolders();
    void opensNothingUntilAsked();

private:
    struct Run {
        QStringList lines;
        QByteArray errors;
        QProcess::ExitStatus exitStatus;
        int exitCode;
    };

    QString path(const QString &name) const { return m_directory->filePath(name); }
    void install(const QString &library, const QString &folder, const QString &name = {});
    void write(const QString &name);
    Run run(const QStringList &arguments) const;
    QStringList made(const QStringList &folders) const;

    std::unique_ptr<QTemporaryDir> m_directory;
};

void TestPlugins::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    for (const QString &folder : {u"first"_s, u"second"_s, u"empty"_s})
        QVERIFY(QDir(m_directory->path()).mkdir(folder));
}

/** Copies a library; one file under two names would be loaded only once. */
void TestPlugins::install(const QString &library, const QString &folder, const QString &name)
{
    const QString file = u"libvesk_plugin_%1.so"_s.arg(library);
    QVERIFY(QFile::copy(QDir(qEnvironmentVariable("VESK_TEST_PLUGINS")).filePath(file),
                        path(folder) + u'/' + (name.isNull() ? file : name)));
}

void TestPlugins::write(const QString &name)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("not a library\n");
}

/** The helper runs in the folder of the test. */
TestPlugins::Run TestPlugins::run(const QStringList &arguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_directory->path());
    process.start(qEnvironmentVariable("VESK_LOAD_PLUGINS"), arguments);
    process.waitForFinished();
    const QString output = QString::fromLocal8Bit(process.readAllStandardOutput());
    return {output.split(u'\n', Qt::SkipEmptyParts), process.readAllStandardError(),
            process.exitStatus(), process.exitCode()};
}

/** What is loaded from the folders, in order, by a run that ends well. */
QStringList TestPlugins::made(const QStringList &folders) const
{
    const Run done = run(folders);
    QStringList expected{u"folders "_s + folders.join(u';')};
    const QStringList names = done.lines.filter(u"made "_s).replaceInStrings(u"made "_s, QString());
    for (const QString &what : {u"made "_s, u"title "_s}) {
        for (const QString &name : names)
            expected += what + name;
    }
    expected += {u"again the same"_s, u"end"_s};
    for (const QString &name : names)
        expected += u"deleted "_s + name;
    if (done.lines != expected || done.exitCode != 0 || !done.errors.isEmpty())
        return done.lines + QStringList{QString::fromLocal8Bit(done.errors)};
    return names;
}

void TestPlugins::recordsTheFolders()
{
    QCOMPARE(Plugins::pluginPaths(), QStringList());
    Plugins::setPluginPaths({u"/a"_s, u"/b"_s});
    QCOMPARE(Plugins::pluginPaths(), (QStringList{u"/a"_s, u"/b"_s}));
    Plugins::pluginPaths().append(u"/c"_s);
    QCOMPARE(Plugins::pluginPaths().size(), 3);
    Plugins::setPluginPaths({});
    QCOMPARE(Plugins::pluginPaths(), QStringList());
}

void TestPlugins::loadsInOrder()
{
    install(u"b"_s, u"second"_s);
    install(u"A"_s, u"second"_s);
    install(u"C"_s, u"first"_s);
    QCOMPARE(made({path(u"first"_s), path(u"second"_s)}), (QStringList{u"C"_s, u"A"_s, u"b"_s}));
    QCOMPARE(made({path(u"second"_s), path(u"first"_s)}), (QStringList{u"A"_s, u"b"_s, u"C"_s}));
    install(u"C"_s, u"second"_s);
    QCOMPARE(made({path(u"second"_s)}), (QStringList{u"A"_s, u"b"_s, u"C"_s}));
}

void TestPlugins::loadsNothing_data()
{
    QTest::addColumn<QStringList>("folders");
    QTest::newRow("no folder") << QStringList();
    QTest::newRow("empty") << QStringList{u"empty"_s};
    QTest::newRow("missing") << QStringList{u"missing"_s, u"missing/too"_s};
}

void TestPlugins::loadsNothing()
{
    QFETCH(QStringList, folders);
    for (QString &folder : folders)
        folder = path(folder);
    QCOMPARE(made(folders), QStringList());
    install(u"A"_s, u"first"_s);
    QCOMPARE(made(folders + QStringList{path(u"first"_s)}), QStringList{u"A"_s});
}

void TestPlugins::leavesOtherNamesAlone_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"libvesk_plugin.so", "libvesk_plugin_x.so.1", "vesk_plugin_x.so",
                             "xlibvesk_plugin_x.so", "LIBVESK_PLUGIN_X.SO", "libvesk_plugin_x"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestPlugins::leavesOtherNamesAlone()
{
    QFETCH(QString, name);
    write(u"first/"_s + name);
    install(u"A"_s, u"first"_s);
    QCOMPARE(made({path(u"first"_s)}), QStringList{u"A"_s});
}

void TestPlugins::ignoresALibraryWithoutTheFunction()
{
    install(u"A"_s, u"first"_s);
    install(u"without_function"_s, u"first"_s);
    const Run done = run({path(u"first"_s)});
    QVERIFY(done.lines.contains(u"opened without_function"_s));
    QCOMPARE(done.lines.filter(u"title"_s), QStringList{u"title A"_s});
    QCOMPARE(done.exitCode, 0);
    QCOMPARE(done.errors, QByteArray());
}

void TestPlugins::ignoresANullObject()
{
    install(u"null_object"_s, u"first"_s);
    QCOMPARE(made({path(u"first"_s)}), QStringList());
}

void TestPlugins::brokenLibraryIsFatal_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("no library") << QString() << QByteArray("too short");
    QTest::newRow("unresolved symbol") << u"unresolved"_s << QByteArray("vesk_test_is_nowhere");
}

void TestPlugins::brokenLibraryIsFatal()
{
    QFETCH(QString, library);
    QFETCH(QByteArray, reason);
    const QString name = u"libvesk_plugin_broken.so"_s;
    if (library.isNull())
        write(u"second/"_s + name);
    else
        install(library, u"second"_s, name);
    install(u"A"_s, u"first"_s);
    install(u"b"_s, u"second"_s);
    install(u"C"_s, u"second"_s);

    const Run done = run({path(u"first"_s), path(u"second"_s)});
    QCOMPARE(done.exitStatus, QProcess::CrashExit);
    QCOMPARE(done.exitCode, SIGABRT);
    // Those before it are loaded, none after it.
    QCOMPARE(done.lines.mid(1), (QStringList{u"made A"_s, u"made b"_s}));
    const QByteArray broken = path(u"second/"_s + name).toLocal8Bit();
    const QByteArray start = "Can not load library " + broken + " : " + broken + ": ";
    QVERIFY2(done.errors.startsWith(start), done.errors);
    QVERIFY2(done.errors.contains(reason), done.errors);
}

void TestPlugins::refusesRelativeFolders_data()
{
    QTest::addColumn<QString>("folder");
    for (const char *folder : {"first", "./first", "../", ".", "empty/../first"})
        QTest::newRow(folder) << QString::fromLatin1(folder);
}

void TestPlugins::refusesRelativeFolders()
{
    QFETCH(QString, folder);
    install(u"A"_s, u"first"_s);
    install(u"b"_s, u"second"_s);
    QVERIFY(QFile::copy(path(u"first/libvesk_plugin_A.so"_s), path(u"libvesk_plugin_A.so"_s)));
    const Run done = run({folder, path(u"second"_s)});
    QCOMPARE(done.lines.filter(u"made"_s), QStringList{u"made b"_s});
    QCOMPARE(done.errors,
             "Not searching for plug-ins in " + folder.toLocal8Bit() + ": not an absolute path\n");
    QCOMPARE(done.exitCode, 0);
}

void TestPlugins::opensNothingUntilAsked()
{
    install(u"A"_s, u"first"_s);
    write(u"first/libvesk_plugin_broken.so"_s);
    const Run done = run({u"--only-record"_s, path(u"first"_s)});
    QCOMPARE(done.lines, (QStringList{u"folders "_s + path(u"first"_s), u"end"_s}));
    QCOMPARE(done.exitCode, 0);
}

QTEST_GUILESS_MAIN(TestPlugins)
#include "tst_plugins.moc"
