#pragma once

/**
 * What the installation's settings file `OEM.ini` and the program's own path say.
 *
 * One record in static storage, filled once by `load`. Its texts are NUL-terminated buffers.
 */
struct InstallationSettings {
    static constexpr int PathSize = 4096;
    static constexpr int MaxModels = 32;
    static constexpr int MaxPlugins = 5;

    char programDirectory[PathSize];
    char rootDirectory[PathSize];
    char shareDirectory[PathSize];
    char vendor[32];
    char vendorLower[32];
    char vendorUpper[32];
    char url[256];
    char models[MaxModels][16];
    int modelCount;
    char plugins[MaxPlugins][PathSize];
    int pluginCount;
    /** The numbers are 0 until a settings file was found; then the defaults of OEM.ini hold. */
    int multiVendor;
    int parallelPort;
    int portPlugin;
    int scanner;
    int updatePrinterGroup;

    /** The record of this process. */
    static const InstallationSettings &instance();
    /**
     * Fills the record for a program at `programPath` (absolute, or relative to the working
     * directory). The directories are filled in any case. Returns 0 when a settings file was read,
     * -1 when none was found.
     */
    static int load(const char *programPath);
    /**
     * `format` (printf, with one %s) with the vendor's name: lower case for the selector "lc",
     * upper case for "uc", as written for any other or for null. The text lives in a static buffer
     * of 1024 characters until the next call.
     */
    static const char *vendorText(const char *caseSelector, const char *format);
    /**
     * True when `name` contains the vendor's name, whatever the case, or when the installation is
     * for several vendors. For a null `name`: true exactly for several vendors.
     */
    static bool vendorMatches(const char *name);
};

/** Whether `stat` succeeds on `path`. */
bool fileExists(const char *path);
/**
 * `directory`, a slash unless it ends in one, and `name`. The text lives in a static buffer of 4096
 * characters until the next call.
 */
const char *joinPath(const char *directory, const char *name);
