#include "IniReader.h"

#include <algorithm>

namespace
{
constexpr QByteArrayView byteOrderMark("\xef\xbb\xbf");
constexpr qsizetype NoSection = -1;

QByteArrayView withoutMark(const QByteArray &text)
{
    return QByteArrayView(text).sliced(text.startsWith(byteOrderMark) ? byteOrderMark.size() : 0);
}

bool isComment(QByteArrayView line)
{
    return line.startsWith(';') || line.startsWith('#');
}

QByteArrayView withoutQuotes(QByteArrayView text)
{
    const bool quoted = text.size() >= 2 && text.startsWith('"') && text.endsWith('"');
    return quoted ? text.sliced(1, text.size() - 2) : text;
}
} // namespace

IniReader::IniReader(const QByteArray &text)
    : m_text(text)
{
    QByteArrayView rest = withoutMark(m_text);
    while (!rest.isEmpty()) {
        const qsizetype end = rest.indexOf('\n');
        const qsizetype length = end < 0 ? rest.size() : end;
        readLine(rest.first(length).trimmed());
        rest = rest.sliced(std::min(length + 1, rest.size()));
    }
    m_selected = NoSection;
    std::ranges::stable_sort(m_values, {}, &Value::section);
}

void IniReader::readLine(QByteArrayView line)
{
    if (isComment(line))
        return;
    if (line.startsWith('[')) {
        const qsizetype end = line.indexOf(']');
        m_selected = end < 0 ? NoSection : beginSection(QString::fromUtf8(line.sliced(1, end - 1)));
        return;
    }
    const qsizetype equals = line.indexOf('=');
    if (equals < 0 || m_selected == NoSection)
        return;
    m_values.push_back({m_selected, line.first(equals).trimmed(),
                        withoutQuotes(line.sliced(equals + 1).trimmed())});
}

qsizetype IniReader::beginSection(const QString &name)
{
    const auto known = m_sections.constFind(name);
    if (known != m_sections.cend())
        return *known;
    m_sections.insert(name, m_names.size());
    m_names.append(name);
    return m_names.size() - 1;
}

void IniReader::select(const QString &section)
{
    m_selected = m_sections.value(section, NoSection);
}

QString IniReader::value(QByteArrayView key, const QString &fallback) const
{
    const auto values = std::ranges::equal_range(m_values, m_selected, {}, &Value::section);
    for (auto value = values.end(); value != values.begin();) {
        --value;
        if (value->key == key)
            return QString::fromUtf8(value->text);
    }
    return fallback;
}
