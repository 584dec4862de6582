#pragma once

#include "MessageBoxes.h"

#include <QFile>
#include <QProcess>
#include <QTest>

/** What the tests of the dialogs share. */
namespace DialogTest
{
/** The child with that object name, which must be there and of that type. */
template <typename Widget> Widget *child(const QWidget &parent, const char *name)
{
    Widget *widget = parent.findChild<Widget *>(QString::fromLatin1(name));
    if (!widget)
        qFatal("no %s %s", Widget::staticMetaObject.className(), name);
    return widget;
}

using MessageBoxes::Box;
using MessageBoxes::boxShownBy;

/** Runs a program of the print server's tools; it must succeed. Returns what it prints. */
inline QByteArray run(const char *program, const QStringList &arguments)
{
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        qFatal("%s failed: %s", program, process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

/** Starts the name of each queue that a test adds. */
constexpr char AddedPrefix[] = "Test";

/** Brings the private server and the saved options back to what the tests begin with. */
class World
{
public:
    World()
    {
        QFile file(savedOptionsFile());
        if (!file.open(QIODevice::ReadOnly))
            qFatal("these tests run in a private world, see world/README.md");
        m_savedOptions = file.readAll();
    }

    void resetSavedOptions() const
    {
        QFile file(savedOptionsFile());
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            file.write(m_savedOptions) != m_savedOptions.size())
            qFatal("cannot write the saved options");
    }

    void reset() const
    {
        using namespace Qt::StringLiterals;
        resetSavedOptions();
        run("cupsdisable", {u"Stopped"_s});
        run("cupsaccept", {u"Stopped"_s});
        run("cupsenable", {u"Rejecting"_s, u"Office"_s});
        run("cupsreject", {u"Rejecting"_s});
        const QStringList queues = QString::fromLocal8Bit(run("lpstat", {u"-e"_s})).split(u'\n');
        for (const QString &queue : queues) {
            if (queue.startsWith(QLatin1StringView(AddedPrefix)))
                run("lpadmin", {u"-x"_s, queue});
        }
    }

    static QString savedOptionsFile()
    {
        return qEnvironmentVariable("HOME") + QStringLiteral("/.cups/lpoptions");
    }

private:
    QByteArray m_savedOptions;
};

/** Adds a queue that accepts jobs. */
inline void addQueue(const QString &name, const QStringList &more = {})
{
    using namespace Qt::StringLiterals;
    run("lpadmin", QStringList{u"-p"_s, name, u"-E"_s, u"-v"_s, u"file:///dev/null"_s} + more);
}
} // namespace DialogTest
