/** Shows the print dialog in a given look and writes what it shows into a PNG file. */

#include "LongTexts.h"
#include "Looks.h"
#include "PrintDialog.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSpinBox>
#include <QStyleFactory>
#include <QTimer>

#include <cstdio>

namespace
{
QCommandLineOption option(const char *name, const char *description, const char *value = nullptr)
{
    return {QString::fromLatin1(name), QString::fromLatin1(description),
            value ? QString::fromLatin1(value) : QString()};
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));

    const QCommandLineOption dark = option("dark", "A dark palette.");
    const QCommandLineOption mirrored = option("mirrored", "Right to left.");
    const QCommandLineOption longTexts = option("long", "Texts half as long again.");
    const QCommandLineOption printer = option("printer", "The destination.", "name");
    const QCommandLineOption copies = option("copies", "How many copies.", "number");
    const QCommandLineOption properties = option("properties", "With a properties dialog.");
    const QCommandLineOption width = option("width", "Width of the window.", "pixels");
    QCommandLineParser parser;
    parser.addOptions({dark, mirrored, longTexts, printer, copies, properties, width});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The PNG file to write."));
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);

    LongTexts translator;
    if (parser.isSet(dark))
        QApplication::setPalette(Looks::darkPalette());
    if (parser.isSet(mirrored))
        QApplication::setLayoutDirection(Qt::RightToLeft);
    if (parser.isSet(longTexts))
        QCoreApplication::installTranslator(&translator);

    PrintDialogServices services;
    if (parser.isSet(properties))
        services.createPropertiesDialog = [](const QString &, const PrinterOptions &,
                                             QWidget *parent) { return new QDialog(parent); };
    PrintDialog dialog(parser.value(printer), PrinterOptions(), services);
    if (parser.isSet(copies))
        dialog.findChild<QSpinBox *>()->setValue(parser.value(copies).toInt());
    if (parser.isSet(width))
        dialog.resize(parser.value(width).toInt(), dialog.height());
    dialog.show();

    int status = 1;
    QTimer::singleShot(500, &dialog, [&] {
        const QSize size = dialog.size();
        status = dialog.grab().save(parser.positionalArguments().constFirst()) ? 0 : 1;
        std::printf("%dx%d\n", size.width(), size.height());
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    return status;
}
