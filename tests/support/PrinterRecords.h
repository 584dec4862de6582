#pragma once

#include "ClassInfo.h"
#include "IPPRequest.h"
#include "IppTool.h"

#include <array>

/** The records of printers and classes, in forms that can be compared. */
namespace PrinterRecords
{
/** All fields. */
inline QStringList described(const PrinterInfo &info)
{
    QStringList orientations;
    for (const int orientation : info.orientationsSupported)
        orientations.append(QString::number(orientation));
    const std::array numbers = {info.state,
                                static_cast<int>(info.colorSupported),
                                info.printerType,
                                static_cast<int>(info.acceptingJobs),
                                info.copiesDefault,
                                info.copiesMin,
                                info.copiesMax,
                                static_cast<int>(info.pageRangesSupported),
                                info.orientationDefault};
    QStringList all = {
        info.name,         info.description,  info.make,           info.location,
        info.info,         info.modelInfo,    info.localUri,       info.uri,
        info.mediaDefault, info.stateMessage, info.jobSheetsStart, info.jobSheetsEnd};
    for (const int number : numbers)
        all.append(QString::number(number));
    return all + info.uris + info.mediaSupported + orientations + info.jobSheetsSupported;
}

/** All fields. */
inline QStringList described(const ClassInfo &cls)
{
    const PrinterInfo &info = cls;
    return described(info) + cls.memberUris + cls.memberNames;
}

/** The records of a response to the request as its class builds it, without any list of names. */
template <typename Record> QMap<QString, QStringList> recordsOf(IPPRequest &request)
{
    QMap<QString, QStringList> records;
    if (!request.send())
        return records;
    Record record;
    for (ipp_attribute_t *attribute = ippFirstAttribute(request.response()); attribute;
         attribute = ippNextAttribute(request.response())) {
        record.readAttribute(attribute);
        records.insert(record.name, described(record));
        if (!ippGetName(attribute))
            record = Record();
    }
    records.remove(QString());
    return records;
}

inline QString yesOrNo(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

/** The fields of a record under the names of their attributes, as ipptool writes the values. */
inline IppTool::Record asTold(const PrinterInfo &info)
{
    static const QMap<int, QString> states = {{3, QStringLiteral("idle")},
                                              {4, QStringLiteral("processing")},
                                              {5, QStringLiteral("stopped")}};
    static const QMap<int, QString> orientations = {{3, QStringLiteral("portrait")},
                                                    {4, QStringLiteral("landscape")},
                                                    {5, QStringLiteral("reverse-landscape")},
                                                    {6, QStringLiteral("reverse-portrait")}};
    QStringList supported;
    for (const int orientation : info.orientationsSupported)
        supported.append(orientations.value(orientation));
    return {
        {QStringLiteral("printer-name"), info.name},
        {QStringLiteral("printer-info"), info.description},
        {QStringLiteral("printer-location"), info.location},
        {QStringLiteral("printer-make-and-model"), info.modelInfo},
        {QStringLiteral("printer-state"), states.value(info.state)},
        {QStringLiteral("printer-state-message"), info.stateMessage},
        {QStringLiteral("device-uri"), info.localUri},
        {QStringLiteral("printer-uri-supported"), info.uris.join(u',')},
        {QStringLiteral("color-supported"), yesOrNo(info.colorSupported)},
        {QStringLiteral("media-supported"), info.mediaSupported.join(u',')},
        {QStringLiteral("media-default"), info.mediaDefault},
        {QStringLiteral("printer-type"), QString::number(info.printerType)},
        {QStringLiteral("printer-is-accepting-jobs"), yesOrNo(info.acceptingJobs)},
        {QStringLiteral("copies-default"), QString::number(info.copiesDefault)},
        {QStringLiteral("copies-supported"),
         QStringLiteral("%1-%2").arg(info.copiesMin).arg(info.copiesMax)},
        {QStringLiteral("page-ranges-supported"), yesOrNo(info.pageRangesSupported)},
        {QStringLiteral("orientation-requested-supported"), supported.join(u',')},
        {QStringLiteral("orientation-requested-default"),
         orientations.value(info.orientationDefault)},
        {QStringLiteral("job-sheets-supported"), info.jobSheetsSupported.join(u',')},
        {QStringLiteral("job-sheets-default"), info.jobSheetsStart + u',' + info.jobSheetsEnd},
    };
}

/**
 * The fields that are not what `told` says, as ipptool writes them. What the server has no value
 * for has its default.
 */
inline QStringList differences(const PrinterInfo &info, const IppTool::Record &told)
{
    const QString noValue = QStringLiteral("no-value");
    const IppTool::Record fields = asTold(info);
    const IppTool::Record defaults = asTold(PrinterInfo());
    QStringList found;
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        const QString value = told.value(it.key(), noValue);
        const QString expected = value == noValue ? defaults.value(it.key()) : value;
        if (it.value() != expected)
            found.append(QStringLiteral("%1: %2, not %3").arg(it.key(), it.value(), expected));
    }
    return found;
}
} // namespace PrinterRecords
