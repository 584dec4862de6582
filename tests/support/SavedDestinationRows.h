#pragma once

#include "SavedOptionsFiles.h"

#include <QString>
#include <QTest>

/** Tables of what two files with saved options and PRINTER make of the server's destinations. */
namespace SavedDestinationRows
{
struct Row {
    const char *title;
    /** The system's file. */
    const char *systemText;
    /** The user's file. */
    const char *userText;
    /** The environment's PRINTER; null: not set. */
    const char *printer;
    const char *expected;
};

/** Makes the test's rows; what is expected is in the column `expected`. */
template <typename Rows> void add(const Rows &rows)
{
    QTest::addColumn<QByteArray>("systemText");
    QTest::addColumn<QByteArray>("userText");
    QTest::addColumn<QByteArray>("printer");
    QTest::addColumn<QString>("expected");
    for (const Row &row : rows)
        QTest::addRow("%s", row.title)
            << QByteArray(row.systemText) << QByteArray(row.userText) << QByteArray(row.printer)
            << QString::fromLatin1(row.expected);
}

/** Writes the current row's files. */
inline void writeFiles()
{
    QFETCH(QByteArray, systemText);
    QFETCH(QByteArray, userText);
    SavedOptionsFiles::writeFile(SavedOptionsFiles::systemFile(), systemText);
    SavedOptionsFiles::writeFile(SavedOptionsFiles::userFile(), userText);
}

/** The same, and sets PRINTER as the row wants it. */
inline void apply()
{
    writeFiles();
    QFETCH(QByteArray, printer);
    if (!printer.isNull())
        qputenv("PRINTER", printer);
}
} // namespace SavedDestinationRows
