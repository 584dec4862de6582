#pragma once

/**
 * How a library adds a page to the properties dialog of a printer.
 *
 * A plug-in is a shared library named `libvesk_plugin_*.so` in one of the folders that are
 * searched: those of the environment variable VESK_PLUGIN_DIR (separated by ';'), or, where it is
 * not set, the `plugins` folders beside the program. Only absolute folders are searched. The
 * libraries of a folder are loaded sorted by name, whatever the case, all symbols bound at once. A
 * library that cannot be loaded ends the program: `Can not load library PATH : REASON`.
 *
 * What is called, and when:
 *
 *  1. The first time that a properties dialog is made, the libraries are loaded, and `load_plugin`
 *     of each is called. A run in which no such dialog is opened loads none of them.
 *  2. Each time that a properties dialog is made: `applies`. If that is true: `createPage`,
 *     `title`, `pageInterface`, and of the page `setOptions` (with all options) and
 *     `volatileOptions`.
 *  3. While the dialog is open and the user changes the size or type of the paper, an option of the
 *     driver or how the size of images is set: `handledOptions` and `setOptions` (with the options
 *     of others).
 *  4. When the user presses Apply or OK, and no options of the driver are in conflict:
 *     `collectOptions`. Then the options are saved.
 *  5. At the end of the program, while the application object still exists: the destructor of the
 *     plug-in, in the order of loading. The library itself is not unloaded.
 *
 * Everything is called in the GUI thread. No operation may throw. The order of the virtual
 * operations is that of the calls into the library and never changes.
 */

#include <QMap>
#include <QString>
#include <QStringList>

class QWidget;

namespace Vesk
{
/** Names of job options with their values, as in `lpr -o name=value`. */
using OptionValues = QMap<QString, QString>;

/** What a plug-in may ask the properties dialog to decide whether it has a page for it. */
class PluginHost
{
public:
    /** The printer or class: `name` or `name/instance`. */
    virtual QString destination() const = 0;
    /** What the printer's driver calls itself; null where the printer has no driver (PPD). */
    virtual QString makeAndModel() const = 0;
    /** What an option is set to: the driver's choice where it knows the option. Null: not set. */
    virtual QString value(const QString &option) const = 0;

protected:
    ~PluginHost() = default;
};

/**
 * The options of one page, best implemented by the page itself.
 *
 * It belongs to the plug-in and must live as long as its page.
 */
class PluginPage
{
public:
    /** The names of the options that the page shows and sets itself. */
    virtual QStringList handledOptions() const = 0;
    /**
     * Takes over what `values` holds and leaves alone what it does not hold. The first call, before
     * the page is shown, has all options that are set, those of the page included. The later ones
     * have those of the others only, so that nothing the user has just typed is overwritten. All
     * have `PageSize` and `Resolution`, null where they are not set.
     */
    virtual void setOptions(const OptionValues &values) = 0;
    /**
     * Adds to `values` what the page wants set and to `removed` the names of the options that it
     * wants removed. Pages before this one may have added to both.
     */
    virtual void collectOptions(OptionValues &values, QStringList &removed) const = 0;
    /**
     * The names of the options that are saved with `volatile-` before the name. Of these, the ones
     * that begin with `qfax` come back without the prefix when the options are loaded again; all
     * others keep it.
     */
    virtual QStringList volatileOptions() const = 0;

protected:
    ~PluginPage() = default;
};

/** What `load_plugin` makes. The program owns it. */
class Plugin
{
public:
    /** Whether there is a page for the dialog. `host` may be used during this call only. */
    virtual bool applies(const PluginHost *host) = 0;
    /**
     * Makes the page, a child of `parent`, the dialog's container of tabs; null: no page after all.
     * The page is deleted with the dialog, and a new one is made for the next dialog. It must have
     * a signal `optionChanged()` and emit it when the user changes something: the dialog then can
     * be applied. It need not say so for what it takes over in `setOptions`.
     */
    virtual QWidget *createPage(QWidget *parent) = 0;
    /** The label of the page's tab, in the user's language. */
    virtual QString title() const = 0;
    /** The options of a page that `createPage` has made. Not null. */
    virtual PluginPage *pageInterface(QWidget *page) = 0;

    virtual ~Plugin() = default;
};
} // namespace Vesk

/** The one function that a plug-in exports: makes its plug-in object. */
extern "C" __attribute__((visibility("default"))) Vesk::Plugin *load_plugin();
