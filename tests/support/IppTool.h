#pragma once

#include "PrintCommands.h"

#include <QFile>
#include <QList>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>

/** The server's answers as `ipptool` tells them. */
namespace IppTool
{
using Record = QMap<QString, QString>;

struct Reply {
    /** "successful-ok" and the like. */
    QString status;
    /** The groups of one kind, values as text, several with commas between them. The operation's
     * own attributes are in the first. */
    QList<Record> records;
};

inline QString requestText(const char *operation, const QStringList &attributes)
{
    return QStringLiteral("{\nOPERATION %1\nGROUP operation-attributes-tag\n"
                          "ATTR charset attributes-charset utf-8\n"
                          "ATTR language attributes-natural-language en\n"
                          "ATTR name requesting-user-name root\nATTR %2\n}\n")
        .arg(QLatin1String(operation), attributes.join(QStringLiteral("\nATTR ")));
}

/** Reads what `ipptool -tv` prints. */
inline Reply parse(const QString &output)
{
    static const QRegularExpression line(QStringLiteral("^        ([^ ]+) \\([^)]*\\) = (.*)$"));
    static const QRegularExpression status(QStringLiteral("^        status-code = ([^ ]+) "));
    Reply reply;
    reply.records.append(Record());
    for (const QString &text : output.section(QStringLiteral("RECEIVED:"), 1).split(u'\n')) {
        if (const auto found = status.match(text); found.hasMatch())
            reply.status = found.captured(1);
        else if (const auto attribute = line.match(text); attribute.hasMatch())
            reply.records.last().insert(attribute.captured(1), attribute.captured(2));
        else if (text == QStringLiteral("        -- separator --"))
            reply.records.append(Record());
    }
    return reply;
}

/** Asks as root; `attributes` are "TYPE NAME VALUE". */
inline Reply ask(const char *operation, const QStringList &attributes)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("request.test")));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(requestText(operation, attributes).toUtf8());
    file.close();
    QString server = qEnvironmentVariable("CUPS_SERVER");
    server.replace(u'/', QStringLiteral("%2F"));
    // Its status says whether the answer conforms in all details, which those about drivers do not.
    const auto ended = PrintCommands::result(
        QStringLiteral("ipptool"),
        {QStringLiteral("-tv"), QStringLiteral("ipp://%1/").arg(server), file.fileName()});
    return parse(QString::fromUtf8(ended.output));
}

inline QString uriAttribute(const char *name, const QString &uri)
{
    return QStringLiteral("uri %1 %2").arg(QLatin1String(name), uri);
}

/** What the server says of the printer or class at `uri`. */
inline Reply printer(const QString &uri)
{
    return ask("Get-Printer-Attributes", {uriAttribute("printer-uri", uri)});
}

inline Record job(int number)
{
    return ask("Get-Job-Attributes",
               {uriAttribute("job-uri", QStringLiteral("ipp://localhost/jobs/%1").arg(number))})
        .records.constFirst();
}
} // namespace IppTool
