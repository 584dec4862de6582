/** Shows a tab of the properties dialog in a given look and writes it into a PNG file. */

#include "Screenshot.h"
#include "PPDTreeView.h"
#include "PrinterPropertiesDialog.h"

#include <QTabWidget>

using Screenshot::option;

namespace
{
/** Selects the row of an option of the driver. */
void selectRow(PPDTreeView &tree, const QString &keyword)
{
    if (QTreeWidgetItem *row = tree.m_dict.value(keyword)) {
        tree.setCurrentItem(row);
        tree.scrollToItem(row);
    }
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QCommandLineOption printer = option("printer", "The destination.", "name");
    const QCommandLineOption tab = option("tab", "The number of the tab, from 0.", "number");
    const QCommandLineOption set = option("set", "An option to begin with.", "name=value");
    const QCommandLineOption row = option("row", "The option to select.", "keyword");
    const QCommandLineOption size = option("size", "Width and height of the window.", "WxH");
    QCommandLineParser parser;
    Screenshot::readCommandLine(parser, {printer, tab, set, row, size});

    const QString destination =
        parser.isSet(printer) ? parser.value(printer) : QStringLiteral("Laser");
    PrinterOptions options;
    options.load(destination);
    const QStringList pairs = parser.values(set);
    for (const QString &pair : pairs)
        options.setOption(pair.section(u'=', 0, 0), pair.section(u'=', 1));
    PrinterPropertiesDialog dialog(destination, options);
    dialog.findChild<QTabWidget *>()->setCurrentIndex(parser.value(tab).toInt());
    selectRow(*dialog.findChild<PPDTreeView *>(), parser.value(row));
    if (parser.isSet(size))
        dialog.resize(parser.value(size).section(u'x', 0, 0).toInt(),
                      parser.value(size).section(u'x', 1).toInt());
    return Screenshot::take(dialog, parser);
}
