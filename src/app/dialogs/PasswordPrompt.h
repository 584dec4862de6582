#pragma once

namespace PasswordPrompt
{
/** Lets requests to the server ask for the root password with a modal dialog. */
void install();
} // namespace PasswordPrompt
