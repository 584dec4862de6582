#include "JobInfo.h"

#include "AttributeLog.h"
#include "AttributeValues.h"
#include "WireText.h"

#include <QUrl>

#include <algorithm>
#include <array>

namespace
{
using namespace AttributeValues;

struct Field {
    const char *attribute;
    void (*read)(JobInfo &info, ipp_attribute_t *attribute);
};

/** The attributes that are read, in the order in which a name is looked up. */
constexpr std::array Fields = {
    Field{"job-id", [](auto &info, auto *a) { take(info.jobId, a); }},
    Field{"job-name", [](auto &info, auto *a) { take(info.name, a); }},
    Field{"job-printer-uri", [](auto &info, auto *a) { take(info.printer, a); }},
    Field{"job-originating-user-name", [](auto &info, auto *a) { take(info.user, a); }},
    Field{"job-uri", [](auto &info, auto *a) { take(info.uri, a); }},
    Field{"job-k-octets", [](auto &info, auto *a) { take(info.kOctets, a); }},
    Field{"time-at-creation", [](auto &info, auto *a) { take(info.timeAtCreation, a); }},
    Field{"job-state", [](auto &info, auto *a) { take(info.state, a); }},
};
} // namespace

JobInfo::JobInfo(const cups_job_t &job)
    : jobId(job.id)
    , name(WireText::fromWire(job.title))
    , printer(QUrl::fromPercentEncoding(job.dest)) // a piece of the printer's URI
    , user(WireText::fromWire(job.user))
    , kOctets(job.size)
    , timeAtCreation(static_cast<int>(job.creation_time))
    , state(job.state)
{
}

void JobInfo::readAttribute(ipp_attribute_t *attribute)
{
    logAttribute(AttributeLog::jobs(), attribute);
    const auto field = std::find_if(Fields.begin(), Fields.end(), [attribute](const Field &known) {
        return isNamed(attribute, known.attribute);
    });
    if (field != Fields.end())
        field->read(*this, attribute);
}

QList<const char *> JobInfo::attributeNames()
{
    QList<const char *> names;
    for (const Field &field : Fields)
        names.append(field.attribute);
    return names;
}
