#include "AttributeLog.h"

#include "AttributeValues.h"
#include "DiagnosticLog.h"

namespace
{
/** An open log and the bare pointer to it that the writers take. */
struct Log {
    explicit Log(const char *fileName)
        : handle(DiagnosticLog::open(fileName))
        , file(handle.get())
    {
    }
    DiagnosticLog::Handle handle;
    FILE *file;
};

struct Logs {
    Log printer{DiagnosticLog::Names::Printers};
    Log driver{DiagnosticLog::Names::Drivers};
    Log job{DiagnosticLog::Names::Jobs};
    Log cls{DiagnosticLog::Names::Classes};
};

/** Made by its first user, so that it is there for other static objects as well. */
Logs &logs()
{
    static Logs opened;
    return opened;
}

/** Opens the logs before main where nothing else has. */
[[maybe_unused]] const Logs &openedAtStart = logs();

bool isLoggedAsString(ipp_tag_t tag)
{
    return tag == IPP_TAG_STRING || tag == IPP_TAG_TEXT || tag == IPP_TAG_NAME ||
           tag == IPP_TAG_URI || tag == IPP_TAG_MIMETYPE;
}

void logFirstValue(FILE *log, ipp_attribute_t *attribute)
{
    const ipp_tag_t tag = ippGetValueTag(attribute);
    if (tag == IPP_TAG_INTEGER) {
        std::fprintf(log, "Integer: %d\r\n", ippGetInteger(attribute, 0));
    } else if (isLoggedAsString(tag)) {
        if (const auto text = AttributeValues::bytes(attribute, 0))
            std::fprintf(log, "String: %.*s\r\n", static_cast<int>(text->size()), text->data());
    }
}
} // namespace

namespace AttributeLog
{
FILE *&printers()
{
    return logs().printer.file;
}
FILE *&drivers()
{
    return logs().driver.file;
}
FILE *&jobs()
{
    return logs().job.file;
}
FILE *&classes()
{
    return logs().cls.file;
}
} // namespace AttributeLog

void logAttribute(FILE *&log, ipp_attribute_t *attribute)
{
    if (!log)
        return;
    const char *name = ippGetName(attribute);
    if (!name) {
        std::fputs("\n----------\nProperty with no name!\n\r\n", log);
        return;
    }
    const int count = ippGetCount(attribute);
    std::fprintf(log, "\n*************\nProperty name: %s\r\nValues: %d\r\n", name, count);
    if (count < 1)
        return;
    std::fprintf(log, "Value tag: 0x%x\r\n", static_cast<unsigned>(ippGetValueTag(attribute)));
    logFirstValue(log, attribute);
}
