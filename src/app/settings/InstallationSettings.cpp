#include "InstallationSettings.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr char settingsFileName[] = "OEM.ini";
constexpr int lineSize = 512;

struct FileCloser {
    void operator()(FILE *file) const { std::fclose(file); }
};
using FilePtr = std::unique_ptr<FILE, FileCloser>;

// Constant initialisation: valid before any constructor runs.
InstallationSettings record = {};

template <size_t Size> void store(char (&field)[Size], std::string_view text)
{
    const size_t length = std::min(text.size(), Size - 1);
    std::memmove(field, text.data(), length);
    field[length] = '\0';
}

std::string_view viewOf(const char *text)
{
    return text ? std::string_view(text) : std::string_view();
}

// The vendor's name is compared and changed as ASCII: the user's locale must not matter.
char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
char raised(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string joined(std::string_view directory, std::string_view name)
{
    std::string path(directory);
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

std::string workingDirectory()
{
    char buffer[InstallationSettings::PathSize];
    return getcwd(buffer, sizeof buffer) ? buffer : "";
}

std::string absolutePath(std::string_view path)
{
    std::string absolute(path);
    if (!path.starts_with('/')) {
        if (path.starts_with("./"))
            path.remove_prefix(2);
        absolute = joined(workingDirectory(), path);
    }
    return absolute.substr(0, InstallationSettings::PathSize - 1);
}

/** `path` up to its last slash; the whole path where it has none. */
std::string_view parentOf(std::string_view path)
{
    return path.substr(0, path.rfind('/'));
}

void storeDirectories(const char *programPath)
{
    store(record.programDirectory, parentOf(absolutePath(viewOf(programPath))));
    store(record.rootDirectory, parentOf(record.programDirectory));
    store(record.shareDirectory, std::string(record.rootDirectory) + "/share");
}

/** A folder can be opened for reading, too; nothing can be read from it. */
bool isFolder(FILE *file)
{
    struct stat status = {};
    return fstat(fileno(file), &status) == 0 && S_ISDIR(status.st_mode);
}

FilePtr openSettingsFile()
{
    const std::string candidates[] = {joined(record.shareDirectory, settingsFileName),
                                      joined(record.rootDirectory, settingsFileName),
                                      settingsFileName};
    for (const std::string &path : candidates) {
        if (FilePtr file{std::fopen(path.c_str(), "re")}; file && !isFolder(file.get()))
            return file;
    }
    return nullptr;
}

void storeDefaults()
{
    record.parallelPort = 1;
    record.portPlugin = 1;
    record.scanner = 1;
    record.updatePrinterGroup = 1;
}

int numberOf(const char *text)
{
    return static_cast<int>(std::clamp<long>(std::strtol(text, nullptr, 10),
                                             std::numeric_limits<int>::min(),
                                             std::numeric_limits<int>::max()));
}

void storeVendor(const char *text)
{
    store(record.vendor, text);
    store(record.vendorLower, text);
    store(record.vendorUpper, text);
    std::ranges::transform(record.vendorLower, record.vendorLower, lowered);
    std::ranges::transform(record.vendorUpper, record.vendorUpper, raised);
}

void storeModel(const char *text)
{
    if (record.modelCount < InstallationSettings::MaxModels)
        store(record.models[record.modelCount++], text);
}

void storePlugin(const char *text)
{
    if (record.pluginCount < InstallationSettings::MaxPlugins)
        store(record.plugins[record.pluginCount++], text);
}

struct Key {
    const char *text;
    void (*store)(const char *value);
};

// In the order in which a line is searched for them: VENDOR= is part of MULTIVENDOR=, and PLUGIN=
// of PORTPLUGIN=, so the longer ones come first.
constexpr Key keys[] = {
    {"MULTIVENDOR=", [](const char *value) { record.multiVendor = numberOf(value); }},
    {"PARPORT=", [](const char *value) { record.parallelPort = numberOf(value); }},
    {"PORTPLUGIN=", [](const char *value) { record.portPlugin = numberOf(value); }},
    {"SCANNER=", [](const char *value) { record.scanner = numberOf(value); }},
    {"UPDATE_PRINTER_GROUP=",
     [](const char *value) { record.updatePrinterGroup = numberOf(value); }},
    {"VENDOR=", storeVendor},
    {"URL=", [](const char *value) { store(record.url, value); }},
    {"MODEL=", storeModel},
    {"PLUGIN=", storePlugin},
};

void readLine(const char *line)
{
    for (const Key &key : keys) {
        if (const char *found = std::strstr(line, key.text))
            return key.store(found + std::strlen(key.text));
    }
}

void readSettings(FILE *file)
{
    char line[lineSize];
    while (std::fgets(line, sizeof line, file)) {
        const size_t length = std::strlen(line);
        if (length > 0 && line[length - 1] == '\n')
            line[length - 1] = '\0';
        readLine(line);
    }
}

const char *vendorNameFor(std::string_view caseSelector)
{
    if (caseSelector == "lc")
        return record.vendorLower;
    if (caseSelector == "uc")
        return record.vendorUpper;
    return record.vendor;
}

bool equalIgnoringCase(char a, char b)
{
    return lowered(a) == lowered(b);
}
} // namespace

const InstallationSettings &InstallationSettings::instance()
{
    return record;
}

int InstallationSettings::load(const char *programPath)
{
    record = {};
    storeDirectories(programPath);
    const FilePtr file = openSettingsFile();
    if (!file)
        return -1;
    storeDefaults();
    readSettings(file.get());
    return 0;
}

const char *InstallationSettings::vendorText(const char *caseSelector, const char *format)
{
    static char text[1024];
    text[0] = '\0';
    // The format is the caller's by design.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    if (format)
        std::snprintf(text, sizeof text, format, vendorNameFor(viewOf(caseSelector)));
#pragma GCC diagnostic pop
    return text;
}

bool InstallationSettings::vendorMatches(const char *name)
{
    if (record.multiVendor != 0)
        return true;
    if (!name)
        return false;
    const std::string_view vendor(record.vendor);
    return !std::ranges::search(std::string_view(name), vendor, equalIgnoringCase).empty() ||
           vendor.empty();
}

bool fileExists(const char *path)
{
    struct stat status;
    return path && stat(path, &status) == 0;
}

const char *joinPath(const char *directory, const char *name)
{
    static char path[InstallationSettings::PathSize];
    // Both texts are read before the buffer is written: either may be the last call's result.
    store(path, joined(viewOf(directory), viewOf(name)));
    return path;
}
