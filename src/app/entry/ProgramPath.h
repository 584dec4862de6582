#pragma once

#include <string>

/**
 * The program's own path: `argv0` where that names an executable file (relative to the working
 * directory), else SystemPaths::program(); absolute, and with a symbolic link replaced by its
 * target.
 */
std::string programPath(const char *argv0);
