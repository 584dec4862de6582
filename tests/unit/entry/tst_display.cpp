#include "Display.h"

#include <QDir>
#include <QElapsedTimer>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

using Display::Kind;

namespace
{
/** A listening socket that takes connections; with `answers` it sends a few bytes to the first. */
class Listener
{
public:
    Listener(const QByteArray &path, bool answers) : m_socket(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
        if (bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) != 0
            || listen(m_socket, 4) != 0)
            qFatal("cannot listen");
        if (answers)
            m_thread = std::thread([this] { answerOne(); });
    }
    ~Listener()
    {
        shutdown(m_socket, SHUT_RDWR);
        if (m_thread.joinable())
            m_thread.join();
        close(m_socket);
    }
    QByteArray request() const { return m_request; }

private:
    void answerOne()
    {
        const int connection = accept(m_socket, nullptr, nullptr);
        std::array<char, 12> request = {};
        if (recv(connection, request.data(), request.size(), MSG_WAITALL) == ssize_t(request.size()))
            m_request = QByteArray(request.data(), qsizetype(request.size()));
        send(connection, "done", 4, MSG_NOSIGNAL);
        close(connection);
    }
    int m_socket;
    std::thread m_thread;
    QByteArray m_request;
};
} // namespace

class TestDisplay : public QObject
{
    Q_OBJECT
private slots:
    void needsNoneForOtherPlatforms();
    void findsNoneWhereNothingIsSet();
    void findsNoneWhereNothingListens();
    void findsNoneWhereTheDisplayIsSilent();
    void asksWayland();
    void readsOptionsBeforeTheEnvironment();
};

void TestDisplay::needsNoneForOtherPlatforms()
{
    Display::Setting setting;
    setting.platform = "offscreen";
    QCOMPARE(Display::find(setting), Kind::Default);
}

void TestDisplay::findsNoneWhereNothingIsSet()
{
    QCOMPARE(Display::find(Display::Setting()), Kind::None);
}

void TestDisplay::findsNoneWhereNothingListens()
{
    Display::Setting setting;
    setting.display = ":64321";
    setting.waylandDisplay = "wayland-77";
    setting.runtimeDir = "/nonexistent";
    QCOMPARE(Display::find(setting), Kind::None);
    setting.platform = "xcb";
    QCOMPARE(Display::find(setting), Kind::None);
    setting.platform = "wayland";
    QCOMPARE(Display::find(setting), Kind::None);
    setting.platform.clear();
    setting.display = "nonsense";
    setting.waylandDisplay = QByteArray(500, 'w');
    QCOMPARE(Display::find(setting), Kind::None);
}

void TestDisplay::findsNoneWhereTheDisplayIsSilent()
{
    // X finds its display by number in the abstract namespace or a fixed folder, so a display that
    // takes the connection and is silent is given by the path of its socket.
    QTemporaryDir directory;
    const QByteArray path = directory.filePath(QStringLiteral("x:0")).toLocal8Bit();
    const Listener listener(path.left(path.size()), false);
    Display::Setting setting;
    setting.platform = "xcb";
    setting.display = path;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(Display::find(setting), Kind::None);
    QVERIFY2(timer.elapsed() < 2 * Display::AnswerTimeoutMs, qPrintable(QString::number(timer.elapsed())));
}

void TestDisplay::asksWayland()
{
    QTemporaryDir directory;
    Display::Setting setting;
    setting.platform = "wayland";
    setting.runtimeDir = directory.path().toLocal8Bit();
    setting.waylandDisplay = "wayland-0";
    QByteArray request;
    {
        const Listener listener(setting.runtimeDir + "/wayland-0", true);
        const Kind kind = Display::find(setting);
        const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
        const bool hasPlugin = !plugins.entryList({QStringLiteral("libqwayland-*")}).isEmpty();
        QCOMPARE(kind, hasPlugin ? Kind::Wayland : Kind::None);
        QTRY_COMPARE(listener.request().size(), 12);
        request = listener.request();
    }
    std::array<uint32_t, 3> words;
    std::memcpy(words.data(), request.constData(), sizeof(words));
    QCOMPARE(words[0], 1U);
    QCOMPARE(words[1], 12U << 16U);
    QCOMPARE(words[2], 2U);
}

void TestDisplay::readsOptionsBeforeTheEnvironment()
{
    qputenv("DISPLAY", ":1");
    qputenv("QT_QPA_PLATFORM", "minimal");
    Display::Setting setting = Display::setting(QByteArray(), QByteArray());
    QCOMPARE(setting.display, QByteArray(":1"));
    QCOMPARE(setting.platform, QByteArray("minimal"));
    QVERIFY(!setting.displayFromOption);
    setting = Display::setting("xcb", ":2");
    QCOMPARE(setting.display, QByteArray(":2"));
    QCOMPARE(setting.platform, QByteArray("xcb"));
    QVERIFY(setting.displayFromOption);
}

QTEST_GUILESS_MAIN(TestDisplay)
#include "tst_display.moc"
