#include "PasswordPrompt.h"

#include "IPPRequest.h"
#include "Secret.h"

#include <QInputDialog>
#include <QLineEdit>

namespace
{
/** Gives the field room for a password before one is typed: its text is never moved then. */
void makeRoom(QLineEdit &field)
{
    constexpr qsizetype Room = 256;
    field.setText(QString(Room, u' '));
    field.selectAll();
    field.del();
}

/** What the user has typed, in memory that only the caller has. */
QString askFor(const QString &title, const QString &label)
{
    QInputDialog dialog;
    dialog.setWindowTitle(title);
    dialog.setLabelText(label);
    dialog.setTextEchoMode(QLineEdit::Password);
    QLineEdit &field = *dialog.findChild<QLineEdit *>();
    makeRoom(field);
    const bool isAccepted = dialog.exec() == QDialog::Accepted;
    const QString typed = field.text();
    const QString result = isAccepted ? QString(typed.constData(), typed.size()) : QString();
    Secret::wipe(typed);
    return result;
}
} // namespace

namespace PasswordPrompt
{
void install()
{
    IPPRequest::setPasswordPrompt(askFor);
}
} // namespace PasswordPrompt
