#pragma once

#include "CupsHandles.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * One IPP request to the local server: built, sent once, and its response read.
 *
 * Sends as the user `root`; when the server asks for authentication, the root password is asked for
 * through the prompt that the application has set. One thread: state and buffers are not protected.
 */
class IPPRequest
{
    Q_DECLARE_TR_FUNCTIONS(IPPRequest)

public:
    /** Builds a request with the IPP operation id `operation`, charset and language. */
    explicit IPPRequest(int operation);
    virtual ~IPPRequest();
    IPPRequest(const IPPRequest &) = delete;
    IPPRequest &operator=(const IPPRequest &) = delete;

    /**
     * Posts the request to `resource`, or to the kind's own resource. True when a response came
     * back that is not in the library's error state; the server's status is in the response and
     * does not count here. A second call returns false: the library has freed the request.
     */
    virtual bool send(const char *resource = nullptr);

    ipp_t *request() const { return m_request; }
    ipp_t *response() const { return m_response; }

    /** The text for an IPP status code (RFC 8011, appendix B); unknown codes are printed. */
    static QString statusText(int status);

    /** Renders a message into a static buffer of 65,536 bytes: what does not fit is dropped. */
    static const char *dumpAttributes(ipp_t *message);
    /** Renders value `index` of `attribute` into a static buffer of 256 bytes. */
    static const char *formatValue(ipp_attribute_t *attribute, int index);

    static void useRootAuthentication();
    static const char *rootPasswordCallback(const char *prompt);

    /**
     * Asks the user for the root password with a modal dialog: gets the dialog's title and label,
     * returns the text, or a null string when the user cancelled. Without a prompt the callback
     * behaves as if the user had cancelled.
     */
    using PasswordPrompt = std::function<QString(const QString &title, const QString &label)>;
    static void setPasswordPrompt(PasswordPrompt prompt);

    void addUri(const char *name, const char *value, int group);
    void addName(const char *name, const char *value, int group);
    void addText(const char *name, const char *value, int group);
    void addMimeType(const char *name, const char *value, int group);
    void addInteger(const char *name, int value, int valueTag, int group);
    void addBoolean(const char *name, bool value, int group);
    void addUris(const char *name, const QStringList &values, int group);
    void addMemberUris(const QStringList &uris);
    /** Asks the server for these attributes alone (`requested-attributes`, keywords). */
    void addRequestedAttributes(const QList<const char *> &names);

    void setFileName(const QString &fileName) { m_fileName = fileName; }

protected:
    QString m_resource;
    ipp_t *m_request = nullptr;
    ipp_t *m_response = nullptr;
    http_t *m_http = nullptr;
    QString m_fileName;
};
