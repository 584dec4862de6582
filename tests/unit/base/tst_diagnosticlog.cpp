#include "DiagnosticLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/** Each test has an empty log folder. What somebody else may have put there must not be touched. */
class tst_DiagnosticLog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void createsTheFile();
    void truncatesAnOldFile();
    void isNotInherited();
    void leavesALinkAlone();
    void leavesADanglingLinkAlone();
    void leavesASecondNameAlone();
    void leavesAFolderAlone();
    void leavesAPipeAlone();
    void leavesAPipeWithAReaderAlone();
    void leavesForeignFilesAlone();
    void missingFolder();

private:
    QString path(const char *name) const
    {
        return m_folder + QLatin1Char('/') + QLatin1String(name);
    }
    QByteArray bytes(const char *name) const { return QFile::encodeName(path(name)); }
    static void write(const QString &file, const QByteArray &text);
    static QByteArray read(const QString &file);

    QTemporaryDir m_root;
    QString m_folder;
};

void tst_DiagnosticLog::initTestCase()
{
    QVERIFY(m_root.isValid());
    // Before the first use of a path: it is read once.
    qputenv("VESK_RELOCATED_ROOT", QFile::encodeName(m_root.path()));
    m_folder = m_root.filePath(QStringLiteral("var/tmp"));
}

void tst_DiagnosticLog::init()
{
    QVERIFY(QDir().mkpath(m_folder));
}

void tst_DiagnosticLog::cleanup()
{
    QDir(m_folder).removeRecursively();
}

void tst_DiagnosticLog::write(const QString &file, const QByteArray &text)
{
    QFile target(file);
    QVERIFY(target.open(QIODevice::WriteOnly));
    QCOMPARE(target.write(text), text.size());
}

QByteArray tst_DiagnosticLog::read(const QString &file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("cannot be read");
}

void tst_DiagnosticLog::createsTheFile()
{
    DiagnosticLog::Handle log = DiagnosticLog::open("a.log");
    QVERIFY(log);
    QCOMPARE(read(path("a.log")), QByteArray());
    struct stat status;
    QCOMPARE(stat(bytes("a.log").constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U & ~0644U, 0U);
    fputs("line\n", log.get());
    log.reset();
    QCOMPARE(read(path("a.log")), QByteArray("line\n"));
}

void tst_DiagnosticLog::truncatesAnOldFile()
{
    write(path("a.log"), "of an earlier run");
    const DiagnosticLog::Handle log = DiagnosticLog::open("a.log");
    QVERIFY(log);
    QCOMPARE(read(path("a.log")), QByteArray());
}

void tst_DiagnosticLog::isNotInherited()
{
    const DiagnosticLog::Handle log = DiagnosticLog::open("a.log");
    QVERIFY(log);
    QVERIFY(fcntl(fileno(log.get()), F_GETFD) & FD_CLOEXEC);
}

void tst_DiagnosticLog::leavesALinkAlone()
{
    write(path("target"), "kept");
    QVERIFY(QFile::link(path("target"), path("a.log")));
    QVERIFY(!DiagnosticLog::open("a.log"));
    QCOMPARE(read(path("target")), QByteArray("kept"));
}

void tst_DiagnosticLog::leavesADanglingLinkAlone()
{
    QVERIFY(QFile::link(path("target"), path("a.log")));
    QVERIFY(!DiagnosticLog::open("a.log"));
    QVERIFY(!QFile::exists(path("target")));
}

void tst_DiagnosticLog::leavesASecondNameAlone()
{
    write(path("target"), "kept");
    QCOMPARE(link(bytes("target").constData(), bytes("a.log").constData()), 0);
    QVERIFY(!DiagnosticLog::open("a.log"));
    QCOMPARE(read(path("target")), QByteArray("kept"));
}

void tst_DiagnosticLog::leavesAFolderAlone()
{
    QVERIFY(QDir(m_folder).mkdir(QStringLiteral("a.log")));
    QVERIFY(!DiagnosticLog::open("a.log"));
}

void tst_DiagnosticLog::leavesAPipeAlone()
{
    QCOMPARE(mkfifo(bytes("a.log").constData(), 0600), 0);
    QVERIFY(!DiagnosticLog::open("a.log"));
}

void tst_DiagnosticLog::leavesAPipeWithAReaderAlone()
{
    QCOMPARE(mkfifo(bytes("a.log").constData(), 0600), 0);
    const int reader = ::open(bytes("a.log").constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QVERIFY(reader >= 0);
    QVERIFY(!DiagnosticLog::open("a.log"));
    close(reader);
}

void tst_DiagnosticLog::leavesForeignFilesAlone()
{
    write(path("a.log"), "kept");
    if (geteuid() != 0) {
        // A file that is not ours and cannot be written either.
        QCOMPARE(chmod(bytes("a.log").constData(), 0400), 0);
        QVERIFY(!DiagnosticLog::open("a.log"));
    } else {
        QCOMPARE(chown(bytes("a.log").constData(), 65534, 65534), 0);
        QVERIFY(!DiagnosticLog::open("a.log"));
    }
    QCOMPARE(read(path("a.log")), QByteArray("kept"));
}

void tst_DiagnosticLog::missingFolder()
{
    QVERIFY(QDir(m_folder).removeRecursively());
    QVERIFY(!DiagnosticLog::open("a.log"));
}

QTEST_GUILESS_MAIN(tst_DiagnosticLog)
#include "tst_diagnosticlog.moc"
