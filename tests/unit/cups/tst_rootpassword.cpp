#include "Destinations.h"
#include "FakeIppServer.h"
#include "IPPRequest.h"
#include "IppBytes.h"
#include "LogTail.h"
#include "ServerConnection.h"

#include <QTest>

#include <optional>
#include <unistd.h>

namespace
{
constexpr uid_t Root = 0;
constexpr uid_t Somebody = 1000;
std::optional<uid_t> currentUser;
} // namespace

/** In place of the system's: the tests say which user runs the program. */
extern "C" uid_t getuid()
{
    return currentUser.value_or(geteuid());
}

namespace
{
FakeIppServer::Answer challenge()
{
    FakeIppServer::Answer answer = FakeIppServer::failure(401);
    answer.headers = "WWW-Authenticate: Basic realm=\"CUPS\"\r\n";
    return answer;
}

/** A server that lets in whoever has this password; null: nobody. */
FakeIppServer::Handler letsIn(const QByteArray &password)
{
    const QByteArray expected = "Basic " + ("root:" + password).toBase64();
    return [=](const FakeIppServer::Request &request) {
        if (!password.isNull() && request.headers.value("authorization") == expected)
            return FakeIppServer::ok(IppBytes::response());
        return challenge();
    };
}

bool sendOne()
{
    IPPRequest request(0x4002);
    return request.send("/admin/");
}
} // namespace

class TestRootPassword : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void asksWithTheTexts();
    void sendsThePasswordOfRoot();
    void passwordIsUtf8();
    void confirmedPasswordIsReused();
    void successWithoutChallengeConfirms();
    void wrongPasswordAsksAgain();
    void refusedOldPasswordAsksAgain();
    void cancelGivesUp();
    void emptyTextIsCancel();
    void cancelForgetsThePassword();
    void withoutPromptGivesUp();
    void unconfirmedPasswordIsAskedFor();
    void rootIsAskedOnce();
    void rootReusesAnUnconfirmedPassword();
    void callbackOutlivesTheRequest();
    void libraryAsksBeforeAnyRequest();
    void serverNamesAnotherUser();
    void cancelEndsTheAction();
    void libraryIsAnsweredWithoutAsking();
    void untriedPasswordIsAskedForAgain();

private:
    /** Answers the prompts that follow; a prompt beyond the list is cancelled. */
    void willType(const QStringList &answers);

    std::unique_ptr<FakeIppServer> m_server;
    QStringList m_answers;
    QList<QStringList> m_asked;
};

void TestRootPassword::init()
{
    currentUser = Somebody;
    m_server = std::make_unique<FakeIppServer>();
    m_server->use();
    IPPRequest::setPasswordPrompt([this](const QString &title, const QString &label) {
        m_asked.append({title, label});
        return m_answers.isEmpty() ? QString() : m_answers.takeFirst();
    });
    // A cancelled question leaves no password and no confirmation.
    m_server->setHandler(letsIn({}));
    while (IPPRequest::rootPasswordCallback(""))
        QVERIFY(!sendOne());
    m_server->setHandler([](const auto &) { return FakeIppServer::ok(IppBytes::response()); });
    m_server->takeRequests();
    m_asked.clear();
}

void TestRootPassword::cleanup()
{
    m_server.reset();
    currentUser.reset();
    m_answers.clear();
    IPPRequest::setPasswordPrompt(nullptr);
}

void TestRootPassword::willType(const QStringList &answers)
{
    m_answers = answers;
}

void TestRootPassword::asksWithTheTexts()
{
    willType({QStringLiteral("secret")});
    QCOMPARE(IPPRequest::rootPasswordCallback("ignored"), "secret");
    QCOMPARE(m_asked, QList<QStringList>({{QStringLiteral("Authorization"),
                                           QStringLiteral("Please, enter the root password:")}}));
}

void TestRootPassword::sendsThePasswordOfRoot()
{
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 1);
    const auto requests = m_server->takeRequests();
    QCOMPARE(requests.size(), 2);
    QVERIFY(!requests.at(0).headers.contains("authorization"));
    QCOMPARE(requests.at(1).message, requests.at(0).message);
}

void TestRootPassword::passwordIsUtf8()
{
    m_server->setHandler(letsIn("s\xc3\xa4uer"));
    willType({QStringLiteral("s\u00e4uer")});
    QVERIFY(sendOne());
}

void TestRootPassword::confirmedPasswordIsReused()
{
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    QVERIFY(sendOne());
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 1);
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "secret");
    QCOMPARE(m_asked.size(), 1);
}

void TestRootPassword::successWithoutChallengeConfirms()
{
    willType({QStringLiteral("typed")});
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "typed");
    QVERIFY(sendOne()); // the server asks for nothing
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "typed");
    QCOMPARE(m_asked.size(), 1);
}

void TestRootPassword::wrongPasswordAsksAgain()
{
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("guess"), QStringLiteral("other"), QStringLiteral("secret")});
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 3);
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 3);
}

void TestRootPassword::refusedOldPasswordAsksAgain()
{
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    // The password was changed in the meantime.
    m_server->setHandler(letsIn("changed"));
    willType({QStringLiteral("changed")});
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 2);
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 2);
    // And a server that refuses everybody does not keep the program for ever.
    m_server->setHandler(letsIn({}));
    QVERIFY(!sendOne());
    QCOMPARE(m_asked.size(), 3);
}

void TestRootPassword::cancelGivesUp()
{
    m_server->setHandler(letsIn("secret"));
    const LogTail log("ipp_request.log");
    QVERIFY(!sendOne());
    QCOMPARE(log.added(), "Requesting operation 0x4002...\r\nRequesting failed!\n\r\n");
    QCOMPARE(m_asked.size(), 1);
    QCOMPARE(m_server->takeRequests().size(), 1);
    // The next challenge asks again.
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 2);
}

void TestRootPassword::emptyTextIsCancel()
{
    willType({QStringLiteral("")});
    QCOMPARE(IPPRequest::rootPasswordCallback(""), nullptr);
    QCOMPARE(m_asked.size(), 1);
}

void TestRootPassword::cancelForgetsThePassword()
{
    willType({QStringLiteral("typed")});
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "typed");
    QCOMPARE(IPPRequest::rootPasswordCallback(""), nullptr);
    QVERIFY(sendOne());
    QCOMPARE(IPPRequest::rootPasswordCallback(""), nullptr);
    QCOMPARE(m_asked.size(), 3);
}

void TestRootPassword::withoutPromptGivesUp()
{
    IPPRequest::setPasswordPrompt(nullptr);
    m_server->setHandler(letsIn("secret"));
    QVERIFY(!sendOne());
    QCOMPARE(IPPRequest::rootPasswordCallback(""), nullptr);
}

void TestRootPassword::unconfirmedPasswordIsAskedFor()
{
    m_server->setHandler([](const auto &) { return FakeIppServer::failure(500); });
    willType({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")});
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "one");
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "two");
    QVERIFY(!sendOne()); // a failed request confirms nothing
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "three");
    QCOMPARE(m_asked.size(), 3);
}

void TestRootPassword::rootIsAskedOnce()
{
    currentUser = Root;
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 1);
}

void TestRootPassword::rootReusesAnUnconfirmedPassword()
{
    willType({QStringLiteral("typed")});
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "typed");
    currentUser = Root;
    IPPRequest::useRootAuthentication();
    QCOMPARE(IPPRequest::rootPasswordCallback(""), "typed");
    QCOMPARE(m_asked.size(), 1);
    // Where the server refuses it, it is asked for anew.
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    QCOMPARE(m_asked.size(), 2);
}

void TestRootPassword::callbackOutlivesTheRequest()
{
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    // A call of the library's own is let in with the same password.
    m_server->takeRequests();
    const ServerConnection::Ptr http = ServerConnection::open();
    QCOMPARE(cupsCancelJob2(http.get(), "Laser", 1, 0), IPP_STATUS_OK);
    QCOMPARE(m_asked.size(), 1);
    QCOMPARE(m_server->takeRequests().size(), 2);
}

/** As the print dialog does: what it asks for first is not a request of this program's own. */
void TestRootPassword::libraryAsksBeforeAnyRequest()
{
    cupsSetPasswordCB2(nullptr, nullptr);
    cupsSetUser(nullptr);
    IPPRequest::setPasswordPrompt([this](const QString &title, const QString &label) {
        m_asked.append({title, label});
        return QStringLiteral("secret");
    });
    m_server->setHandler(letsIn("secret"));
    Destinations::listWithoutDiscovery();
    QCOMPARE(m_asked.size(), 1);
    const auto requests = m_server->takeRequests();
    QVERIFY(requests.size() > 1);
    QCOMPARE(requests.at(1).headers.value("authorization"),
             "Basic " + QByteArray("root:secret").toBase64());
}

void TestRootPassword::serverNamesAnotherUser()
{
    m_server->setHandler([](const FakeIppServer::Request &request) {
        if (request.headers.value("authorization").startsWith("Basic "))
            return FakeIppServer::ok(IppBytes::response());
        FakeIppServer::Answer answer = FakeIppServer::failure(401);
        answer.headers = "WWW-Authenticate: Basic realm=\"CUPS\", username=\"alice\"\r\n";
        return answer;
    });
    willType({QStringLiteral("secret")});
    QVERIFY(sendOne());
    QCOMPARE(m_server->takeRequests().constLast().headers.value("authorization"),
             "Basic " + QByteArray("root:secret").toBase64());
    QCOMPARE(cupsUser(), "root");
}

void TestRootPassword::cancelEndsTheAction()
{
    m_server->setHandler(letsIn("secret"));
    {
        const ServerConnection::Patience action;
        QVERIFY(!sendOne());
        QVERIFY(!sendOne());
        QCOMPARE(m_asked.size(), 1);
    }
    QVERIFY(!sendOne());
    QCOMPARE(m_asked.size(), 2);
}

void TestRootPassword::libraryIsAnsweredWithoutAsking()
{
    m_server->setHandler(letsIn("secret"));
    willType({QStringLiteral("wrong"), QStringLiteral("secret")});
    for (int i = 0; i < 3; ++i)
        Destinations::listWithoutDiscovery();
    QCOMPARE(m_asked.size(), 2);
    // Another password from now on.
    m_server->setHandler(letsIn("other"));
    willType({QStringLiteral("other")});
    for (int i = 0; i < 3; ++i)
        Destinations::listWithoutDiscovery();
    QCOMPARE(m_asked.size(), 3);
}

/** The connection ends before the server has said what it thinks of the password. */
void TestRootPassword::untriedPasswordIsAskedForAgain()
{
    m_server->setHandler([](const FakeIppServer::Request &request) {
        return request.headers.contains("authorization") ? FakeIppServer::failure(500)
                                                         : challenge();
    });
    willType({QStringLiteral("one"), QStringLiteral("two")});
    for (int i = 0; i < 2; ++i)
        Destinations::listWithoutDiscovery();
    QCOMPARE(m_asked.size(), 2);
}

QTEST_GUILESS_MAIN(TestRootPassword)
#include "tst_rootpassword.moc"
