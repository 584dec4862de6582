#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <optional>

/** Modal message boxes in tests. */
namespace MessageBoxes
{
struct Box {
    QMessageBox::Icon icon;
    QString title;
    QString text;
    const QObject *parent;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton;
};

/** What `box` shows. The text is the one that the user sees, rich text or not. */
inline Box read(const QMessageBox &box)
{
    return {box.icon(),
            box.windowTitle(),
            box.textFormat() == Qt::PlainText ? box.text() : QString(),
            box.parent(),
            box.standardButtons(),
            box.standardButton(box.defaultButton())};
}

/** Runs `action` and answers the message box that it shows, if any, with OK. */
inline std::optional<Box> boxShownBy(const std::function<void()> &action)
{
    std::optional<Box> shown;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        const auto box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        watch.stop();
        shown = read(*box);
        box->button(QMessageBox::Ok)->click();
    });
    watch.start(0);
    action();
    return shown;
}
} // namespace MessageBoxes
