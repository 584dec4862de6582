/** Shows a tab of the properties dialog in a given look and writes it into a PNG file. */

#include "LongTexts.h"
#include "Looks.h"
#include "PPDTreeView.h"
#include "PrinterPropertiesDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QCommandLineParser>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>

namespace
{
QCommandLineOption option(const char *name, const char *description, const char *value = nullptr)
{
    return {QString::fromLatin1(name), QString::fromLatin1(description),
            value ? QString::fromLatin1(value) : QString()};
}

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
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));

    const QCommandLineOption dark = option("dark", "A dark palette.");
    const QCommandLineOption mirrored = option("mirrored", "Right to left.");
    const QCommandLineOption longTexts = option("long", "Texts half as long again.");
    const QCommandLineOption printer = option("printer", "The destination.", "name");
    const QCommandLineOption tab = option("tab", "The number of the tab, from 0.", "number");
    const QCommandLineOption set = option("set", "An option to begin with.", "name=value");
    const QCommandLineOption row = option("row", "The option to select.", "keyword");
    const QCommandLineOption size = option("size", "Width and height of the window.", "WxH");
    QCommandLineParser parser;
    parser.addOptions({dark, mirrored, longTexts, printer, tab, set, row, size});
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
    dialog.show();

    int status = 1;
    QTimer::singleShot(500, &dialog, [&] {
        const QSize shown = dialog.size();
        status = dialog.grab().save(parser.positionalArguments().constFirst()) ? 0 : 1;
        std::printf("%dx%d\n", shown.width(), shown.height());
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
    return status;
}
