// ppd_tree_bench times PPD ROUNDS   times the option tree of a PPD and its editors
// ppd_tree_bench memory PPD        tells what one open tree takes
//
// Prints its findings as JSON. The times end when the window is painted and all is at rest.

#include "CupsHandles.h"
#include "PPDOptionView.h"
#include "PPDTreeView.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QHBoxLayout>
#include <QListWidget>
#include <QStackedWidget>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <vector>

namespace
{
enum Page { BooleanPage = 1, ChoiceListPage = 2, CustomPage = 4 };
/**
 * All is at rest when nothing has happened for so long. The longest that something waits here is
 * the 5 ms until the platform paints.
 */
constexpr std::chrono::milliseconds rest(25);

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

/** Knows when the last event was handled, be it a paint, a layout or a timer. */
class Application : public QApplication
{
public:
    Application(int &argc, char **argv)
        : QApplication(argc, argv)
    {
        m_rest.setSingleShot(true);
        m_rest.setInterval(rest);
        QObject::connect(&m_rest, &QTimer::timeout, &m_loop, &QEventLoop::quit);
        m_clock.start();
    }
    bool notify(QObject *receiver, QEvent *event) override
    {
        const bool handled = QApplication::notify(receiver, event);
        if (m_loop.isRunning() && receiver != &m_rest && receiver != &m_loop)
            noteWork();
        return handled;
    }
    Time now() const
    {
        return {static_cast<double>(m_clock.nsecsElapsed()) / 1e6, processorTime()};
    }
    /** Handles events until there are no more. Returns when the last one was handled. */
    Time workUntilRest()
    {
        noteWork();
        m_loop.exec();
        return m_last;
    }

private:
    void noteWork()
    {
        m_last = now();
        m_rest.start();
    }

    QElapsedTimer m_clock;
    QTimer m_rest;
    QEventLoop m_loop;
    Time m_last{};
};

Application &application()
{
    return static_cast<Application &>(*QCoreApplication::instance());
}

/** The time that `work` takes until all that it caused is laid out and painted. */
template <typename Work> Time timed(Work work)
{
    const Time before = application().now();
    work();
    const Time after = application().workUntilRest();
    return {after.wall - before.wall, after.processor - before.processor};
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
        application().workUntilRest();
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
    std::vector<Time> boolean;
    std::vector<Time> change;
    std::vector<Time> custom;
};

/** A choice that conflicts is left out: it would wait for the answer to the warning. */
bool wouldConflict(const PPDTree::OptionItem &row, int choice, const QString &path)
{
    const Cups::PpdPtr trial = opened(path);
    ppdMarkOption(trial.get(), row.m_option->keyword, row.m_option->choices[choice].choice);
    return ppdConflicts(trial.get()) > 0;
}

/** Makes another choice of the list and takes it back. */
void timeList(QListWidget &list, const PPDTree::OptionItem &row, const QString &path,
              std::vector<Time> &times)
{
    const int current = list.currentRow();
    const int other = current == 0 ? 1 : 0;
    if (current < 0 || list.count() < 2 || wouldConflict(row, other, path))
        return;
    times.push_back(timed([&] { list.setCurrentRow(other); }));
    times.push_back(timed([&] { list.setCurrentRow(current); }));
}

/** Chooses the custom value, edits its numbers and takes the choice back. */
void timeCustom(const QWidget &page, const PPDTree::OptionItem &row, const QString &path,
                std::vector<Time> &times)
{
    auto &list = *page.findChild<QListWidget *>();
    const int current = list.currentRow();
    int custom = 0;
    while (std::strcmp(row.m_option->choices[custom].choice, "Custom") != 0)
        ++custom;
    if (current == custom || wouldConflict(row, custom, path))
        return;
    times.push_back(timed([&] { list.setCurrentRow(custom); }));
    for (QAbstractSpinBox *number : page.findChildren<QAbstractSpinBox *>())
        times.push_back(timed([&] { number->stepUp(); }));
    times.push_back(timed([&] { list.setCurrentRow(current); }));
}

/** Clicks the button that is not checked, and then the other. */
void timeButtons(const QWidget &page, const PPDTree::OptionItem &row, const QString &path,
                 std::vector<Time> &times)
{
    const auto buttons = page.findChildren<QAbstractButton *>();
    const int current = buttons[0]->isChecked() ? 0 : 1;
    if (row.m_option->num_choices != 2 || wouldConflict(row, 1 - current, path))
        return;
    times.push_back(timed([&] { buttons[1 - current]->click(); }));
    times.push_back(timed([&] { buttons[current]->click(); }));
}

void timeChange(const QStackedWidget &editors, const PPDTree::OptionItem &row, const QString &path,
                Times &times)
{
    QWidget &page = *editors.currentWidget();
    switch (editors.currentIndex()) {
    case BooleanPage:
        return timeButtons(page, row, path, times.boolean);
    case ChoiceListPage:
        return timeList(dynamic_cast<QListWidget &>(page), row, path, times.change);
    case CustomPage:
        return timeCustom(page, row, path, times.custom);
    }
}

void timeRows(Window &window, const QString &path, Times &times)
{
    std::vector<QTreeWidgetItem *> leaves;
    appendLeaves(window.tree().topLevelItem(0), leaves);
    for (QTreeWidgetItem *leaf : leaves) {
        times.select.push_back(timed([&] { window.tree().setCurrentItem(leaf); }));
        const auto *row = dynamic_cast<PPDTree::OptionItem *>(leaf);
        if (row && window.editors().isEnabled())
            timeChange(window.editors(), *row, path, times);
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
    print("boolean", times.boolean, ", ");
    print("change", times.change, ", ");
    print("custom", times.custom, "}\n");
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
    application().workUntilRest();
    const long after = privateMemory();
    window.tree().setPPD(nullptr);
    std::printf("{\"empty\": %ld, \"ppd\": %ld, \"tree\": %ld}\n", before, withPpd - before,
                after - withPpd);
}
} // namespace

int main(int argc, char **argv)
{
    const Application bench(argc, argv);
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
