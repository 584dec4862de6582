#pragma once

#include "DialogTest.h"
#include "PrinterPropertiesDialog.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>

#include <memory>

/** What the tests of the properties dialog share. */
namespace PropertiesTest
{
using DialogTest::child;

/** The saved options of `destination` with `pairs` ("name=value") in addition. */
inline PrinterOptions optionsOf(const QString &destination, const QStringList &pairs = {})
{
    PrinterOptions options;
    options.setDestination(destination);
    options.load(destination);
    for (const QString &pair : pairs)
        options.setOption(pair.section(u'=', 0, 0), pair.section(u'=', 1));
    return options;
}

/** The contents of the saved-options file. */
inline QByteArray savedFile()
{
    QFile file(DialogTest::World::savedOptionsFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** The line of a destination in that file, the word `Dest` or `Default` and the name cut off. */
inline QString savedLine(const QString &destination)
{
    const QStringList lines = QString::fromLocal8Bit(savedFile()).split(u'\n');
    for (const QString &line : lines) {
        if (line.section(u' ', 1, 1) == destination)
            return line.section(u' ', 2);
    }
    return {};
}

/** The saved options of a destination, read back from the file alone. */
inline QMap<QString, QString> savedOptions(const QString &destination)
{
    Cups::OptionArray array;
    array.parse(savedLine(destination).toLocal8Bit().constData());
    QMap<QString, QString> options;
    for (const cups_option_t &option : array)
        options.insert(QString::fromLatin1(option.name), QString::fromLocal8Bit(option.value));
    return options;
}

/** Turns to the tab that the widget is on. */
inline void turnTo(QWidget *widget)
{
    const auto tabs = child<QTabWidget>(*widget->window(), "TabControl");
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i)->isAncestorOf(widget))
            tabs->setCurrentIndex(i);
    }
}

/** Opens the list and takes an entry, which may be the current one. */
inline void choose(QComboBox *combo, int index)
{
    combo->showPopup();
    combo->view()->setCurrentIndex(combo->model()->index(index, 0));
    QTest::keyClick(combo->view(), Qt::Key_Return);
}

inline void type(QSpinBox *box, const QString &text)
{
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
}

/** Moves the slider with its keys. */
inline void moveTo(QSlider *slider, int value)
{
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_Home);
    const auto press = [slider](Qt::Key up, Qt::Key down) {
        QTest::keyClick(slider, slider->invertedControls() ? down : up);
    };
    while (slider->value() + slider->pageStep() <= value)
        press(Qt::Key_PageUp, Qt::Key_PageDown);
    while (slider->value() < value)
        press(Qt::Key_Up, Qt::Key_Down);
}

/** Works a control with the keyboard or the mouse: `name` clicks, `name=value` sets. */
inline void work(PrinterPropertiesDialog &dialog, const QString &step)
{
    const QByteArray name = step.section(u'=', 0, 0).toLatin1();
    const QString value = step.section(u'=', 1);
    const auto widget = child<QWidget>(dialog, name.constData());
    turnTo(widget);
    if (const auto combo = qobject_cast<QComboBox *>(widget))
        choose(combo, combo->findText(value));
    else if (const auto box = qobject_cast<QSpinBox *>(widget))
        type(box, value);
    else if (const auto slider = qobject_cast<QSlider *>(widget))
        moveTo(slider, value.toInt());
    else
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(10, widget->height() / 2));
}

/** What a control shows: `name.property` as text; for a picture the name of its file. */
inline QString shown(const PrinterPropertiesDialog &dialog, const QString &what)
{
    const QString name = what.section(u'.', 0, 0);
    const QByteArray property = what.section(u'.', 1).toLatin1();
    return child<QWidget>(dialog, qPrintable(name))->property(property.constData()).toString();
}

/** Whether a label shows the picture of that file. */
inline bool showsPicture(const PrinterPropertiesDialog &dialog, const char *label,
                         const QString &file)
{
    const QString path = QStringLiteral(":/printerpropertiesdialog/images/") + file;
    const QPixmap expected = QIcon(path).pixmap(QPixmap(path).size(), dialog.devicePixelRatio());
    const QPixmap pixmap = child<QLabel>(dialog, label)->pixmap();
    return !expected.isNull() && pixmap.toImage() == expected.toImage();
}

inline QPushButton *applyButton(const PrinterPropertiesDialog &dialog)
{
    return child<QPushButton>(dialog, "ApplyButton");
}

/** Makes the dialog of `destination`, shown. */
inline std::unique_ptr<PrinterPropertiesDialog> open(const QString &destination,
                                                     const QStringList &pairs = {})
{
    auto dialog =
        std::make_unique<PrinterPropertiesDialog>(destination, optionsOf(destination, pairs));
    dialog->show();
    return dialog;
}
} // namespace PropertiesTest
