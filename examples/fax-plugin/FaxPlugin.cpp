#include "FaxPage.h"

#include <QCoreApplication>

namespace
{
class FaxPlugin : public Vesk::Plugin
{
public:
    /** This example sends faxes anywhere; a real one would look at the driver's name, say. */
    bool applies(const Vesk::PluginHost *host) override { return !host->destination().isEmpty(); }
    QWidget *createPage(QWidget *parent) override { return new FaxPage(parent); }
    QString title() const override { return QCoreApplication::translate("FaxPage", "Fax"); }
    /** The page is the widget that createPage() has made. */
    Vesk::PluginPage *pageInterface(QWidget *page) override { return static_cast<FaxPage *>(page); }
};
} // namespace

Vesk::Plugin *load_plugin()
{
    return new FaxPlugin;
}
