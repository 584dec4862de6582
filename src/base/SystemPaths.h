#pragma once

/**
 * The absolute paths that the program is wired to.
 *
 * They are defined in one translation unit per executable: SystemPaths.cpp for the installed
 * program, SystemPathsRelocated.cpp for the executable that runs where the kernel refuses a
 * private mount namespace (there each path gets the prefix in the environment variable
 * VESK_RELOCATED_ROOT). The texts live as long as the process and are safe to read before main.
 */
namespace SystemPaths
{
/** The name under which the program is installed: /usr/bin/lpr. */
const char *program();
/** The system's own client: /usr/bin/lpr.orig. */
const char *systemClient();
/** The local server's socket: /var/run/cups/cups.sock. */
const char *serverSocket();
/** The folder of the diagnostic logs, without a slash at its end: /var/tmp. */
const char *logDirectory();
/** The folder of the device pictures, with a slash at its end. */
const char *pictureDirectory();
/** True in the relocated executable. */
bool areRelocated();
} // namespace SystemPaths
