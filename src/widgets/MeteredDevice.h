#pragma once

#include <QByteArray>
#include <QIODevice>

#include <chrono>

/**
 * Bytes to read that end early once the reading thread has used up its processor time: a decoder of
 * hostile data stops instead of working for minutes on a few of them.
 */
class MeteredDevice : public QIODevice
{
public:
    /** Open for reading; the time counts from now. */
    MeteredDevice(const QByteArray &content, std::chrono::nanoseconds patience);

    qint64 size() const override { return m_content.size(); }

    /** Whether more was asked for when there was nothing left, since the last `expectMore`. */
    bool hasRunDry() const { return m_hasRunDry; }
    void expectMore() { m_hasRunDry = false; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_content;
    std::chrono::nanoseconds m_end;
    bool m_hasRunDry = false;
};
