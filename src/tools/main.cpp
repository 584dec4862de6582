#include "ServerReport.h"

#include <QCoreApplication>

#include <cstdio>

namespace
{
enum ExitStatus { Printed = 0, Failed = 1, WrongArguments = 2, NothingFound = 3 };

int complain(const QString &text, ExitStatus status)
{
    std::fprintf(stderr, "vesk-server: %s\n", qPrintable(text));
    return status;
}

int print(const QString &text, ExitStatus status)
{
    std::fputs(qPrintable(text), stdout);
    if (std::fflush(stdout) != 0)
        return complain(QStringLiteral("the output cannot be written"), Failed);
    return status;
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QString error;
    const auto options = readReportOptions(QCoreApplication::arguments().mid(1), error);
    if (!options)
        return complain(error + QStringLiteral(" (try --help)"), WrongArguments);
    if (options->wantsHelp)
        return print(reportHelp(), Printed);
    const Report report = reportOn(*_CUPS, *options);
    const int status = print(report.text, report.text.isEmpty() ? NothingFound : Printed);
    return report.error.isEmpty() ? status : complain(report.error, Failed);
}
