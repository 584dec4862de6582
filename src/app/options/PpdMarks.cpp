#include "PpdMarks.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <span>

namespace
{
constexpr char customChoice[] = "Custom";
constexpr char pageSize[] = "PageSize";

using Parameters = std::vector<const ppd_cparam_t *>;

template <typename T> std::span<T> spanOf(T *first, int count)
{
    return {first, static_cast<size_t>(count)};
}

void appendOptions(const ppd_group_t &group, std::vector<ppd_option_t *> &options)
{
    for (const ppd_group_t &subgroup : spanOf(group.subgroups, group.num_subgroups))
        appendOptions(subgroup, options);
    for (ppd_option_t &option : spanOf(group.options, group.num_options))
        options.push_back(&option);
}

QString fixed(float value)
{
    return QString::number(static_cast<double>(value), 'f', 3);
}

/** As %g writes it, with as many digits as it takes to read the same number back. */
QString general(float value)
{
    QString text;
    for (int digits = 6; digits <= std::numeric_limits<float>::max_digits10; ++digits) {
        text = QString::number(static_cast<double>(value), 'g', digits);
        if (text.toFloat() == value)
            break;
    }
    return text;
}

Parameters parametersOf(const ppd_coption_t &option)
{
    Parameters parameters;
    for (void *each = cupsArrayFirst(option.params); each; each = cupsArrayNext(option.params))
        parameters.push_back(static_cast<const ppd_cparam_t *>(each));
    return parameters;
}

/** The parameter of that name; without one, the parameter `index`. */
const ppd_cparam_t &parameterOr(const Parameters &parameters, const char *name, size_t index)
{
    const auto named = std::ranges::find_if(parameters, [name](const ppd_cparam_t *parameter) {
        return std::strcmp(parameter->name, name) == 0;
    });
    return named == parameters.end() ? *parameters[index] : **named;
}

/** Width, then height. There are drivers that name the height first. */
QString pageSizeText(const Parameters &parameters)
{
    return QStringLiteral("Custom.%1x%2pt")
        .arg(general(parameterOr(parameters, "Width", 0).current.custom_points),
             general(parameterOr(parameters, "Height", 1).current.custom_points));
}

QString listText(const Parameters &parameters, FILE *log)
{
    QStringList texts;
    for (const ppd_cparam_t *parameter : parameters)
        texts.append(QString::fromLatin1(parameter->name) + QLatin1Char('=') +
                     PpdMarks::parameterText(*parameter, log));
    return QLatin1Char('{') + texts.join(QLatin1Char(',')) + QLatin1Char('}');
}

QString customText(const ppd_coption_t &option, FILE *log)
{
    const Parameters parameters = parametersOf(option);
    if (parameters.empty())
        return QString::fromLatin1(customChoice);
    if (parameters.size() > 1 && std::strcmp(option.keyword, pageSize) == 0)
        return pageSizeText(parameters);
    if (parameters.size() == 1)
        return QStringLiteral("Custom.") + PpdMarks::parameterText(*parameters.front(), log);
    return listText(parameters, log);
}

QString quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

/** The display text of every marked choice of `choices` from its fourth character on. */
QString pickManyTail(std::span<const ppd_choice_t> choices)
{
    QString tail;
    for (const ppd_choice_t &choice : choices) {
        if (choice.marked)
            tail += QString::fromUtf8(choice.text).mid(3);
    }
    return tail;
}

void appendMarks(std::span<const ppd_option_t> options, QStringList &marks)
{
    for (const ppd_option_t &option : options) {
        const std::span<const ppd_choice_t> choices = spanOf(option.choices, option.num_choices);
        for (size_t i = 0; i < choices.size(); ++i) {
            if (!choices[i].marked)
                continue;
            QString mark = QString::fromLatin1(option.keyword) + QLatin1Char('=') +
                           QString::fromLatin1(choices[i].choice);
            if (option.ui == PPD_UI_PICKMANY)
                mark += pickManyTail(choices.subspan(i));
            marks.append(mark);
            break;
        }
    }
}
} // namespace

namespace PpdMarks
{
std::vector<ppd_option_t *> options(const ppd_file_t *ppd)
{
    std::vector<ppd_option_t *> result;
    for (const ppd_group_t &group : spanOf(ppd->groups, ppd->num_groups))
        appendOptions(group, result);
    return result;
}

QString parameterText(const ppd_cparam_t &parameter, FILE *log)
{
    const ppd_cpvalue_t &value = parameter.current;
    switch (parameter.type) {
    case PPD_CUSTOM_CURVE:
        return fixed(value.custom_curve);
    case PPD_CUSTOM_INVCURVE:
        return fixed(value.custom_invcurve);
    case PPD_CUSTOM_POINTS:
        return fixed(value.custom_points);
    case PPD_CUSTOM_REAL:
        return fixed(value.custom_real);
    case PPD_CUSTOM_INT:
        return QString::number(value.custom_int);
    case PPD_CUSTOM_PASSCODE:
        return QString::fromLatin1(value.custom_passcode);
    case PPD_CUSTOM_PASSWORD:
        return QString::fromUtf8(value.custom_password);
    case PPD_CUSTOM_STRING:
        return QString::fromUtf8(value.custom_string);
    case PPD_CUSTOM_UNKNOWN:
        break;
    }
    if (log) {
        std::fprintf(log, "Unknown type %d!\n", static_cast<int>(parameter.type));
        std::fflush(log);
    }
    return {};
}

QStringList choiceTexts(ppd_file_t *ppd, const ppd_option_t &option, FILE *log)
{
    const ppd_coption_t *custom = ppdFindCustomOption(ppd, option.keyword);
    QStringList texts;
    for (const ppd_choice_t &choice : spanOf(option.choices, option.num_choices)) {
        if (!choice.marked)
            continue;
        const bool isCustom = custom && std::strcmp(choice.choice, customChoice) == 0;
        texts.append(isCustom ? customText(*custom, log) : QString::fromLatin1(choice.choice));
    }
    return texts;
}

QString markableList(const ppd_coption_t &option, const QString &list)
{
    if (!list.startsWith(QLatin1Char('{')) || !list.endsWith(QLatin1Char('}')))
        return list;
    QString rest = list.mid(1).chopped(1);
    QStringList values;
    const Parameters parameters = parametersOf(option);
    // From the last one back: a text may have in it what looks like a parameter's name.
    for (auto each = parameters.rbegin(); each != parameters.rend(); ++each) {
        const QString name = QString::fromLatin1((*each)->name) + QLatin1Char('=');
        const bool isFirst = each + 1 == parameters.rend();
        const qsizetype start = isFirst ? 0 : rest.lastIndexOf(QLatin1Char(',') + name) + 1;
        if (isFirst ? !rest.startsWith(name) : start == 0)
            return list;
        values.prepend(name + quoted(rest.mid(start + name.size())));
        rest.truncate(start - 1);
    }
    return QLatin1Char('{') + values.join(QLatin1Char(' ')) + QLatin1Char('}');
}

QStringList list(const ppd_file_t *ppd)
{
    QStringList marks;
    if (!ppd)
        return marks;
    for (const ppd_group_t &group : spanOf(ppd->groups, ppd->num_groups)) {
        for (const ppd_group_t &subgroup : spanOf(group.subgroups, group.num_subgroups))
            appendMarks(spanOf<const ppd_option_t>(subgroup.options, subgroup.num_options), marks);
        appendMarks(spanOf<const ppd_option_t>(group.options, group.num_options), marks);
    }
    return marks;
}
} // namespace PpdMarks
