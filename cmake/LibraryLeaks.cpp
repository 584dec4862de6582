// Linked into the sanitized build only, with -Wl,--wrap=cupsMarkOptions: libcups 2.4 makes a cache
// there and ppdClose frees it except for the names of the duplex option and its choices, and the
// options of the finishings. A PPD that is not closed still shows, by what ppdOpen allocated.

#include <sanitizer/lsan_interface.h>

struct ppd_file_s;
struct cups_option_s;

extern "C" int __real_cupsMarkOptions(ppd_file_s *ppd, int count, cups_option_s *options);

extern "C" int __wrap_cupsMarkOptions(ppd_file_s *ppd, int count, cups_option_s *options)
{
    const __lsan::ScopedDisabler ignoresLeaks;
    return __real_cupsMarkOptions(ppd, count, options);
}
