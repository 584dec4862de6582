#include "SystemPaths.h"

#include <cstdlib>
#include <string>

namespace
{
/** `path` below the root that the environment names. Called once for each path. */
std::string relocated(const char *path)
{
    const char *root = std::getenv("VESK_RELOCATED_ROOT");
    return std::string(root ? root : "/nonexistent") + path;
}
} // namespace

namespace SystemPaths
{
const char *program()
{
    static const std::string path = relocated("/usr/bin/lpr");
    return path.c_str();
}

const char *systemClient()
{
    static const std::string path = relocated("/usr/bin/lpr.orig");
    return path.c_str();
}

const char *serverSocket()
{
    static const std::string path = relocated("/var/run/cups/cups.sock");
    return path.c_str();
}

const char *logDirectory()
{
    static const std::string path = relocated("/var/tmp");
    return path.c_str();
}

const char *pictureDirectory()
{
    static const std::string path = relocated("/opt/Tarvel/mfp/share/picturtes/");
    return path.c_str();
}

bool areRelocated()
{
    return true;
}
} // namespace SystemPaths
