#include "FakeIppServer.h"

#include "CupsHandles.h"
#include "IppBytes.h"

#include <QFile>

#include <cstring>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
constexpr char LineEnd[] = "\r\n";
constexpr char HeadEnd[] = "\r\n\r\n";

/** How this thread reads its connection. */
struct Reading {
    int pauseMs = 0;
    qsizetype rest = 0;
};
thread_local Reading reading;

/** Waits until the other side has gone, or this one is to end. */
void waitForEnd(int connection)
{
    constexpr int Endless = -1;
    pollfd end = {connection, POLLRDHUP, 0};
    poll(&end, 1, Endless);
}

bool readMore(int connection, QByteArray &buffered)
{
    if (reading.pauseMs > 0)
        poll(nullptr, 0, reading.pauseMs);
    if (reading.rest <= 0) {
        waitForEnd(connection);
        return false;
    }
    char part[65536];
    const ssize_t count = recv(connection, part, sizeof part, 0);
    if (count <= 0)
        return false;
    buffered.append(part, count);
    reading.rest -= count;
    return true;
}

bool readUntil(int connection, QByteArray &buffered, const char *mark, qsizetype &end)
{
    while ((end = buffered.indexOf(mark)) < 0) {
        if (!readMore(connection, buffered))
            return false;
    }
    return true;
}

/** Cuts `count` bytes off the front, reading what is missing. */
bool take(int connection, QByteArray &buffered, qsizetype count, QByteArray &out)
{
    while (buffered.size() < count) {
        if (!readMore(connection, buffered))
            return false;
    }
    out += buffered.left(count);
    buffered.remove(0, count);
    return true;
}

bool takeChunks(int connection, QByteArray &buffered, QByteArray &out)
{
    for (;;) {
        qsizetype end = 0;
        if (!readUntil(connection, buffered, LineEnd, end))
            return false;
        const qsizetype size = buffered.left(end).toLongLong(nullptr, 16);
        buffered.remove(0, end + 2);
        QByteArray lineEnd;
        if (!take(connection, buffered, size, out) || !take(connection, buffered, 2, lineEnd))
            return false;
        if (size == 0)
            return true;
    }
}

bool sendAll(int connection, const QByteArray &bytes)
{
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count = send(connection, bytes.constData() + sent,
                                   static_cast<size_t>(bytes.size() - sent), MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        sent += count;
    }
    return true;
}

/** Sends the text again and again until the other side has gone, or this one is to end. */
void sendSlowly(int connection, const QByteArray &text)
{
    constexpr int PauseMs = 20;
    for (qsizetype i = 0; sendAll(connection, text.mid(i % text.size(), 1)); ++i) {
        pollfd end = {connection, POLLRDHUP, 0};
        if (poll(&end, 1, PauseMs) != 0)
            return;
    }
}

void parseHead(const QByteArray &head, FakeIppServer::Request &request)
{
    const QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> first = lines.constFirst().trimmed().split(' ');
    request.method = first.value(0);
    request.resource = first.value(1);
    for (const QByteArray &line : lines.mid(1)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.insert(line.left(colon).toLower(), line.mid(colon + 1).trimmed());
    }
}
} // namespace

int FakeIppServer::Request::operation() const
{
    return static_cast<unsigned char>(message.at(2)) << 8 |
           static_cast<unsigned char>(message.at(3));
}

FakeIppServer::Answer FakeIppServer::ok(const QByteArray &response)
{
    Answer answer;
    answer.body = response;
    return answer;
}

FakeIppServer::Answer FakeIppServer::failure(int httpStatus)
{
    Answer answer;
    answer.status = httpStatus;
    return answer;
}

FakeIppServer::Answer FakeIppServer::silence()
{
    Answer answer;
    answer.isSilent = true;
    return answer;
}

FakeIppServer::Answer FakeIppServer::raw(const QByteArray &bytes)
{
    Answer answer;
    answer.isRaw = true;
    answer.raw = bytes;
    return answer;
}

FakeIppServer::Answer FakeIppServer::drip(const QByteArray &bytes, const QByteArray &drip)
{
    Answer answer = raw(bytes);
    answer.drip = drip;
    return answer;
}

FakeIppServer::FakeIppServer()
    : m_address(QFile::encodeName(m_folder.filePath(QStringLiteral("s"))))
    , m_handler([](const Request &) { return ok(IppBytes::response()); })
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (m_address.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        throw std::runtime_error("the temporary folder's name is too long for a socket");
    std::memcpy(address.sun_path, m_address.constData(), static_cast<size_t>(m_address.size()));
    m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(m_listener, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
        listen(m_listener, 50) != 0)
        throw std::runtime_error("the fake server cannot listen");
    m_acceptor = std::thread([this] { acceptConnections(); });
}

FakeIppServer::~FakeIppServer()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
        shutdown(m_listener, SHUT_RDWR);
        for (const int connection : m_connections)
            shutdown(connection, SHUT_RDWR);
    }
    m_acceptor.join();
    for (Worker &worker : m_workers)
        worker.thread.join();
    close(m_listener);
}

void FakeIppServer::use() const
{
    qputenv("CUPS_SERVER", m_address);
    cupsSetServer(m_address.constData());
}

void FakeIppServer::setHandler(Handler handler)
{
    const std::scoped_lock lock(m_mutex);
    m_handler = std::move(handler);
}

void FakeIppServer::setPauseBeforeReading(int milliseconds)
{
    const std::scoped_lock lock(m_mutex);
    m_readingPauseMs = milliseconds;
}

void FakeIppServer::stopReadingAfter(qsizetype bytes)
{
    const std::scoped_lock lock(m_mutex);
    m_readingLimit = bytes;
}

qsizetype FakeIppServer::requestCount()
{
    const std::scoped_lock lock(m_mutex);
    return m_requests.size();
}

QList<FakeIppServer::Request> FakeIppServer::takeRequests()
{
    const std::scoped_lock lock(m_mutex);
    return std::exchange(m_requests, {});
}

void FakeIppServer::acceptConnections()
{
    for (;;) {
        const int connection = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            return;
        const std::scoped_lock lock(m_mutex);
        if (m_isEnding) {
            close(connection);
            return;
        }
        m_connections.insert(connection);
        joinDone();
        Worker &worker = m_workers.emplace_back();
        worker.thread = std::thread([this, connection, &worker] { serve(connection, worker); });
    }
}

void FakeIppServer::joinDone()
{
    m_workers.remove_if([](Worker &worker) {
        if (worker.isDone)
            worker.thread.join();
        return worker.isDone;
    });
}

void FakeIppServer::serve(int connection, Worker &worker)
{
    {
        const std::scoped_lock lock(m_mutex);
        reading = {m_readingPauseMs, m_readingLimit};
    }
    Request request;
    QByteArray buffered;
    while (readRequest(connection, request, buffered) && answer(connection, request))
        request = Request();
    const std::scoped_lock lock(m_mutex);
    m_connections.erase(connection);
    close(connection);
    worker.isDone = true;
}

bool FakeIppServer::readRequest(int connection, Request &request, QByteArray &buffered)
{
    qsizetype end = 0;
    if (!readUntil(connection, buffered, HeadEnd, end))
        return false;
    parseHead(buffered.left(end), request);
    buffered.remove(0, end + static_cast<qsizetype>(std::strlen(HeadEnd)));
    if (request.headers.value("expect") == "100-continue" &&
        !sendAll(connection, "HTTP/1.1 100 Continue\r\n\r\n"))
        return false;
    QByteArray body;
    const bool isWhole = request.headers.value("transfer-encoding") == "chunked"
                             ? takeChunks(connection, buffered, body)
                             : take(connection, buffered,
                                    request.headers.value("content-length").toLongLong(), body);
    const qsizetype size = ippMessageSize(body);
    request.message = body.left(size);
    request.document = body.mid(size);
    return isWhole;
}

bool FakeIppServer::answer(int connection, const Request &request)
{
    Answer answer;
    {
        const std::scoped_lock lock(m_mutex);
        m_requests.append(request);
        answer = m_handler(request);
    }
    if (answer.isSilent)
        return true;
    if (answer.isRaw) {
        if (sendAll(connection, answer.raw) && !answer.drip.isEmpty())
            sendSlowly(connection, answer.drip);
        return false;
    }
    return sendAll(connection, "HTTP/1.1 " + QByteArray::number(answer.status) + " Answer\r\n" +
                                   "Content-Type: application/ipp\r\n" + answer.headers +
                                   "Content-Length: " + QByteArray::number(answer.body.size()) +
                                   HeadEnd + answer.body);
}
