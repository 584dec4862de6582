#pragma once

#include "CupsHandles.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QTemporaryFile>

/** PPDs that a test writes for itself. */
namespace TestPpd
{
/** An option: `ui` is PickOne, PickMany or Boolean, the others are in the form `keyword/text`. */
inline QByteArray option(const QByteArray &ui, const QByteArray &name, const QByteArray &preset,
                         const QByteArrayList &choices)
{
    const QByteArray keyword = name.split('/').constFirst();
    QByteArray text = "*OpenUI *" + name + ": " + ui + '\n';
    if (!preset.isEmpty())
        text += "*Default" + keyword + ": " + preset + '\n';
    for (const QByteArray &choice : choices)
        text += '*' + keyword + ' ' + choice + ": \"\"\n";
    return text + "*CloseUI: *" + keyword + '\n';
}

inline QByteArray pickOne(const QByteArray &name, const QByteArray &preset,
                          const QByteArrayList &choices)
{
    return option("PickOne", name, preset, choices);
}

inline QByteArray boolean(const QByteArray &name, const QByteArray &preset)
{
    return option("Boolean", name, preset, {"True/On", "False/Off"});
}

/** A custom value for the option `keyword`, with parameters like `Size 1 real 0.5 2`. */
inline QByteArray custom(const QByteArray &keyword, const QByteArrayList &parameters)
{
    QByteArray text = "*Custom" + keyword + " True: \"\"\n";
    for (const QByteArray &parameter : parameters) {
        const qsizetype end = parameter.indexOf(' ');
        text += "*ParamCustom" + keyword + ' ' + parameter.left(end) + '/' + parameter.left(end) +
                ':' + parameter.mid(end) + '\n';
    }
    return text;
}

inline QByteArray group(const QByteArray &name, const QByteArray &options)
{
    return "*OpenGroup: " + name + '\n' + options + "*CloseGroup: " + name.split('/').constFirst() +
           '\n';
}

/** The choices `one` and `other`, each a keyword of an option and of its choice, do not go. */
inline QByteArray constraint(const QByteArray &one, const QByteArray &other)
{
    return "*UIConstraints: *" + one + " *" + other + "\n*UIConstraints: *" + other + " *" + one +
           '\n';
}

/** The PPD that holds `body`, opened and with no marks; null if the library does not like it. */
inline Cups::PpdPtr open(const QByteArray &body, const QByteArray &encoding = "UTF-8")
{
    QTemporaryFile file;
    if (!file.open())
        qFatal("no temporary file");
    file.write("*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
               "*LanguageVersion: English\n*LanguageEncoding: " +
               encoding +
               "\n*PCFileName: \"TEST.PPD\"\n*Manufacturer: \"Test\"\n*Product: \"(Test)\"\n"
               "*ModelName: \"Test\"\n*ShortNickName: \"Test\"\n*NickName: \"Test Printer\"\n"
               "*PSVersion: \"(3010.000) 0\"\n" +
               body);
    file.close();
    return Cups::sharePpd(ppdOpenFile(file.fileName().toLocal8Bit().constData()));
}

/**
 * Makes the last options of a group a subgroup of it while it lives. The library reads no
 * subgroups, but its structures have them.
 */
class Subgroup
{
public:
    Subgroup(ppd_group_t &group, const QByteArray &text, int count)
        : m_parent(group)
    {
        qstrncpy(m_group.text, text.constData(), sizeof m_group.text);
        group.num_options -= count;
        m_group.num_options = count;
        m_group.options = group.options + group.num_options;
        group.num_subgroups = 1;
        group.subgroups = &m_group;
    }
    Subgroup(const Subgroup &) = delete;
    Subgroup &operator=(const Subgroup &) = delete;
    ~Subgroup()
    {
        m_parent.num_options += m_group.num_options;
        m_parent.num_subgroups = 0;
        m_parent.subgroups = nullptr;
    }

    ppd_group_t &group() { return m_group; }

private:
    ppd_group_t &m_parent;
    ppd_group_t m_group = {};
};

/** The option's choice of exactly that keyword, which must be there. */
inline ppd_choice_t *choice(ppd_file_t *ppd, const char *keyword, const char *name)
{
    const ppd_option_t *option = ppdFindOption(ppd, keyword);
    for (int i = 0; option && i < option->num_choices; ++i) {
        if (qstrcmp(option->choices[i].choice, name) == 0)
            return &option->choices[i];
    }
    qFatal("no choice %s of %s", name, keyword);
}

/** The keyword of the option's marked choice; empty if it has none. */
inline QByteArray marked(ppd_file_t *ppd, const char *keyword)
{
    const ppd_choice_t *choice = ppdFindMarkedChoice(ppd, keyword);
    return choice ? choice->choice : "";
}
} // namespace TestPpd
