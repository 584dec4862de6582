// directory_bench PRINTER CLASS ROUNDS   times the listings and look-ups of the server's directory
//
// In turns with the library's own listing of destinations on a connection of its own. Prints the
// milliseconds of each call, and how many printers and classes there are, as JSON.

#include "CUPSManager.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace
{
using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "directory_bench: %s\n", what);
    std::exit(1);
}

/** The call gives how many entries it has found. */
struct Call {
    std::string name;
    std::function<int()> run;
    std::vector<double> times;
    int found = 0;

    void measure()
    {
        const Clock::time_point start = Clock::now();
        found = run();
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
};

int destinations()
{
    const Cups::HttpPtr http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC,
                                          cupsEncryption(), 1, 30'000, nullptr));
    Cups::DestinationArray all;
    all.countRef() = cupsGetDests2(http.get(), all.dataRef());
    return all.count();
}

std::vector<Call> calls(const QString &printer, const QString &cls)
{
    return {
        {"cupsGetDests2", destinations, {}},
        {"getPrinters",
         [] {
             QMap<QString, CUPSPrinter> out;
             return _CUPS->getPrinters(out, 0, 0, nullptr);
         },
         {}},
        {"findPrinter",
         [printer] {
             CUPSPrinter out;
             return int(_CUPS->findPrinter(printer, out, false));
         },
         {}},
        {"getClasses",
         [] {
             QMap<QString, ClassInfo> out;
             return _CUPS->getClasses(out);
         },
         {}},
        {"findClass",
         [cls] {
             ClassInfo out;
             return int(_CUPS->findClass(cls, out));
         },
         {}},
    };
}

void print(const std::vector<Call> &all)
{
    const char *separator = "{";
    for (const Call &call : all) {
        std::printf("%s\"%s\": {\"found\": %d, \"times\": [", separator, call.name.c_str(),
                    call.found);
        for (size_t i = 0; i < call.times.size(); ++i)
            std::printf("%s%.3f", i ? ", " : "", call.times[i]);
        std::printf("]}");
        separator = ", ";
    }
    std::printf("}\n");
}
} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4)
        fail("wrong number of arguments");
    std::vector<Call> all = calls(arguments.at(1), arguments.at(2));
    for (Call &call : all)
        call.measure();
    for (Call &call : all)
        call.times.clear();
    for (int round = 0; round < arguments.at(3).toInt(); ++round) {
        for (size_t i = 0; i < all.size(); ++i)
            all[(i + static_cast<size_t>(round)) % all.size()].measure();
    }
    print(all);
    return 0;
}
