// Checks the option tree and its editors with the PPDs that it is given. See `run` beside this.

#include "PpdCheck.h"

#include <QApplication>

#include <cstdio>

namespace
{
void print(const Counts &counts)
{
    std::printf(
        "COUNTS {\"PPDs\": %d, \"options\": %d, \"choices\": %d, \"custom values\": %d, "
        "\"states in conflict\": %d, \"PPDs with differing texts\": %d, \"failures\": %d}\n",
        counts.ppds, counts.options, counts.choices, counts.customValues, counts.conflicts,
        counts.differingTexts, counts.failures);
}
} // namespace

int main(int argc, char *argv[])
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QApplication application(argc, argv);
    Counts counts;
    const QStringList paths = QApplication::arguments().mid(1);
    for (const QString &path : paths)
        PpdCheck(path, counts).run();
    print(counts);
    return counts.failures ? 1 : 0;
}
