#pragma once

#include <cstdio>
#include <memory>

/**
 * A diagnostic log in the log folder (SystemPaths::logDirectory), truncated when it is opened.
 *
 * The folder may be writable for everyone, so the file is opened without following a link and is
 * used only if it is a regular file of the current user with no other name. A log that cannot be
 * opened so is null, nothing is reported, and nothing is written.
 */
namespace DiagnosticLog
{
struct Closer {
    void operator()(FILE *file) const { std::fclose(file); }
};
using Handle = std::unique_ptr<FILE, Closer>;

/** The logs of the program, in the log folder. */
namespace Names
{
constexpr char Requests[] = "ipp_request.log";
constexpr char Printers[] = "ipp_printer.log";
constexpr char Drivers[] = "ipp_driver.log";
constexpr char Jobs[] = "ipp_job.log";
constexpr char Classes[] = "ipp_class.log";
constexpr char Options[] = "PrinterOptions.log";
} // namespace Names

/** Opens and truncates the log `fileName` (a bare file name). Null when that is not possible. */
Handle open(const char *fileName);

/** Truncates all logs, before what writes them is loaded, and where it never is. */
void truncateAll();
} // namespace DiagnosticLog
