#include "ProcessEx.h"

#include <QByteArray>
#include <QDebug>
#include <QFile>

int ProcessEx::execute(const QString &program, const QStringList &arguments)
{
    QList<QByteArray> bytes;
    bytes.reserve(arguments.size());
    for (const QString &argument : arguments)
        bytes.append(QFile::encodeName(argument));
    return execute(QFile::encodeName(program), bytes);
}

int ProcessEx::execute(const QByteArray &program, const QList<QByteArray> &arguments)
{
    const std::vector<const char *> texts(arguments.begin(), arguments.end());
    const int status = ChildProcess::run(program.constData(), texts);
    if (status == FailedToLaunch)
        qWarning(ChildProcess::LaunchWarning);
    return status;
}
