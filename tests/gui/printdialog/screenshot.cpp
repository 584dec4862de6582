/** Shows the print dialog in a given look and writes what it shows into a PNG file. */

#include "Screenshot.h"
#include "DevicePicture.h"
#include "PrintDialog.h"

#include <QSpinBox>

using Screenshot::option;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QCommandLineOption printer = option("printer", "The destination.", "name");
    const QCommandLineOption copies = option("copies", "How many copies.", "number");
    const QCommandLineOption properties = option("properties", "With a properties dialog.");
    const QCommandLineOption width = option("width", "Width of the window.", "pixels");
    QCommandLineParser parser;
    Screenshot::readCommandLine(parser, {printer, copies, properties, width});

    PrintDialogServices services;
    services.devicePicture = devicePicture;
    if (parser.isSet(properties))
        services.createPropertiesDialog = [](const QString &, const PrinterOptions &,
                                             QWidget *parent) { return new QDialog(parent); };
    PrintDialog dialog(parser.value(printer), PrinterOptions(), services);
    if (parser.isSet(copies))
        dialog.findChild<QSpinBox *>()->setValue(parser.value(copies).toInt());
    if (parser.isSet(width))
        dialog.resize(parser.value(width).toInt(), dialog.height());
    return Screenshot::take(dialog, parser);
}
