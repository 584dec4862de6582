#pragma once

#include <vector>

/** Runs a program and waits for its end. Needs no toolkit. */
namespace ChildProcess
{
/** The program could not be started. */
constexpr int FailedToLaunch = -2;
/** The program did not end by itself (a signal killed it). */
constexpr int DidNotExit = -1;
/** The warning that the caller gives when the program could not be started. */
constexpr char LaunchWarning[] = "ProcessEx::execute: failed to launch";

/**
 * Runs `program` with `arguments`, each passed as one argument without a shell, and returns its
 * exit status, or one of the two negative values above. The program reads an empty standard input,
 * and what it prints is dropped. Blocks until the program has ended.
 */
int run(const char *program, const std::vector<const char *> &arguments);
} // namespace ChildProcess
