#include "ProgramPath.h"

#include "SystemPaths.h"

#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

bool isExecutableFile(const fs::path &path)
{
    std::error_code error;
    return fs::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

/** Where a symbolic link points to; the path itself where it is none. */
fs::path followed(const fs::path &path)
{
    std::error_code error;
    const fs::path target = fs::read_symlink(path, error);
    return error ? path : path.parent_path() / target;
}
} // namespace

std::string programPath(const char *argv0)
{
    fs::path path(argv0 ? argv0 : "");
    if (!isExecutableFile(path))
        path = SystemPaths::program();
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return followed(error ? path : absolute).lexically_normal();
}
