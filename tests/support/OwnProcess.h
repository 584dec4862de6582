#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QString>
#include <QStringList>

/** Runs of the test's own executable, for what happens once in a process. */
namespace OwnProcess
{
/** How a run ended: its exit status, -1 when a signal ended it, and what it wrote. */
struct Result {
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

/** Runs the executable with its wired paths below `root` and with `settings` ("NAME=value"). */
inline Result run(const QString &root, const QStringList &arguments,
                  const QStringList &settings = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VESK_RELOCATED_ROOT"), root);
    for (const QString &setting : settings)
        environment.insert(setting.section(u'=', 0, 0), setting.section(u'=', 1));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForFinished();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}
} // namespace OwnProcess
