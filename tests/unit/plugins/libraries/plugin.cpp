#include <vesk/plugin.h>

#include <cstdio>

namespace
{
/** Offers no page; says on standard output when it is made and deleted. */
class Recorder : public Vesk::Plugin
{
public:
    Recorder() { say("made"); }
    ~Recorder() override { say("deleted"); }
    bool applies(const Vesk::PluginHost *) override { return false; }
    QWidget *createPage(QWidget *) override { return nullptr; }
    QString title() const override { return QStringLiteral(PLUGIN_NAME); }
    Vesk::PluginPage *pageInterface(QWidget *) override { return nullptr; }

private:
    static void say(const char *what)
    {
        std::printf("%s %s\n", what, PLUGIN_NAME);
        std::fflush(stdout);
    }
};
} // namespace

Vesk::Plugin *load_plugin()
{
    return new Recorder;
}
