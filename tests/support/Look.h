#pragma once

#include "LongTexts.h"
#include "Looks.h"

#include <QApplication>
#include <QLabel>
#include <QRect>
#include <QTest>

/** A changed look, for as long as it lives. */
class Look
{
public:
    Look(bool dark, bool mirrored, bool wordy)
    {
        if (dark)
            QApplication::setPalette(Looks::darkPalette());
        if (mirrored)
            QApplication::setLayoutDirection(Qt::RightToLeft);
        if (wordy)
            QCoreApplication::installTranslator(&m_longTexts);
    }
    ~Look()
    {
        QApplication::setPalette(QPalette());
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QCoreApplication::removeTranslator(&m_longTexts);
    }
    /** The columns of a table of looks: the dark palette, right to left, a wordy language. */
    static void addColumns()
    {
        for (const char *name : {"dark", "mirrored", "wordy"})
            QTest::addColumn<bool>(name);
    }
    /** The look of the current row. */
    static Look ofRow()
    {
        QFETCH(bool, dark);
        QFETCH(bool, mirrored);
        QFETCH(bool, wordy);
        return {dark, mirrored, wordy};
    }
    Look(const Look &) = delete;
    Look &operator=(const Look &) = delete;

private:
    LongTexts m_longTexts;
};

/** Where the widget lies in its window. */
inline QRect areaOf(const QWidget *widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

/** Whether all that the widget has to show fits into it. */
inline bool hasRoom(const QWidget *widget)
{
    const auto label = qobject_cast<const QLabel *>(widget);
    if (label && label->wordWrap())
        return label->height() >= label->heightForWidth(label->width());
    const QSize needed = widget->minimumSizeHint();
    return widget->width() >= needed.width() && widget->height() >= needed.height();
}

/** The first of the widgets that is cut, leaves the window or lies over another one; or nothing. */
inline QString misplaced(const QWidget &window, const QList<QWidget *> &widgets)
{
    for (const QWidget *widget : widgets) {
        const QRect area = areaOf(widget);
        if (!hasRoom(widget) || !window.rect().contains(area))
            return widget->objectName();
        for (const QWidget *other : widgets) {
            if (other != widget && areaOf(other).intersects(area))
                return widget->objectName() + u' ' + other->objectName();
        }
    }
    return {};
}
