#pragma once

#include "ChildProcess.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

class QByteArray;

/** Runs a program and waits for its end. */
class ProcessEx
{
public:
    /** The program could not be started. */
    static constexpr int FailedToLaunch = ChildProcess::FailedToLaunch;
    /** The program did not end by itself (a signal killed it). */
    static constexpr int DidNotExit = ChildProcess::DidNotExit;

    using Limit = std::optional<std::chrono::milliseconds>;

    /**
     * Runs `program` with `arguments`, each passed as one argument without a shell, and returns its
     * exit status, or one of the two negative values above. The program reads an empty standard
     * input, and what it prints is dropped. Blocks until the program has ended; with a `limit`, a
     * program that takes longer is ended, with a warning.
     */
    static int execute(const QString &program, const QStringList &arguments,
                       Limit limit = std::nullopt);
    /** The same for arguments whose bytes must arrive as they are, whatever encoding they have. */
    static int execute(const QByteArray &program, const QList<QByteArray> &arguments,
                       Limit limit = std::nullopt);
};
