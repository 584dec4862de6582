// Loads the plug-ins of the folders on its command line as the program does, and prints their
// titles. With --only-record it is told of the folders, and asks for no plug-in.

#include "Plugins.h"

#include <vesk/plugin.h>

#include <QCoreApplication>

#include <cstdio>
#include <sys/resource.h>

namespace
{
const QString OnlyRecord = QStringLiteral("--only-record");

void load()
{
    const QList<Vesk::Plugin *> *plugins = Plugins::plugins();
    for (const Vesk::Plugin *plugin : *plugins)
        std::printf("title %s\n", qPrintable(plugin->title()));
    std::printf("again %s\n", Plugins::plugins() == plugins ? "the same" : "another list");
}
} // namespace

int main(int argc, char **argv)
{
    // A fatal message leaves no core file behind.
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool onlyRecord = arguments.removeAll(OnlyRecord) > 0;
    Plugins::setPluginPaths(arguments);
    std::printf("folders %s\n", qPrintable(Plugins::pluginPaths().join(u';')));
    if (!onlyRecord)
        load();
    std::puts("end");
    std::fflush(stdout);
}
