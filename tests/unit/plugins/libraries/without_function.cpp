#include <cstdio>

namespace
{
const struct Loaded {
    Loaded()
    {
        std::puts("opened without_function");
        std::fflush(stdout);
    }
} loaded;
} // namespace
