#include "PasswordPrompt.h"

#include "IPPRequest.h"

#include <QInputDialog>
#include <QLineEdit>

namespace PasswordPrompt
{
void install()
{
    IPPRequest::setPasswordPrompt([](const QString &title, const QString &label) {
        return QInputDialog::getText(nullptr, title, label, QLineEdit::Password);
    });
}
} // namespace PasswordPrompt
