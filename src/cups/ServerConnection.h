#pragma once

#include "CupsHandles.h"

namespace ServerConnection
{
/**
 * How long the program waits for the server. Once a connection is `totalMs` old, everything on it
 * ends at once: a wait for a silent server, and an exchange with one that goes on sending (a byte
 * now and then, or one redirection after the other). Where there is no thread to see to that, waits
 * end after `waitSeconds` more. While a document is sent, the time counts from the last progress.
 */
struct Limits {
    int connectMs = 5000;
    double waitSeconds = 3.0;
    int totalMs = 15000;

    /** In place of `totalMs` for lists that take a sound server many seconds. */
    int slowListMs() const { return totalMs * 5 / 3; }
};

/** The limits in force; tests shorten them. */
Limits &limits();

/** Closes a connection that `open` has opened. */
void close(http_t *http);

struct Closer {
    void operator()(http_t *http) const { close(http); }
};
/** Owns a connection that `open` has opened. */
using Ptr = std::unique_ptr<http_t, Closer>;

/** What is going to be asked on a connection. */
enum class Question { Usual, SlowList };

/**
 * A connection to the server that the library is configured for (cupsServer(), ippPort()) on which
 * nothing is endless: what is asked of a server that does not answer, or whose answer does not come
 * to its end, fails within 30 seconds, all requests on the connection taken together. Null when the
 * connection cannot be opened.
 */
Ptr open(Question question = Question::Usual);

/** Whether the time of this connection is over: what came from it last may not be whole. */
bool isTimeOver(http_t *http);

/**
 * While it lives, `file`, an open file, is being sent on `http`: as long as that makes progress,
 * the connection's time is not over.
 */
class Upload
{
public:
    Upload(http_t *http, int file);
    ~Upload();
    Upload(const Upload &) = delete;
    Upload &operator=(const Upload &) = delete;

private:
    http_t *m_http;
};

/**
 * While it lives, all connections that this thread opens have one time limit together, as if they
 * were one connection: what the user has asked for ends within it, however many requests it takes.
 * Once the time is over, `open` fails at once. Within another one it changes nothing.
 */
class Patience
{
public:
    Patience();
    ~Patience();
    Patience(const Patience &) = delete;
    Patience &operator=(const Patience &) = delete;
    /** After the user has given up: new time, for what is to be done even so. */
    void goOn();
};

/**
 * The user does not want to go on with what has been asked for: the time of this thread's Patience,
 * if there is one, is over.
 */
void giveUp();

/** How many connections `open` has opened on this thread so far. */
unsigned openings();

/**
 * Whether the server has answered a request with a password on a connection of this thread that has
 * been closed since this was last asked.
 */
bool wasLetIn();

/**
 * Time that the user takes, to answer a question that the server has asked on `http` (which may be
 * null): while it lives, the connection has no time limit, and what else is asked meanwhile shares
 * none with it. Afterwards the connection is new again for the limits; and so is a Patience, if
 * there is one.
 */
class UserTime
{
public:
    explicit UserTime(http_t *http);
    ~UserTime();
    UserTime(const UserTime &) = delete;
    UserTime &operator=(const UserTime &) = delete;

private:
    http_t *m_http;
    int m_sharingScopes;
};
} // namespace ServerConnection
