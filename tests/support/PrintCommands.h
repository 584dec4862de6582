#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/** The system's own printing commands. */
namespace PrintCommands
{
struct Result {
    /** -1 when it did not end by itself. */
    int status = -1;
    QByteArray output;
};

inline Result result(const QString &program, const QStringList &arguments, const QString &home = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!home.isEmpty())
        environment.insert(QStringLiteral("HOME"), home);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput()};
}

/** What `program` prints; null when it fails. */
inline QString run(const QString &program, const QStringList &arguments, const QString &home = {})
{
    const Result ended = result(program, arguments, home);
    if (ended.status != 0)
        return {};
    return ended.output.isEmpty() ? QStringLiteral("") : QString::fromUtf8(ended.output);
}

/** The same for words with one blank between them. */
inline QString run(const char *commandLine)
{
    QStringList arguments = QString::fromLatin1(commandLine).split(u' ');
    const QString program = arguments.takeFirst();
    return run(program, arguments);
}

/** What `lpstat` prints for a user without saved options. */
inline QString lpstat(const QStringList &arguments)
{
    const QTemporaryDir home;
    return run(QStringLiteral("lpstat"), arguments, home.path());
}

inline QString lpstat(const char *arguments)
{
    return lpstat(QString::fromLatin1(arguments).split(u' '));
}

/** Queues a job of `user` and returns its number; 0 when that failed. */
inline int queueJob(const char *queue, const QString &file, const char *user = "root",
                    const char *title = "My job")
{
    const auto text = [](const char *word) { return QString::fromLatin1(word); };
    const QString output = run(text("lp"), {text("-U"), text(user), text("-d"), text(queue),
                                            text("-t"), text(title), file});
    return output.section(u' ', 3, 3).section(u'-', 1, 1).toInt();
}
} // namespace PrintCommands
