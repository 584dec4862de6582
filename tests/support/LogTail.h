#pragma once

#include <QByteArray>
#include <QFile>

#include <cstdio>

/** What is written to a diagnostic log of this process from now on. */
class LogTail
{
public:
    explicit LogTail(const char *fileName)
        : m_path(qEnvironmentVariable("VESK_RELOCATED_ROOT") + QStringLiteral("/var/tmp/") +
                 QString::fromLatin1(fileName))
        , m_start(contents().size())
    {
    }
    QByteArray added() const { return contents().mid(m_start); }

private:
    QByteArray contents() const
    {
        std::fflush(nullptr);
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString m_path;
    qsizetype m_start;
};
