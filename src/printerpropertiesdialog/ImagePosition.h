#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

/** Where an image lies on its page. */
struct ImagePosition {
    /** The values are those of the dialog's two sliders. */
    enum Place { Start, Centre, End };

    /** Start is left, End is right. */
    Place horizontal = Centre;
    /** Start is the top, End is the bottom. */
    Place vertical = Centre;

    friend bool operator==(const ImagePosition &, const ImagePosition &) = default;

    /** The position that two sliders stand at; a value that is none of theirs is the centre. */
    static ImagePosition fromSliders(int horizontal, int vertical);
    /** Reads a value of the job option `position`; what it does not say is centred. */
    static ImagePosition fromOption(const QString &text);
    /** The value of `position`, like "top-left"; empty when the image is centred both ways. */
    QString toOption() const;

    /** The top left corner of an image of this size within a page of that size. */
    QPoint offset(QSize page, QSize image) const;
};
