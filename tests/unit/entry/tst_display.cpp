#include "Display.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <optional>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace
{
/**
 * A listening socket. With an answer it serves one client: takes `requestSize` bytes, sends the
 * answer, and holds the connection while it lives.
 */
class Listener
{
public:
    explicit Listener(const QByteArray &path, size_t requestSize = 0, const QByteArray &answer = {})
        : m_socket(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        if (!bindTo(path) || listen(m_socket, 4) != 0)
            qFatal("cannot listen");
        if (!answer.isEmpty())
            m_thread = std::thread([this, requestSize, answer] { serve(requestSize, answer); });
    }
    ~Listener()
    {
        shutdown(m_socket, SHUT_RDWR);
        if (m_thread.joinable())
            m_thread.join();
        for (int descriptor : {m_connection, m_socket}) {
            if (descriptor >= 0)
                close(descriptor);
        }
    }
    /** What the client has sent; waits for the end of the service. */
    QByteArray request()
    {
        m_thread.join();
        return m_request;
    }

private:
    /** A path that begins with '@' is a name without a file, as X uses it. */
    bool bindTo(const QByteArray &path) const
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
        if (path.startsWith('@'))
            address.sun_path[0] = '\0';
        const size_t length = offsetof(sockaddr_un, sun_path) + size_t(path.size());
        return bind(m_socket, reinterpret_cast<const sockaddr *>(&address), socklen_t(length)) == 0;
    }

    void serve(size_t requestSize, const QByteArray &answer)
    {
        m_connection = accept(m_socket, nullptr, nullptr);
        if (m_connection < 0)
            return;
        m_request.resize(qsizetype(requestSize));
        m_request.resize(recv(m_connection, m_request.data(), requestSize, MSG_WAITALL));
        send(m_connection, answer.constData(), size_t(answer.size()), MSG_NOSIGNAL);
    }

    int m_socket;
    int m_connection = -1;
    std::thread m_thread;
    QByteArray m_request;
};

/** A display number of this process: nobody else's display is near it. */
QByteArray displayNumber()
{
    return QByteArray::number(100000 + getpid());
}

QByteArray displaySocket()
{
    return "@/tmp/.X11-unix/X" + displayNumber();
}

/** The answer of an X server that accepts the connection: 32 bytes of setup without any screen. */
QByteArray xAccepts()
{
    QByteArray answer(8 + 32, '\0');
    answer[0] = 1;  // success
    answer[2] = 11; // protocol 11.0
    answer[6] = 8;  // additional data, in units of four bytes
    return answer;
}

/** A folder of plug-ins: find() looks for their files only. */
class PluginFolder
{
public:
    explicit PluginFolder(const QStringList &names)
    {
        for (const QString &name : names) {
            QFile file(m_directory.filePath(name));
            if (!file.open(QIODevice::WriteOnly))
                qFatal("cannot make a file");
        }
    }
    std::vector<std::string> path() const { return {m_directory.path().toStdString()}; }

private:
    QTemporaryDir m_directory;
};

QByteArray waylandSocket(const Display::Setting &setting)
{
    return QByteArray::fromStdString(setting.runtimeDir + '/' + setting.waylandDisplay);
}

bool looksIn(const Display::Setting &setting, const std::string &folder)
{
    return std::find(setting.pluginFolders.begin(), setting.pluginFolders.end(), folder) !=
           setting.pluginFolders.end();
}

const QStringList AllPlugins = {QStringLiteral("libqxcb.so"), QStringLiteral("libqwayland-egl.so"),
                                QStringLiteral("libqoffscreen.so")};
} // namespace

class TestDisplay : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void chooses_data();
    void chooses();
    void findsNoneWhereTheDisplayIsSilent();
    void findsNoneWhereNamesMakeNoSense();
    void asksWaylandToSynchronize();
    void readsOptionsBeforeTheEnvironment();
    void knowsTheToolkitsPlugins();

private:
    std::unique_ptr<QTemporaryDir> m_directory;
};

void TestDisplay::init()
{
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_PLUGIN_PATH",
                                 "QT_QPA_PLATFORM_PLUGIN_PATH"})
        qunsetenv(variable);
    m_directory = std::make_unique<QTemporaryDir>();
}

void TestDisplay::chooses_data()
{
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<bool>("wantsX");
    QTest::addColumn<bool>("xAnswers");
    QTest::addColumn<bool>("waylandAnswers");
    QTest::addColumn<QStringList>("plugins");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QByteArray>("chosen");

    const auto row = [](const char *name, const QByteArray &platform, const char *who,
                        const char *chosen, const QStringList &plugins = AllPlugins,
                        bool wantsX = false) {
        const QByteArray answers(who);
        QTest::newRow(name) << platform << wantsX << answers.contains('x') << answers.contains('w')
                            << plugins << (chosen != nullptr) << QByteArray(chosen);
    };
    row("nothing", "", "", nullptr);
    row("x", "", "x", "xcb");
    row("wayland", "", "w", "wayland");
    row("both", "", "xw", "");
    row("wayland without its plug-in", "", "w", nullptr, {QStringLiteral("libqxcb.so")});
    row("x without its plug-in", "", "x", nullptr, {QStringLiteral("libqwayland-egl.so")});
    row("xcb named", "xcb", "xw", "xcb");
    row("xcb named in vain", "xcb", "w", nullptr);
    row("with parameters", "xcb:foo=1", "x", "xcb:foo=1");
    row("wayland named", "wayland", "xw", "wayland");
    row("wayland named in vain", "wayland", "x", nullptr);
    row("a kind of wayland", "wayland-egl", "w", "wayland-egl");
    row("first of a list", "wayland;xcb", "xw", "wayland");
    row("second of a list", "wayland;xcb", "x", "xcb");
    row("second of the other list", "xcb;wayland", "w", "wayland");
    row("none of a list", "wayland;xcb", "", nullptr);
    row("needs no display", "offscreen", "", "offscreen");
    row("upper case", "Offscreen", "", "Offscreen");
    row("unknown", "nosuch", "xw", nullptr);
    row("an x display wanted", "", "xw", "xcb", AllPlugins, true);
    row("an x display wanted in vain", "", "w", nullptr, AllPlugins, true);
    row("an x display wanted against the environment", "wayland", "xw", "xcb", AllPlugins, true);
    row("an x display wanted, dead", "wayland", "w", nullptr, AllPlugins, true);
    row("an x display wanted where none is used", "offscreen", "", "offscreen", AllPlugins, true);
}

void TestDisplay::chooses()
{
    QFETCH(QByteArray, platform);
    QFETCH(bool, wantsX);
    QFETCH(bool, xAnswers);
    QFETCH(bool, waylandAnswers);
    QFETCH(QStringList, plugins);
    QFETCH(bool, found);

    const PluginFolder folder(plugins);
    Display::Setting setting;
    setting.platform = platform.toStdString();
    setting.wantsX = wantsX;
    setting.pluginFolders = folder.path();
    setting.runtimeDir = m_directory->path().toStdString();
    setting.waylandDisplay = "wayland-0";
    setting.display = (':' + displayNumber()).toStdString();
    std::optional<Listener> wayland;
    std::optional<Listener> x;
    if (waylandAnswers)
        wayland.emplace(waylandSocket(setting), 12, QByteArray("done"));
    if (xAnswers)
        x.emplace(displaySocket(), 12, xAccepts());

    const auto result = Display::find(setting);
    QCOMPARE(result.has_value(), found);
    QTEST(QByteArray::fromStdString(result.value_or("")), "chosen");
}

void TestDisplay::findsNoneWhereTheDisplayIsSilent()
{
    const PluginFolder folder(AllPlugins);
    Display::Setting setting;
    setting.display = (':' + displayNumber()).toStdString();
    setting.pluginFolders = folder.path();
    const Listener listener(displaySocket());
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!Display::find(setting));
    QVERIFY(timer.elapsed() >= Display::AnswerTimeoutMs);
}

void TestDisplay::findsNoneWhereNamesMakeNoSense()
{
    const PluginFolder folder(AllPlugins);
    Display::Setting setting;
    setting.pluginFolders = folder.path();
    setting.display = "nonsense";
    setting.waylandDisplay = std::string(500, 'w');
    setting.runtimeDir = "/nonexistent";
    QVERIFY(!Display::find(setting));
}

void TestDisplay::asksWaylandToSynchronize()
{
    const PluginFolder folder(AllPlugins);
    Display::Setting setting;
    setting.platform = "wayland";
    setting.pluginFolders = folder.path();
    setting.runtimeDir = m_directory->path().toStdString();
    setting.waylandDisplay = "wayland-0";
    Listener listener(waylandSocket(setting), 12, QByteArray("done"));
    QVERIFY(Display::find(setting));
    const QByteArray request = listener.request();
    QCOMPARE(request.size(), 12);
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
    qputenv("QT_QPA_PLATFORM_PLUGIN_PATH", "/env");
    Display::Setting setting = Display::setting(nullptr, nullptr, nullptr);
    QCOMPARE(setting.display, std::string(":1"));
    QCOMPARE(setting.platform, std::string("minimal"));
    QVERIFY(!setting.wantsX);
    QVERIFY(looksIn(setting, "/env"));

    setting = Display::setting(nullptr, ":2", "/option");
    QCOMPARE(setting.display, std::string(":2"));
    QCOMPARE(setting.platform, std::string("minimal"));
    QVERIFY(setting.wantsX);
    QVERIFY(looksIn(setting, "/option"));
    QVERIFY(!looksIn(setting, "/env"));

    setting = Display::setting("wayland", ":2", nullptr);
    QCOMPARE(setting.platform, std::string("wayland"));
    QVERIFY(!setting.wantsX);
}

void TestDisplay::knowsTheToolkitsPlugins()
{
    // The library that this test runs with brings the plug-in for windows that nobody sees.
    Display::Setting setting = Display::setting("offscreen", nullptr, nullptr);
    QCOMPARE(Display::find(setting).value_or("none"), std::string("offscreen"));
}

QTEST_GUILESS_MAIN(TestDisplay)
#include "tst_display.moc"
