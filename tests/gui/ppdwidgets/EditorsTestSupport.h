#pragma once

#include "CupsHandles.h"
#include "DecimalCommaLocale.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QScrollBar>
#include <QTemporaryFile>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/** What the tests of the option editors share. */
namespace EditorsTest
{
/** The child with that object name, which must be there and of that type. */
template <typename Widget> Widget *child(const QWidget &parent, const char *name)
{
    Widget *widget = parent.findChild<Widget *>(QString::fromLatin1(name));
    if (!widget)
        qFatal("no %s %s", Widget::staticMetaObject.className(), name);
    return widget;
}

/** The only visible or hidden child of that type. */
template <typename Widget> Widget *only(const QWidget &parent)
{
    const QList<Widget *> widgets = parent.findChildren<Widget *>();
    if (widgets.size() != 1)
        qFatal("%d of %s", static_cast<int>(widgets.size()), Widget::staticMetaObject.className());
    return widgets.first();
}

/** The PPD with an option for every editor, opened and at its defaults. */
inline Cups::PpdPtr openPpd()
{
    Cups::PpdPtr ppd = Cups::sharePpd(ppdOpenFile(EDITORS_TEST_DATA "/editors.ppd"));
    if (!ppd)
        qFatal("editors.ppd does not open");
    ppdMarkDefaults(ppd.get());
    return ppd;
}

/** That PPD with one text put in the place of another, which must be there. */
inline Cups::PpdPtr openPpdWith(const QByteArray &before, const QByteArray &after)
{
    QFile file(QStringLiteral(EDITORS_TEST_DATA "/editors.ppd"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no editors.ppd");
    QByteArray text = file.readAll();
    if (!text.contains(before))
        qFatal("editors.ppd lacks %s", before.constData());
    QTemporaryFile copy;
    if (!copy.open() || copy.write(text.replace(before, after)) < 0 || !copy.flush())
        qFatal("no temporary file");
    Cups::PpdPtr ppd = Cups::sharePpd(ppdOpenFile(copy.fileName().toLocal8Bit().constData()));
    if (!ppd)
        qFatal("the changed editors.ppd does not open");
    ppdMarkDefaults(ppd.get());
    return ppd;
}

inline QString marked(const Cups::PpdPtr &ppd, const char *keyword)
{
    const ppd_choice_t *choice = ppdFindMarkedChoice(ppd.get(), keyword);
    return choice ? QString::fromLatin1(choice->choice) : QString();
}

inline ppd_cparam_t &param(const Cups::PpdPtr &ppd, const char *keyword, const char *name)
{
    ppd_cparam_t *found = ppdFindCustomParam(ppdFindCustomOption(ppd.get(), keyword), name);
    if (!found)
        qFatal("no parameter %s of %s", name, keyword);
    return *found;
}

/** `text`, which has a decimal point, as the locale of this run shows it. */
inline QString shown(const char *text)
{
    return QString::fromLatin1(text).replace(QLatin1Char('.'), QLocale().decimalPoint());
}

/** Replaces all that a field holds, key by key. */
inline void type(QWidget *field, const QString &text)
{
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(field, Qt::Key_Delete);
    for (const QChar character : text) {
        if (character.unicode() < 0x80)
            QTest::keyClick(field, character.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), {});
    }
}

/** Whether the rows of a view that is too low for them can be moved by a single pixel. */
inline bool scrollsByPixels(QAbstractItemView &view)
{
    QScrollBar &bar = *view.verticalScrollBar();
    const QModelIndex first = view.model()->index(0, 0);
    bar.setValue(0);
    const int before = view.visualRect(first).top();
    bar.setValue(1);
    return bar.maximum() > 0 && view.visualRect(first).top() == before - 1;
}

/** What `action` writes on standard error. */
inline QByteArray standardErrorOf(const std::function<void()> &action)
{
    QTemporaryFile file;
    if (!file.open())
        qFatal("no temporary file");
    std::fflush(stderr);
    const int kept = ::dup(STDERR_FILENO);
    ::dup2(file.handle(), STDERR_FILENO);
    action();
    std::fflush(stderr);
    ::dup2(kept, STDERR_FILENO);
    ::close(kept);
    file.seek(0);
    return file.readAll();
}

struct End {
    int signal;
    QByteArray message;
};

/** Runs `action` in a child process. Signal 0: it came to its end. */
inline End endOf(const std::function<void()> &action)
{
    End end{};
    end.message = standardErrorOf([&] {
        const pid_t pid = ::fork();
        if (pid == 0) {
            const rlimit noCore{0, 0};
            ::setrlimit(RLIMIT_CORE, &noCore);
            std::signal(SIGABRT, SIG_DFL);
            qInstallMessageHandler(nullptr);
            action();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(pid, &status, 0);
        end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    });
    return end;
}

/** Runs the tests in the C locale, and once more where decimals are separated by a comma. */
template <typename Tests> int runInBothLocales(int argc, char **argv)
{
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale::c());
    int failures = 0;
    {
        Tests tests;
        failures = QTest::qExec(&tests, argc, argv);
    }
    const DecimalCommaLocale comma;
    if (!comma.isActive()) {
        std::fprintf(stderr, "%s\n", comma.error());
        return failures + 1;
    }
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    Tests tests;
    tests.setObjectName(QStringLiteral("decimal comma"));
    return failures + QTest::qExec(&tests, argc, argv);
}
} // namespace EditorsTest
