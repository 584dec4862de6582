#pragma once

#include <QByteArray>
#include <QString>

#include <cstring>

/** Texts that nobody may find in memory afterwards. */
namespace Secret
{
/**
 * Overwrites the text where it lies, up to the end of its memory: in all copies that share it,
 * which are as long as before and hold zeros. Text that was compiled in is left alone.
 */
template <typename Text> void wipe(const Text &text)
{
    if (text.capacity() > 0)
        explicit_bzero(const_cast<typename Text::value_type *>(text.constData()),
                       static_cast<size_t>(text.capacity()) * sizeof(typename Text::value_type));
}
} // namespace Secret
