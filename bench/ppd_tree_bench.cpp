// ppd_tree_bench times PPD ROUNDS   times the option tree of a PPD and its editors
// ppd_tree_bench memory PPD        tells what one open tree takes
//
// Prints its findings as JSON. The times end when the window is painted.

#include "CupsHandles.h"
#include "PPDOptionView.h"
#include "PPDTreeView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHBoxLayout>
#include <QListWidget>
#include <QStackedWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace
{
constexpr int ChoiceListPage = 2;

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "ppd_tree_bench: %s\n", what);
    std::exit(1);
}

Cups::PpdPtr opened(const QString &path)
{
    Cups::PpdPtr ppd = Cups::sharePpd(ppdOpenFile(QFile::encodeName(path).constData()));
    if (!ppd)
        fail("the PPD cannot be opened");
    ppdMarkDefaults(ppd.get());
    return ppd;
}

/** Milliseconds. */
struct Time {
    double wall;
    double processor;
};

double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/** The time that `work` takes until all that it caused is painted. */
template <typename Work> Time timed(Work work)
{
    QElapsedTimer timer;
    timer.start();
    const double before = processorTime();
    work();
    QCoreApplication::processEvents();
    return {static_cast<double>(timer.nsecsElapsed()) / 1e6, processorTime() - before};
}

/** The tree and the editors side by side, as on the page of driver options. */
class Window : public QWidget
{
public:
    Window()
        : m_tree(this)
        , m_pane(this)
    {
        auto *row = new QHBoxLayout(this);
        row->addWidget(&m_tree);
        row->addWidget(&m_pane);
        connect(&m_tree, qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged), &m_pane,
                &PPDOptionView::setOption);
        connect(&m_pane, &PPDOptionView::optionChanged, &m_tree, &PPDTreeView::checkConstraints);
        resize(800, 600);
        show();
        QCoreApplication::processEvents();
    }
    PPDTreeView &tree() { return m_tree; }
    QStackedWidget &editors() { return *m_pane.findChild<QStackedWidget *>(); }

private:
    PPDTreeView m_tree;
    PPDOptionView m_pane;
};

void appendLeaves(QTreeWidgetItem *item, std::vector<QTreeWidgetItem *> &leaves)
{
    if (item->childCount() == 0)
        leaves.push_back(item);
    for (int i = 0; i < item->childCount(); ++i)
        appendLeaves(item->child(i), leaves);
}

struct Times {
    std::vector<Time> open;
    std::vector<Time> build;
    std::vector<Time> select;
    std::vector<Time> change;
};

/**
 * Makes the next choice of the list and takes it back. A choice that conflicts is left out: it
 * would wait for the answer to the warning.
 */
void timeChange(QListWidget &list, const PPDTree::OptionItem &row, const QString &path,
                std::vector<Time> &times)
{
    const int current = list.currentRow();
    const int other = current == 0 ? 1 : 0;
    if (current < 0 || list.count() < 2)
        return;
    const Cups::PpdPtr trial = opened(path);
    ppdMarkOption(trial.get(), row.m_option->keyword, row.m_option->choices[other].choice);
    if (ppdConflicts(trial.get()) > 0)
        return;
    times.push_back(timed([&] { list.setCurrentRow(other); }));
    times.push_back(timed([&] { list.setCurrentRow(current); }));
}

void timeRows(Window &window, const QString &path, Times &times)
{
    std::vector<QTreeWidgetItem *> leaves;
    appendLeaves(window.tree().topLevelItem(0), leaves);
    for (QTreeWidgetItem *leaf : leaves) {
        times.select.push_back(timed([&] { window.tree().setCurrentItem(leaf); }));
        QStackedWidget &editors = window.editors();
        if (editors.currentIndex() != ChoiceListPage || !editors.isEnabled())
            continue;
        timeChange(*qobject_cast<QListWidget *>(editors.currentWidget()),
                   *dynamic_cast<PPDTree::OptionItem *>(leaf), path, times.change);
    }
}

void print(const char *name, std::vector<Time> times, const char *end)
{
    if (times.empty())
        fail("nothing was measured");
    std::ranges::sort(times, {}, &Time::wall);
    const double processor = std::ranges::max(times, {}, &Time::processor).processor;
    std::printf("\"%s\": {\"count\": %zu, \"median\": %.3f, \"max\": %.3f, "
                "\"processor\": %.3f}%s",
                name, times.size(), times[times.size() / 2].wall, times.back().wall, processor,
                end);
}

void benchTimes(const QString &path, int rounds)
{
    Times times;
    Window window;
    for (int round = 0; round < rounds; ++round) {
        Cups::PpdPtr ppd;
        times.open.push_back(timed([&] { ppd = opened(path); }));
        times.build.push_back(timed([&] { window.tree().setPPD(ppd.get()); }));
        if (round == 0)
            timeRows(window, path, times);
        window.tree().setPPD(nullptr);
    }
    std::printf("{");
    print("open", times.open, ", ");
    print("build", times.build, ", ");
    print("select", times.select, ", ");
    print("change", times.change, "}\n");
}

/** The kilobytes that this process has for itself. */
long privateMemory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        fail("no status of this process");
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("RssAnon:"))
            return line.mid(8).trimmed().split(' ').first().toLong();
    }
    fail("the status does not tell the memory");
}

void benchMemory(const QString &path)
{
    Window window;
    const long before = privateMemory();
    const Cups::PpdPtr ppd = opened(path);
    const long withPpd = privateMemory();
    window.tree().setPPD(ppd.get());
    QCoreApplication::processEvents();
    const long after = privateMemory();
    window.tree().setPPD(nullptr);
    std::printf("{\"empty\": %ld, \"ppd\": %ld, \"tree\": %ld}\n", before, withPpd - before,
                after - withPpd);
}
} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString mode = arguments.value(1);
    const int rounds = arguments.value(3).toInt();
    if (mode == QLatin1String("times") && rounds > 0)
        benchTimes(arguments[2], rounds);
    else if (mode == QLatin1String("memory") && arguments.size() == 3)
        benchMemory(arguments[2]);
    else
        fail("usage: ppd_tree_bench times PPD ROUNDS | ppd_tree_bench memory PPD");
    return 0;
}
