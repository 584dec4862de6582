/** Shows a driver's options in a given look and writes what it shows into a PNG file. */

#include "Screenshot.h"
#include "PPDOptionView.h"
#include "PPDTreeView.h"

#include <QSplitter>

using Screenshot::option;

namespace
{
Cups::PpdPtr openDriver(const QString &fileName)
{
    Cups::PpdPtr ppd = Cups::sharePpd(ppdOpenFile(fileName.toLocal8Bit().constData()));
    if (!ppd)
        qFatal("cannot open %s", qUtf8Printable(fileName));
    ppdMarkDefaults(ppd.get());
    return ppd;
}

/** Marks `KEYWORD=CHOICE`. */
void mark(ppd_file_t *ppd, const QString &text)
{
    const QByteArray keyword = text.section(QLatin1Char('='), 0, 0).toLatin1();
    const QByteArray choice = text.section(QLatin1Char('='), 1).toLatin1();
    ppdMarkOption(ppd, keyword.constData(), choice.constData());
}
PPDTree::OptionItem *optionRow(const PPDTreeView &tree, const QString &keyword)
{
    return dynamic_cast<PPDTree::OptionItem *>(tree.m_dict.value(keyword));
}

/** A row of a number beside the option's. No PPD leads to one. */
QTreeWidgetItem *addNumber(ppd_file_t *ppd, const PPDTree::OptionItem &option)
{
    auto *number = new PPDTree::NumericalItem(
        ppd, option.m_option, dynamic_cast<PPDTree::BaseItem *>(option.QTreeWidgetItem::parent()));
    number->m_isReal = true;
    number->m_min = -0.5;
    number->m_max = 2;
    number->setValue(1.25);
    return number;
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QCommandLineOption driver = option("driver", "The PPD file.", "file");
    const QCommandLineOption marks = option("mark", "An option to mark.", "keyword=choice");
    const QCommandLineOption current = option("select", "The option to select.", "keyword");
    const QCommandLineOption close = option("close", "An option whose group to close.", "keyword");
    const QCommandLineOption number =
        option("number", "An option to show and select as a number.", "keyword");
    const QCommandLineOption width = option("width", "Width of the window.", "pixels");
    QCommandLineParser parser;
    Screenshot::readCommandLine(parser, {driver, marks, current, close, number, width});

    const Cups::PpdPtr ppd = openDriver(parser.value(driver));
    for (const QString &text : parser.values(marks))
        mark(ppd.get(), text);

    QSplitter window;
    PPDTreeView tree;
    PPDOptionView pane;
    tree.setHeaderHidden(true);
    window.addWidget(&tree);
    window.addWidget(&pane);
    QObject::connect(&tree, qOverload<QTreeWidgetItem *>(&PPDTreeView::selectionChanged), &pane,
                     &PPDOptionView::setOption);
    QObject::connect(&pane, &PPDOptionView::optionChanged, &tree, &PPDTreeView::checkConstraints);
    tree.setPPD(ppd.get());
    if (QTreeWidgetItem *row = tree.m_dict.value(parser.value(current)))
        tree.setCurrentItem(row);
    if (QTreeWidgetItem *row = tree.m_dict.value(parser.value(close)))
        row->parent()->setExpanded(false);
    if (const PPDTree::OptionItem *row = optionRow(tree, parser.value(number)))
        tree.setCurrentItem(addNumber(ppd.get(), *row));
    window.resize(parser.isSet(width) ? parser.value(width).toInt() : 760, 560);
    window.setSizes({window.width() * 3 / 5, window.width() * 2 / 5});
    return Screenshot::take(window, parser);
}
