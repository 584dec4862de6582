#include "OptionChanges.h"

#include "PpdMarks.h"
#include "PrinterOptions.h"

#include <QCoreApplication>

namespace
{
QString removedText(const QString &name)
{
    //: One of the changes that are listed: the option %1 is no longer set.
    return QCoreApplication::translate("OptionChanges", "%1 (removed)").arg(name);
}
} // namespace

OptionChanges::Values OptionChanges::values(const PrinterOptions &options)
{
    Values values = options;
    const QStringList marks = PpdMarks::list(options.ppd());
    for (const QString &mark : marks)
        values.insert(mark.section(u'=', 0, 0), mark.section(u'=', 1));
    return values;
}

QStringList OptionChanges::describe(const Values &before, const Values &after)
{
    QStringList lines;
    for (auto value = after.cbegin(); value != after.cend(); ++value) {
        if (!before.contains(value.key()) || before.value(value.key()) != *value)
            lines.append(QStringLiteral("%1 = %2").arg(value.key(), *value));
    }
    for (auto value = before.cbegin(); value != before.cend(); ++value) {
        if (!after.contains(value.key()))
            lines.append(removedText(value.key()));
    }
    return lines;
}
