#pragma once

#include <QList>
#include <QObject>

class PrinterOptions;
class QTabWidget;

namespace Vesk
{
class Plugin;
class PluginPage;
} // namespace Vesk

/** The pages that plug-ins add to one properties dialog. It must not outlive the container of tabs.
 */
class PluginPages : public QObject
{
    Q_OBJECT
public:
    explicit PluginPages(QObject *parent = nullptr);

    /**
     * Adds a tab for each of `plugins` that has a page for the destination of `options`, with the
     * options as they are, and tells `options` which of them are volatile. Called once.
     */
    void addTo(QTabWidget *tabs, PrinterOptions &options, const QList<Vesk::Plugin *> &plugins);
    /** Hands the options that are not a page's own to each page. */
    void update(const PrinterOptions &options);
    /** Sets and removes what the pages want, in their order. */
    void apply(PrinterOptions &options) const;

signals:
    /** The user has changed something on a page. */
    void optionChanged();

private:
    Vesk::PluginPage *addPage(QTabWidget *tabs, Vesk::Plugin *plugin);

    QList<Vesk::PluginPage *> m_pages;
};
