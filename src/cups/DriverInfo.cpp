#include "DriverInfo.h"

#include "AttributeLog.h"
#include "AttributeValues.h"

void DriverInfo::readAttribute(ipp_attribute_t *attribute)
{
    using namespace AttributeValues;

    logAttribute(AttributeLog::drivers(), attribute);
    if (ippGetGroupTag(attribute) != IPP_TAG_PRINTER)
        return;
    if (isNamed(attribute, "ppd-name"))
        driverFile = text(attribute);
    else if (isNamed(attribute, "ppd-make"))
        make = text(attribute);
    else if (isNamed(attribute, "ppd-make-and-model"))
        model = text(attribute);
    else if (isNamed(attribute, "ppd-natural-language"))
        language = text(attribute);
}
