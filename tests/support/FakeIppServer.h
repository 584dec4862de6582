#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QTemporaryDir>

#include <functional>
#include <limits>
#include <list>
#include <mutex>
#include <set>
#include <thread>

/**
 * A print server that answers what a test wants, on a local socket of its own, and keeps what it
 * was sent. It serves each connection on a thread; the handler is called on these threads, one call
 * at a time.
 */
class FakeIppServer
{
public:
    struct Request {
        QByteArray method;
        QByteArray resource;
        /** By name in lower case. */
        QMap<QByteArray, QByteArray> headers;
        QByteArray message;
        QByteArray document;
        int operation() const;
    };

    struct Answer {
        int status = 200;
        /** The IPP response. */
        QByteArray body;
        /** Further header lines, each with its line end. */
        QByteArray headers;
        /** No answer at all: the connection stays open and silent. */
        bool isSilent = false;
        /** Instead of all of the above: these bytes, then the connection is closed. */
        QByteArray raw;
        bool isRaw = false;
        /** After the raw bytes, for as long as the client stays: this text, byte by byte. */
        QByteArray drip;
    };
    using Handler = std::function<Answer(const Request &)>;

    static Answer ok(const QByteArray &response);
    static Answer failure(int httpStatus);
    static Answer silence();
    static Answer raw(const QByteArray &bytes);
    /** Sends the bytes, and then one more of `drip` now and then, from its start again and again.
     */
    static Answer drip(const QByteArray &bytes, const QByteArray &drip);

    /** Answers every request with an empty successful response unless it is given a handler. */
    FakeIppServer();
    ~FakeIppServer();
    FakeIppServer(const FakeIppServer &) = delete;
    FakeIppServer &operator=(const FakeIppServer &) = delete;

    /** For CUPS_SERVER and cupsSetServer. */
    QByteArray address() const { return m_address; }
    /** Makes this server the library's, for this thread and those that start from now on. */
    void use() const;

    void setHandler(Handler handler);
    /** From now on, a pause before each piece, of 64 KiB at most, that is read of a new connection.
     */
    void setPauseBeforeReading(int milliseconds);
    /** From now on, nothing more is read of a new connection after so many bytes. */
    void stopReadingAfter(qsizetype bytes);
    /** How many requests `takeRequests` would give. */
    qsizetype requestCount();
    /** What has arrived since the last call. */
    QList<Request> takeRequests();

private:
    struct Worker {
        std::thread thread;
        bool isDone = false;
    };

    void acceptConnections();
    void joinDone();
    void serve(int connection, Worker &worker);
    bool readRequest(int connection, Request &request, QByteArray &buffered);
    bool answer(int connection, const Request &request);

    QTemporaryDir m_folder;
    QByteArray m_address;
    int m_listener = -1;
    std::mutex m_mutex;
    Handler m_handler;
    int m_readingPauseMs = 0;
    qsizetype m_readingLimit = std::numeric_limits<qsizetype>::max();
    QList<Request> m_requests;
    std::set<int> m_connections;
    bool m_isEnding = false;
    std::list<Worker> m_workers;
    std::thread m_acceptor;
};
