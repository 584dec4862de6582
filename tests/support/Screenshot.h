#pragma once

#include "InstallationSettings.h"
#include "LongTexts.h"
#include "Looks.h"
#include "Translations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStyleFactory>
#include <QTimer>
#include <QWidget>

#include <cstdio>

/** What the programs share that take pictures of a window in several looks. */
namespace Screenshot
{
inline QCommandLineOption option(const char *name, const char *description,
                                 const char *value = nullptr)
{
    return {QString::fromLatin1(name), QString::fromLatin1(description),
            value ? QString::fromLatin1(value) : QString()};
}

/** Takes the texts in the language of the environment from the catalogues of the build. */
inline void speakTheUsersLanguage()
{
    InstallationSettings::load(VESK_PROGRAM);
    Translations::installToolkit(Translations::install(Translations::catalogues(), {}), {});
}

/**
 * Reads the command line: `more`, `--dark`, `--mirrored`, `--long` and the file to write. Sets the
 * look.
 */
inline void readCommandLine(QCommandLineParser &parser, const QList<QCommandLineOption> &more)
{
    const QCommandLineOption dark = option("dark", "A dark palette.");
    const QCommandLineOption mirrored = option("mirrored", "Right to left.");
    const QCommandLineOption longTexts = option("long", "Texts half as long again.");
    parser.addOptions({dark, mirrored, longTexts});
    parser.addOptions(more);
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The PNG file to write."));
    parser.addHelpOption();
    parser.process(*QCoreApplication::instance());
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (parser.isSet(dark))
        QApplication::setPalette(Looks::darkPalette());
    speakTheUsersLanguage();
    static LongTexts translator;
    if (parser.isSet(longTexts))
        QCoreApplication::installTranslator(&translator);
    if (parser.isSet(mirrored))
        QApplication::setLayoutDirection(Qt::RightToLeft);
}

/** Shows the window and writes its picture. Returns the program's exit status. */
inline int take(QWidget &window, const QCommandLineParser &parser)
{
    window.show();
    int status = 1;
    QTimer::singleShot(500, &window, [&] {
        const QSize size = window.size();
        status = window.grab().save(parser.positionalArguments().constFirst()) ? 0 : 1;
        std::printf("%dx%d\n", size.width(), size.height());
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    return status;
}
} // namespace Screenshot
