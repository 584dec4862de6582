#include "PluginPages.h"

#include "JobOptions.h"
#include "PrinterOptions.h"

#include <vesk/plugin.h>

#include <QTabWidget>

#include <utility>

namespace
{
constexpr QLatin1StringView RemovalMark("-");
const QString ResolutionOption = QStringLiteral("Resolution");
const QString PageSizeOption = QString::fromLatin1(JobOptions::pageSize);

/** The dialog's state as a plug-in sees it. */
class Host final : public Vesk::PluginHost
{
public:
    explicit Host(const PrinterOptions &options)
        : m_options(options)
    {
    }

    QString destination() const override { return m_options.destination(); }
    QString makeAndModel() const override
    {
        return m_options.ppd() ? QString::fromUtf8(m_options.ppd()->nickname) : QString();
    }
    QString value(const QString &option) const override
    {
        return m_options.value(option, QString());
    }

private:
    const PrinterOptions &m_options;
};

/** The options that are set without those of a page; paper size and resolution in any case. */
Vesk::OptionValues valuesFor(const QStringList &ownOptions, const PrinterOptions &options)
{
    Vesk::OptionValues result;
    for (const cups_option_t &option : options.cupsOptions()) {
        const QString name = QString::fromLatin1(option.name);
        const QString value = QString::fromLocal8Bit(option.value);
        if (value != name + RemovalMark && !ownOptions.contains(name))
            result.insert(name, value);
    }
    for (const QString &name : {PageSizeOption, ResolutionOption})
        result.insert(name, options.value(name, QString()));
    return result;
}
} // namespace

PluginPages::PluginPages(QObject *parent)
    : QObject(parent)
{
}

void PluginPages::addTo(QTabWidget *tabs, PrinterOptions &options,
                        const QList<Vesk::Plugin *> &plugins)
{
    const Host host(options);
    const Vesk::OptionValues values = valuesFor({}, options);
    QStringList volatileOptions;
    for (Vesk::Plugin *plugin : plugins) {
        Vesk::PluginPage *page = plugin->applies(&host) ? addPage(tabs, plugin) : nullptr;
        if (!page)
            continue;
        m_pages.append(page);
        page->setOptions(values);
        volatileOptions += page->volatileOptions();
    }
    options.setVolatileOptions(volatileOptions);
}

Vesk::PluginPage *PluginPages::addPage(QTabWidget *tabs, Vesk::Plugin *plugin)
{
    QWidget *widget = plugin->createPage(tabs);
    if (!widget)
        return nullptr;
    const QString title = plugin->title();
    Vesk::PluginPage *page = plugin->pageInterface(widget);
    if (!page) {
        qWarning("The plug-in page %s has no interface", qUtf8Printable(title));
        delete widget;
        return nullptr;
    }
    tabs->addTab(widget, title);
    // The page is known by the name of its signal alone.
    connect(widget, SIGNAL(optionChanged()), this, SIGNAL(optionChanged()));
    return page;
}

void PluginPages::update(const PrinterOptions &options)
{
    for (Vesk::PluginPage *page : std::as_const(m_pages))
        page->setOptions(valuesFor(page->handledOptions(), options));
}

void PluginPages::apply(PrinterOptions &options) const
{
    Vesk::OptionValues values;
    QStringList removed;
    for (const Vesk::PluginPage *page : m_pages)
        page->collectOptions(values, removed);
    for (const auto &[name, value] : values.asKeyValueRange())
        options.setOption(name, value);
    for (const QString &name : std::as_const(removed))
        options.removeOption(name);
}
