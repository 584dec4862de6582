#include "ProcessEx.h"

#include <QByteArray>
#include <QDebug>
#include <QFile>

int ProcessEx::execute(const QString &program, const QStringList &arguments, Limit limit)
{
    QList<QByteArray> bytes;
    bytes.reserve(arguments.size());
    for (const QString &argument : arguments)
        bytes.append(QFile::encodeName(argument));
    return execute(QFile::encodeName(program), bytes, limit);
}

int ProcessEx::execute(const QByteArray &program, const QList<QByteArray> &arguments, Limit limit)
{
    const std::vector<const char *> texts(arguments.begin(), arguments.end());
    const int status = ChildProcess::run(program.constData(), texts, limit);
    if (status == ChildProcess::TookTooLong) {
        qWarning("ProcessEx::execute: %s took too long and was ended", program.constData());
        return DidNotExit;
    }
    if (status == FailedToLaunch)
        qWarning(ChildProcess::LaunchWarning);
    return status;
}
