#pragma once

#include <chrono>
#include <optional>
#include <vector>

/** Runs a program and waits for its end. Needs no toolkit. */
namespace ChildProcess
{
/** The program could not be started. */
constexpr int FailedToLaunch = -2;
/** The program did not end by itself (a signal killed it). */
constexpr int DidNotExit = -1;
/** The program did not end within its limit and was ended. */
constexpr int TookTooLong = -3;
/** The warning that the caller gives when the program could not be started. */
constexpr char LaunchWarning[] = "ProcessEx::execute: failed to launch";

/**
 * Runs `program` with `arguments`, each passed as one argument without a shell, and returns its
 * exit status, or one of the negative values above. The program reads an empty standard input,
 * and what it prints is dropped. Blocks until the program has ended; with a `limit`, a program that
 * takes longer is sent SIGTERM, and SIGKILL two seconds later.
 */
int run(const char *program, const std::vector<const char *> &arguments,
        std::optional<std::chrono::milliseconds> limit = std::nullopt);
} // namespace ChildProcess
