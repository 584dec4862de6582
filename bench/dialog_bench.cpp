// dialog_bench select ROUNDS DESTINATION...   times the choice of another destination
// dialog_bench properties ROUNDS DESTINATION  times the properties dialog: opened, accepted
// dialog_bench join COUNT                     waits until COUNT destinations have joined the list
//
// Builds the print dialog in this process, as the program does, and prints its findings as JSON.

#include "LPRArguments.h"
#include "PrintDialog.h"
#include "PrinterPropertiesDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace
{
constexpr qint64 JoinLimitMs = 30'000;

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "dialog_bench: %s\n", what);
    std::exit(1);
}

PrinterOptions noOptions()
{
    char name[] = "lpr";
    char *argv[] = {name, nullptr};
    return PrinterOptions(LPRArguments(1, argv));
}

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

/** The dialog, shown and painted. */
class ShownDialog
{
public:
    explicit ShownDialog(const QString &destination = QString(),
                         const PrintDialogServices &services = {})
        : m_dialog(destination, noOptions(), services)
    {
        m_list = m_dialog.findChild<QComboBox *>(QStringLiteral("PrintersCombo"));
        if (!m_list)
            fail("the dialog has no list of destinations");
        m_dialog.show();
        QCoreApplication::processEvents();
    }
    PrintDialog &dialog() { return m_dialog; }
    const QComboBox &list() const { return *m_list; }

private:
    PrintDialog m_dialog;
    QComboBox *m_list;
};

/** The milliseconds until `name` is chosen, its options are read and the window shows it. */
double timeChoice(PrintDialog &dialog, const QString &name)
{
    QElapsedTimer timer;
    timer.start();
    dialog.SelectPrinter(name);
    QCoreApplication::processEvents();
    const double result = milliseconds(timer);
    if (dialog.destination() != name)
        fail("the destination was not chosen");
    return result;
}

void benchSelect(int rounds, const QStringList &names)
{
    ShownDialog shown;
    for (const QString &name : names)
        timeChoice(shown.dialog(), name);
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        for (const QString &name : names)
            times.push_back(timeChoice(shown.dialog(), name));
    }
    std::sort(times.begin(), times.end());
    std::printf("{\"listed\": %d, \"choices\": %zu, \"median\": %.3f, \"max\": %.3f}\n",
                shown.list().count(), times.size(), times[times.size() / 2], times.back());
}

/** Accepts a dialog as soon as it is painted, and takes the times. */
class Acceptor : public QObject
{
public:
    void start() { m_timer.start(); }
    double opened() const { return m_opened; }
    double closed() const { return m_closed; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !std::exchange(m_painted, true))
            QTimer::singleShot(0, this, [this, watched] { accept(*watched); });
        if (event->type() == QEvent::Hide)
            m_closed = milliseconds(m_timer);
        return QObject::eventFilter(watched, event);
    }

private:
    void accept(QObject &dialog)
    {
        m_opened = milliseconds(m_timer);
        auto *button = dialog.findChild<QPushButton *>(QStringLiteral("OkButton"));
        if (!button)
            fail("the properties dialog has no OK button");
        m_timer.start();
        button->click();
    }

    QElapsedTimer m_timer;
    bool m_painted = false;
    double m_opened = -1;
    double m_closed = -1;
};

struct Opening {
    double opened;
    double closed;
};

/** From the click on the button until the dialog is painted; from its OK until it is gone. */
Opening timeProperties(const QString &destination)
{
    Acceptor acceptor;
    PrintDialogServices services;
    services.createPropertiesDialog = [&acceptor](const QString &name,
                                                  const PrinterOptions &options,
                                                  QWidget *parent) -> QDialog * {
        auto *dialog = new PrinterPropertiesDialog(name, options, parent);
        dialog->installEventFilter(&acceptor);
        return dialog;
    };
    ShownDialog shown(destination, services);
    auto *button = shown.dialog().findChild<QPushButton *>(QStringLiteral("PropertiesButton"));
    if (!button || !button->isEnabled())
        fail("the properties cannot be opened");
    acceptor.start();
    button->click();
    if (acceptor.opened() < 0 || acceptor.closed() < 0)
        fail("the properties dialog was not opened and closed");
    return {acceptor.opened(), acceptor.closed()};
}

void benchProperties(int rounds, const QString &destination)
{
    std::printf("{\"opened\": [");
    std::vector<double> closed;
    for (int round = 0; round < rounds; ++round) {
        const Opening times = timeProperties(destination);
        std::printf("%s%.3f", round ? ", " : "", times.opened);
        closed.push_back(times.closed);
    }
    std::printf("], \"closed\": [");
    for (size_t round = 0; round < closed.size(); ++round)
        std::printf("%s%.3f", round ? ", " : "", closed[round]);
    std::printf("]}\n");
}

void benchJoin(int expected)
{
    QElapsedTimer timer;
    timer.start();
    const ShownDialog shown;
    const int first = shown.list().count();
    const QString chosen = shown.list().currentText();
    while (shown.list().count() < first + expected && timer.elapsed() < JoinLimitMs)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    const bool kept = shown.list().currentText() == chosen;
    std::printf("{\"first\": %d, \"joined\": %d, \"milliseconds\": %.0f, \"kept\": %s}\n", first,
                shown.list().count() - first, milliseconds(timer), kept ? "true" : "false");
}
} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString mode = arguments.value(1);
    const int number = arguments.value(2).toInt();
    if (mode == QLatin1String("select") && number > 0 && arguments.size() > 4)
        benchSelect(number, arguments.mid(3));
    else if (mode == QLatin1String("properties") && number > 0 && arguments.size() == 4)
        benchProperties(number, arguments[3]);
    else if (mode == QLatin1String("join") && number > 0)
        benchJoin(number);
    else
        fail("usage: dialog_bench select ROUNDS DESTINATION... | dialog_bench join COUNT | "
             "dialog_bench properties ROUNDS DESTINATION");
    return 0;
}
