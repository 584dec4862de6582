#include <vesk/plugin.h>

Vesk::Plugin *load_plugin()
{
    return nullptr;
}
