#pragma once

#include <QTranslator>

/** Stands for a wordy language: every text is half as long again, and keeps its placeholders. */
class LongTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        const QString text = QString::fromUtf8(sourceText);
        QString plain = text;
        plain.remove(u'&').remove(u'%');
        return text + u' ' + plain.left(plain.size() / 2).trimmed();
    }
};
