#include <vesk/plugin.h>

extern "C" Vesk::Plugin *vesk_test_is_nowhere();

Vesk::Plugin *load_plugin()
{
    return vesk_test_is_nowhere();
}
