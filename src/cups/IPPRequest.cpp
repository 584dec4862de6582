#include "IPPRequest.h"

#include "AttributeValues.h"
#include "DiagnosticLog.h"
#include "Secret.h"
#include "ServerConnection.h"
#include "WireText.h"

#include <QFile>
#include <QScopedValueRollback>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstring>
#include <sys/prctl.h>
#include <unistd.h>
#include <utility>

namespace
{
/** The request log, opened by its first user. Null when it cannot be opened. */
FILE *requestLog()
{
    static const DiagnosticLog::Handle log = DiagnosticLog::open(DiagnosticLog::Names::Requests);
    return log.get();
}

/** Opens the log before main where nothing else has. */
[[maybe_unused]] FILE *const openedAtStart = requestLog();

/** Writes a line and, as in the attribute logs, "\r\n" after it. */
[[gnu::format(printf, 1, 2)]] void logLine(const char *format, ...)
{
    FILE *log = requestLog();
    if (!log)
        return;
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(log, format, arguments);
    va_end(arguments);
    std::fputs("\r\n", log);
}

/** The root password. Its memory is wiped when it is replaced and at exit. */
class Password
{
public:
    Password() = default;
    Password(const Password &) = delete;
    Password &operator=(const Password &) = delete;
    ~Password() { forget(); }

    bool isNull() const { return m_text.isNull(); }
    const char *text() const { return m_text.constData(); }
    void set(const QString &text)
    {
        forget();
        m_text = WireText::toWire(text);
    }
    void forget()
    {
        Secret::wipe(m_text);
        m_text = QByteArray();
    }

private:
    QByteArray m_text;
};

struct Authentication {
    Password password;
    /** A request has succeeded while a password was stored: answer with it without asking. */
    bool isConfirmed = false;
    /** How many connections had been opened when a challenge was last answered; 0: never. */
    unsigned answeredAtOpening = 0;
    IPPRequest::PasswordPrompt prompt;
    /** The connection on which the server has asked, during the callback. */
    http_t *challenged = nullptr;
};

Authentication &authentication()
{
    static Authentication state;
    return state;
}

QString askForPassword()
{
    const IPPRequest::PasswordPrompt &prompt = authentication().prompt;
    if (!prompt)
        return {};
    // From now on neither a core dump nor another process of the user shows this one's memory.
    prctl(PR_SET_DUMPABLE, 0);
    const ServerConnection::UserTime userTime(authentication().challenged);
    //: Title of the window that asks for the password of the system's administrator.
    return prompt(IPPRequest::tr("Authorization"),
                  IPPRequest::tr("Please, enter the root password:"));
}

/**
 * A second challenge on one connection means that the server refused the stored password. It must
 * not be given again without a question: the library would go on asking, and the server refusing,
 * for ever. Where the server let a request of the library in with it, it is confirmed as by one of
 * this program's own.
 */
void noticeRefusal(Authentication &state)
{
    const bool wasLetIn = ServerConnection::wasLetIn();
    if (state.password.isNull())
        return;
    if (state.answeredAtOpening == ServerConnection::openings())
        state.isConfirmed = false;
    else if (wasLetIn)
        state.isConfirmed = true;
}

const char *passwordCallback(const char *prompt, http_t *http, const char *, const char *, void *)
{
    Authentication &state = authentication();
    // The password goes with the library's user, which may be another one: the server names one
    // together with its question, and before the first request it is the one who runs the program.
    IPPRequest::useRootAuthentication();
    noticeRefusal(state);
    const QScopedValueRollback<http_t *> challenged(state.challenged, http);
    const char *const password = IPPRequest::rootPasswordCallback(prompt);
    state.answeredAtOpening = ServerConnection::openings();
    // Who cancels would be asked again at once by whatever else the same action needs.
    if (!password)
        ServerConnection::giveUp();
    return password;
}

/** A fixed buffer that is filled piece by piece; what does not fit is cut off. */
template <size_t size> class TextBuffer
{
public:
    void clear()
    {
        m_used = 0;
        m_text[0] = '\0';
    }
    /** False when the piece did not fit whole. */
    [[gnu::format(printf, 2, 3)]] bool append(const char *format, ...)
    {
        va_list arguments;
        va_start(arguments, format);
        const int length = std::vsnprintf(m_text + m_used, size - m_used, format, arguments);
        va_end(arguments);
        if (length < 0) {
            m_text[m_used] = '\0';
            return false;
        }
        const size_t room = size - m_used - 1;
        m_used += std::min(static_cast<size_t>(length), room);
        return static_cast<size_t>(length) <= room;
    }
    const char *text() const { return m_text; }

private:
    char m_text[size] = {};
    size_t m_used = 0;
};

struct StatusText {
    int status;
    const char *text;
};

/** The texts are shown and logged as they stand, misspellings included. */
constexpr std::array StatusTexts = {
    StatusText{0x0000, "OK"},
    StatusText{0x0001, "IPP_OK_SUBST - OK but subst ???"},
    StatusText{0x0002, "IPP_OK_CONFLICT - OK but conflict ???"},
    StatusText{0x0400, "IPP_BAD_REQUEST - Bad request"},
    StatusText{0x0401, "IPP_FORBIDDEN - Operation forbidden"},
    StatusText{0x0402, "IPP_NOT_AUTHENTICATED - Not authenticated. Perhaps wrong password"},
    StatusText{0x0403, "IPP_NOT_AUTHORIZED - Not authorized"},
    StatusText{0x0404, "IPP_NOT_POSSIBLE - Not possible"},
    StatusText{0x0405, "IPP_TIMEOUT - Request timeout"},
    StatusText{0x0406, "IPP_NOT_FOUND - Not found"},
    StatusText{0x0407, "IPP_GONE - Gone..."},
    StatusText{0x0408, "IPP_REQUEST_ENTITY - Request entity ???"},
    StatusText{0x0409, "IPP_REQUEST_VALUE - Request value ???"},
    StatusText{0x040A, "IPP_DOCUMENT_FORMAT - Document format"},
    StatusText{0x040B, "IPP_ATTRIBUTES - Attributes ???"},
    StatusText{0x040C, "IPP_URI_SCHEME - URI sheme"},
    StatusText{0x040D, "IPP_CHARSET - Charset"},
    StatusText{0x040E, "IPP_CONFLICT - Conflict"},
    StatusText{0x0500, "IPP_INTERNAL_ERROR - Internal error"},
    StatusText{0x0501, "IPP_OPERATION_NOT_SUPPORTED - Operation not supported"},
    StatusText{0x0502, "IPP_SERVICE_UNAVAILABLE - Serice unavailable"},
    StatusText{0x0503, "IPP_VERSION_NOT_SUPPORTED - Version not supported"},
    StatusText{0x0505, "IPP_TEMPORARY_ERROR - Temporary error"},
    StatusText{0x0506, "IPP_NOT_ACCEPTING - Not accepting"},
    StatusText{0x0507, "IPP_PRINTER_BUSY - Printer busy"},
};

/** A server that has many drivers takes many seconds to list them. */
ServerConnection::Question questionOf(ipp_t *request)
{
    return ippGetOperation(request) == IPP_OP_CUPS_GET_PPDS ? ServerConnection::Question::SlowList
                                                            : ServerConnection::Question::Usual;
}

/** Posts the request, with the file unless its name is empty, and frees it. */
ipp_t *post(http_t *http, ipp_t *request, const char *resource, const QString &fileName)
{
    QFile file(fileName);
    if (fileName.isEmpty())
        return cupsDoRequest(http, request, resource);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        // The library says why, in its own way.
        return cupsDoFileRequest(http, request, resource, QFile::encodeName(fileName).constData());
    const ServerConnection::Upload upload(http, file.handle());
    return cupsDoIORequest(http, request, resource, file.handle(), -1);
}

const char *emptyForNull(const char *text)
{
    return text ? text : "";
}
} // namespace

IPPRequest::IPPRequest(int operation)
{
    useRootAuthentication();
    m_request = ippNew();
    ippSetRequestId(m_request, 1);
    ippSetOperation(m_request, static_cast<ipp_op_t>(operation));
    cups_lang_t *language = cupsLangDefault();
    ippAddString(m_request, IPP_TAG_OPERATION, IPP_TAG_CHARSET, "attributes-charset", nullptr,
                 cupsLangEncoding(language));
    ippAddString(m_request, IPP_TAG_OPERATION, IPP_TAG_LANGUAGE, "attributes-natural-language",
                 nullptr, language->language);
}

IPPRequest::~IPPRequest()
{
    if (m_http)
        ServerConnection::close(m_http);
    if (m_request)
        ippDelete(m_request);
    if (m_response)
        ippDelete(m_response);
}

bool IPPRequest::send(const char *resource)
{
    if (!m_request)
        return false;
    const QByteArray target = resource ? QByteArray(resource) : WireText::toWire(m_resource);
    if (target.isEmpty())
        return false;
    m_http = ServerConnection::open(questionOf(m_request)).release();
    if (!m_http)
        return false;

    logLine("Requesting operation 0x%x...", static_cast<unsigned>(ippGetOperation(m_request)));
    dumpAttributes(m_request);
    m_response = post(m_http, std::exchange(m_request, nullptr), target.constData(), m_fileName);
    dumpAttributes(m_response);
    if (!m_response) {
        logLine("Requesting failed!\n");
        return false;
    }

    logLine("Result status: %s\n", statusText(ippGetStatusCode(m_response)).toLatin1().constData());
    if (ippGetState(m_response) == IPP_STATE_ERROR)
        return false;
    if (!authentication().password.isNull())
        authentication().isConfirmed = true;
    return true;
}

QString IPPRequest::statusText(int status)
{
    const auto known =
        std::find_if(StatusTexts.begin(), StatusTexts.end(),
                     [status](const StatusText &row) { return row.status == status; });
    if (known != StatusTexts.end())
        return QString::fromLatin1(known->text);
    return QString::asprintf("Unknown code (%d=0x%x)", status, static_cast<unsigned>(status));
}

const char *IPPRequest::dumpAttributes(ipp_t *message)
{
    static TextBuffer<0x10000> buffer;
    buffer.clear();
    if (!message) {
        buffer.append("empty");
        return buffer.text();
    }
    // The same two bytes are the operation of a request and the status of a response.
    const int code = ippGetOperation(message);
    bool fits = buffer.append("operation_id: %d/%#x", code, static_cast<unsigned>(code));
    for (ipp_attribute_t *attribute = ippFirstAttribute(message); fits && attribute;
         attribute = ippNextAttribute(message)) {
        const int count = ippGetCount(attribute);
        fits = buffer.append("\n%25.25s(%d): %s", emptyForNull(ippGetName(attribute)), count,
                             formatValue(attribute, 0));
        for (int i = 1; fits && i < count; ++i)
            fits = buffer.append("|%s", formatValue(attribute, i));
    }
    return buffer.text();
}

const char *IPPRequest::formatValue(ipp_attribute_t *attribute, int index)
{
    static TextBuffer<256> buffer;
    buffer.clear();
    const ipp_tag_t tag = ippGetValueTag(attribute);
    switch (tag) {
    case IPP_TAG_INTEGER:
        buffer.append("%d", ippGetInteger(attribute, index));
        break;
    case IPP_TAG_BOOLEAN:
        buffer.append("%d", static_cast<signed char>(ippGetBoolean(attribute, index)));
        break;
    case IPP_TAG_ENUM:
        buffer.append("%x", static_cast<unsigned>(ippGetInteger(attribute, index)));
        break;
    case IPP_TAG_STRING:
    case IPP_TAG_TEXTLANG:
    case IPP_TAG_NAMELANG:
    case IPP_TAG_TEXT:
    case IPP_TAG_NAME:
    case IPP_TAG_KEYWORD:
    case IPP_TAG_URI:
    case IPP_TAG_CHARSET:
    case IPP_TAG_LANGUAGE: {
        const auto text = AttributeValues::bytes(attribute, index).value_or("");
        buffer.append("<%.*s>", static_cast<int>(text.size()), text.data());
        break;
    }
    case IPP_TAG_DATE:
        // The ten bytes as they come, not as a date.
        if (const ipp_uchar_t *date = ippGetDate(attribute, index))
            buffer.append("%.10s", reinterpret_cast<const char *>(date));
        break;
    case IPP_TAG_RANGE: {
        int upper = 0;
        const int lower = ippGetRange(attribute, index, &upper);
        buffer.append("[%d,%d]", lower, upper);
        break;
    }
    default:
        buffer.append("Unknown value_tag=%x", static_cast<unsigned>(tag));
    }
    return buffer.text();
}

void IPPRequest::useRootAuthentication()
{
    cupsSetPasswordCB2(passwordCallback, nullptr);
    cupsSetUser("root");
    if (!authentication().isConfirmed)
        authentication().isConfirmed = getuid() == 0;
}

const char *IPPRequest::rootPasswordCallback(const char *)
{
    Authentication &state = authentication();
    if (!state.password.isNull() && state.isConfirmed)
        return state.password.text();
    state.isConfirmed = false;
    const QString typed = askForPassword();
    if (typed.isEmpty()) {
        state.password.forget();
        return nullptr;
    }
    state.password.set(typed);
    Secret::wipe(typed);
    return state.password.text();
}

void IPPRequest::setPasswordPrompt(PasswordPrompt prompt)
{
    authentication().prompt = std::move(prompt);
    // The library may be asked before there is any request: by itself it asks on the terminal.
    cupsSetPasswordCB2(passwordCallback, nullptr);
}

void IPPRequest::addUri(const char *name, const char *value, int group)
{
    if (m_request)
        ippAddString(m_request, static_cast<ipp_tag_t>(group), IPP_TAG_URI, name, nullptr, value);
}

void IPPRequest::addName(const char *name, const char *value, int group)
{
    if (m_request)
        ippAddString(m_request, static_cast<ipp_tag_t>(group), IPP_TAG_NAME, name, nullptr,
                     emptyForNull(value));
}

void IPPRequest::addText(const char *name, const char *value, int group)
{
    if (m_request)
        ippAddString(m_request, static_cast<ipp_tag_t>(group), IPP_TAG_TEXT, name, nullptr,
                     emptyForNull(value));
}

void IPPRequest::addMimeType(const char *name, const char *value, int group)
{
    if (m_request)
        ippAddString(m_request, static_cast<ipp_tag_t>(group), IPP_TAG_MIMETYPE, name, nullptr,
                     emptyForNull(value));
}

void IPPRequest::addInteger(const char *name, int value, int valueTag, int group)
{
    if (m_request)
        ippAddInteger(m_request, static_cast<ipp_tag_t>(group), static_cast<ipp_tag_t>(valueTag),
                      name, value);
}

void IPPRequest::addBoolean(const char *name, bool value, int group)
{
    if (m_request)
        ippAddBoolean(m_request, static_cast<ipp_tag_t>(group), name, static_cast<char>(value));
}

void IPPRequest::addUris(const char *name, const QStringList &values, int group)
{
    if (!m_request)
        return;
    ipp_attribute_t *attribute =
        ippAddStrings(m_request, static_cast<ipp_tag_t>(group), IPP_TAG_URI, name,
                      static_cast<int>(values.size()), nullptr, nullptr);
    for (int i = 0; i < values.size(); ++i)
        ippSetString(m_request, &attribute, i, WireText::toWire(values.at(i)).constData());
}

void IPPRequest::addMemberUris(const QStringList &uris)
{
    addUris("member-uris", uris, IPP_TAG_OPERATION);
}

void IPPRequest::addRequestedAttributes(const QList<const char *> &names)
{
    if (m_request)
        ippAddStrings(m_request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                      static_cast<int>(names.size()), nullptr, names.constData());
}
