#include "ToolkitOptions.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{
using std::string_view;

constexpr std::array OptionsWithValue = {string_view("style"),
                                         string_view("stylesheet"),
                                         string_view("platform"),
                                         string_view("platformtheme"),
                                         string_view("plugin"),
                                         string_view("platformpluginpath"),
                                         string_view("qwindowgeometry"),
                                         string_view("geometry"),
                                         string_view("qwindowicon"),
                                         string_view("icon"),
                                         string_view("qwindowtitle"),
                                         string_view("title"),
                                         string_view("session"),
                                         string_view("display"),
                                         string_view("name"),
                                         string_view("qmljsdebugger")};
constexpr std::array OptionsWithoutValue = {string_view("reverse"), string_view("widgetcount")};
/** These may also be written as `-style=fusion`. */
constexpr std::array OptionsWithInlineValue = {string_view("style"), string_view("stylesheet"),
                                               string_view("qmljsdebugger")};

template <typename Names> bool contains(const Names &names, string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/** The name of an option (`-name` or `--name`), or an empty text for an operand. */
string_view optionName(string_view argument)
{
    if (argument.size() < 2 || argument.front() != '-')
        return {};
    argument.remove_prefix(1);
    if (argument.front() == '-')
        argument.remove_prefix(1);
    return argument;
}

bool hasInlineValue(string_view name)
{
    const size_t equals = name.find('=');
    return equals != string_view::npos && contains(OptionsWithInlineValue, name.substr(0, equals));
}

/** How many arguments, from this one on, belong to the toolkit: 0, 1 or 2. */
int toolkitArguments(string_view argument, bool isLast)
{
    const string_view name = optionName(argument);
    if (contains(OptionsWithoutValue, name) || hasInlineValue(name))
        return 1;
    return contains(OptionsWithValue, name) && !isLast ? 2 : 0;
}
} // namespace

namespace ToolkitOptions
{
Split split(int argc, char **argv)
{
    Split result;
    if (argc > 0) {
        result.toolkit.push_back(argv[0]);
        result.rest.push_back(argv[0]);
    }
    int i = 1;
    while (i < argc && string_view(argv[i]) != "--") {
        const int taken = toolkitArguments(argv[i], i + 1 == argc);
        if (taken == 0) {
            result.rest.push_back(argv[i++]);
            continue;
        }
        const string_view name = optionName(argv[i]);
        if (name == "display")
            result.display = argv[i + 1];
        if (name == "platform")
            result.platform = argv[i + 1];
        if (name == "platformpluginpath")
            result.platformPluginPath = argv[i + 1];
        result.toolkit.insert(result.toolkit.end(), argv + i, argv + i + taken);
        i += taken;
    }
    if (i < argc)
        result.rest.insert(result.rest.end(), argv + i, argv + argc);
    return result;
}
} // namespace ToolkitOptions
