#include "PrinterInfo.h"

#include "AttributeLog.h"
#include "AttributeValues.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{
using namespace AttributeValues;

void readUris(PrinterInfo &info, ipp_attribute_t *attribute)
{
    const QStringList uris = texts(attribute);
    if (uris.isEmpty())
        return;
    info.uri = uris.constFirst();
    info.uris += uris;
}

void readJobSheets(PrinterInfo &info, ipp_attribute_t *attribute)
{
    take(info.jobSheetsStart, attribute, 0);
    take(info.jobSheetsEnd, attribute, 1);
}

void readCopies(PrinterInfo &info, ipp_attribute_t *attribute)
{
    if (const auto copies = range(attribute)) {
        info.copiesMin = copies->lower;
        info.copiesMax = copies->upper;
    }
}

struct Field {
    std::string_view attribute;
    void (*read)(PrinterInfo &info, ipp_attribute_t *attribute);
};

/** The attributes that are read, in the order in which a name is looked up. */
constexpr std::array Fields = {
    Field{"printer-name", [](auto &info, auto *a) { take(info.name, a); }},
    Field{"printer-location", [](auto &info, auto *a) { take(info.location, a); }},
    Field{"printer-info", [](auto &info, auto *a) { take(info.description, a); }},
    Field{"printer-make-and-model", [](auto &info, auto *a) { take(info.modelInfo, a); }},
    Field{"printer-state", [](auto &info, auto *a) { take(info.state, a); }},
    Field{"printer-state-message", [](auto &info, auto *a) { take(info.stateMessage, a); }},
    Field{"device-uri", [](auto &info, auto *a) { take(info.localUri, a); }},
    Field{"color-supported", [](auto &info, auto *a) { take(info.colorSupported, a); }},
    Field{"media-supported", [](auto &info, auto *a) { info.mediaSupported += texts(a); }},
    Field{"media-default", [](auto &info, auto *a) { take(info.mediaDefault, a); }},
    Field{"job-sheets-supported", [](auto &info, auto *a) { info.jobSheetsSupported += texts(a); }},
    Field{"job-sheets-default", readJobSheets},
    Field{"printer-type", [](auto &info, auto *a) { take(info.printerType, a); }},
    Field{"printer-is-accepting-jobs", [](auto &info, auto *a) { take(info.acceptingJobs, a); }},
    Field{"printer-uri", [](auto &info, auto *a) { take(info.uri, a); }},
    Field{"printer-uri-supported", readUris},
    Field{"copies-supported", readCopies},
    Field{"copies-default", [](auto &info, auto *a) { take(info.copiesDefault, a); }},
    Field{"page-ranges-supported", [](auto &info, auto *a) { take(info.pageRangesSupported, a); }},
    Field{"orientation-requested-supported",
          [](auto &info, auto *a) { info.orientationsSupported += integers(a); }},
    Field{"orientation-requested-default",
          [](auto &info, auto *a) { take(info.orientationDefault, a); }},
};

/** With a length that is known the names of listings of thousands are told apart in no time. */
auto fieldOf(ipp_attribute_t *attribute)
{
    const char *name = ippGetName(attribute);
    const std::string_view wanted(name ? name : "");
    return std::find_if(Fields.begin(), Fields.end(),
                        [wanted](const Field &known) { return known.attribute == wanted; });
}
} // namespace

void PrinterInfo::readAttribute(ipp_attribute_t *attribute)
{
    logAttribute(AttributeLog::printers(), attribute);
    if (ippGetGroupTag(attribute) != IPP_TAG_PRINTER)
        return;
    const auto field = fieldOf(attribute);
    if (field != Fields.end())
        field->read(*this, attribute);
}

QList<const char *> PrinterInfo::attributeNames()
{
    QList<const char *> names;
    for (const Field &field : Fields)
        names.append(field.attribute.data());
    return names;
}
