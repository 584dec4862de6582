#include "SystemPaths.h"

#include <QTest>

/** Built twice: with the installed program's paths and with the relocated ones. */
class tst_SystemPaths : public QObject
{
    Q_OBJECT

private slots:
    void paths();
    void rootIsReadOnce();
};

namespace
{
#ifdef TST_RELOCATED
constexpr char root[] = "/some/root";
#else
constexpr char root[] = "";
#endif
} // namespace

void tst_SystemPaths::paths()
{
    const QByteArray prefix(root);
    QCOMPARE(QByteArray(SystemPaths::program()), prefix + "/usr/bin/lpr");
    QCOMPARE(QByteArray(SystemPaths::systemClient()), prefix + "/usr/bin/lpr.orig");
    QCOMPARE(QByteArray(SystemPaths::serverSocket()), prefix + "/var/run/cups/cups.sock");
    QCOMPARE(QByteArray(SystemPaths::logDirectory()), prefix + "/var/tmp");
    QCOMPARE(QByteArray(SystemPaths::pictureDirectory()),
             prefix + "/opt/Tarvel/mfp/share/picturtes/");
    QCOMPARE(SystemPaths::areRelocated(), !prefix.isEmpty());
}

void tst_SystemPaths::rootIsReadOnce()
{
    const char *before = SystemPaths::logDirectory();
    qputenv("VESK_RELOCATED_ROOT", "/another");
    QCOMPARE(SystemPaths::logDirectory(), before);
    QCOMPARE(QByteArray(SystemPaths::logDirectory()), QByteArray(root) + "/var/tmp");
}

QTEST_GUILESS_MAIN(tst_SystemPaths)
#include "tst_systempaths.moc"
