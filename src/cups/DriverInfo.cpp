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
        take(driverFile, attribute);
    else if (isNamed(attribute, "ppd-make"))
        take(make, attribute);
    else if (isNamed(attribute, "ppd-make-and-model"))
        take(model, attribute);
    else if (isNamed(attribute, "ppd-natural-language"))
        take(language, attribute);
}
