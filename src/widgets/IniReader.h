#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <vector>

/**
 * The sections, keys and values of a text in the INI format. The text is UTF-8 (a byte order mark
 * is passed over), in lines of any length that end with a line feed.
 *
 * `[name]` begins a section; what stands after the bracket does not count. `key = value` belongs to
 * the section above it; a key may be missing, a value is empty or may stand between double quotes,
 * which keep blanks at its ends. Lines that begin with `;` or `#`, lines before the first section
 * and lines that are neither header nor value are passed over. Sections of the same name are one
 * section; of values with the same key the last one counts. Names and keys are case-sensitive.
 */
class IniReader
{
public:
    IniReader() = default;
    explicit IniReader(const QByteArray &text);

    /** The names of the sections, in the order in which they begin. */
    QStringList sections() const { return m_names; }
    /** The section that `value` reads; none when there is no such section. */
    void select(const QString &section);
    QString value(QByteArrayView key, const QString &fallback) const;

private:
    struct Value {
        qsizetype section;
        QByteArrayView key;
        QByteArrayView text;
    };

    qsizetype beginSection(const QString &name);
    void readLine(QByteArrayView line);

    /** What the values refer to. */
    QByteArray m_text;
    QStringList m_names;
    QHash<QString, qsizetype> m_sections;
    /** By section, and within one in the order of the text. */
    std::vector<Value> m_values;
    qsizetype m_selected = -1;
};
