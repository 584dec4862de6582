#include "SystemPaths.h"

namespace SystemPaths
{
const char *program()
{
    return "/usr/bin/lpr";
}
const char *systemClient()
{
    return "/usr/bin/lpr.orig";
}
const char *serverSocket()
{
    return "/var/run/cups/cups.sock";
}
const char *logDirectory()
{
    return "/var/tmp";
}
const char *pictureDirectory()
{
    // Spelled so in the installed tree.
    return "/opt/Tarvel/mfp/share/picturtes/";
}
bool areRelocated()
{
    return false;
}
} // namespace SystemPaths
