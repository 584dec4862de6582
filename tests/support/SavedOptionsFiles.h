#pragma once

#include <QFile>
#include <QTest>

/** The files with saved options in a test's own HOME and server root. */
namespace SavedOptionsFiles
{
inline QString userFile()
{
    return qEnvironmentVariable("HOME") + QStringLiteral("/.cups/lpoptions");
}

inline QString systemFile()
{
    return qEnvironmentVariable("CUPS_SERVERROOT") + QStringLiteral("/lpoptions");
}

inline void writeFile(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(contents), contents.size());
}
} // namespace SavedOptionsFiles
