#include "ProgramPath.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace
{
bool makeFile(const QString &path, QFileDevice::Permissions permissions)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.setPermissions(permissions);
}

constexpr auto Executable =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
constexpr auto Plain = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

QString found(const char *argv0)
{
    return QFile::decodeName(programPath(argv0).c_str());
}
} // namespace

class TestProgramPath : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void takesAnExecutableFile();
    void takesTheTargetOfALink();
    void fallsBackToTheInstalledName_data();
    void fallsBackToTheInstalledName();

private:
    QString path(const char *name) const
    {
        return m_directory->filePath(QString::fromLatin1(name));
    }
    std::unique_ptr<QTemporaryDir> m_directory;
};

void TestProgramPath::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    QVERIFY(QDir::setCurrent(m_directory->path()));
    qputenv("VESK_RELOCATED_ROOT", "/nowhere");
}

void TestProgramPath::takesAnExecutableFile()
{
    QVERIFY(makeFile(path("prog"), Executable));
    QCOMPARE(found("prog"), path("prog"));
    QCOMPARE(found("./prog"), path("prog"));
    QCOMPARE(found(QFile::encodeName(path("prog"))), path("prog"));
}

void TestProgramPath::takesTheTargetOfALink()
{
    QVERIFY(QDir(m_directory->path()).mkpath(QStringLiteral("V/bin")));
    QVERIFY(makeFile(path("V/bin/prog"), Executable));
    QVERIFY(QFile::link(QStringLiteral("V/bin/prog"), path("lpr")));
    QCOMPARE(found("lpr"), path("V/bin/prog"));
}

void TestProgramPath::fallsBackToTheInstalledName_data()
{
    QTest::addColumn<QString>("argv0");
    QTest::newRow("no such file") << QStringLiteral("absent");
    QTest::newRow("not executable") << QStringLiteral("plain");
    QTest::newRow("a folder") << QStringLiteral("folder");
    QTest::newRow("empty") << QString();
}

void TestProgramPath::fallsBackToTheInstalledName()
{
    QFETCH(QString, argv0);
    QVERIFY(makeFile(path("plain"), Plain));
    QVERIFY(QDir(m_directory->path()).mkpath(QStringLiteral("folder")));
    QCOMPARE(found(qPrintable(argv0)), QStringLiteral("/nowhere/usr/bin/lpr"));
}

QTEST_GUILESS_MAIN(TestProgramPath)
#include "tst_programpath.moc"
