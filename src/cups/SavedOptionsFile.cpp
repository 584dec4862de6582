#include "SavedOptionsFile.h"

#include <QFile>

#include <array>
#include <cctype>
#include <optional>
#include <pwd.h>
#include <unistd.h>
#include <utility>

namespace
{
using Destinations::SavedEntry;

constexpr char FileName[] = "/lpoptions";

QByteArray contentsOf(const QByteArray &path)
{
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray systemFile()
{
    const bool isMoved = qEnvironmentVariableIsSet("CUPS_SERVERROOT");
    return (isMoved ? qgetenv("CUPS_SERVERROOT") : QByteArray("/etc/cups")) + FileName;
}

/** Where the library looks for the user's files: HOME when it is set at all. */
QByteArray homeDirectory()
{
    if (qEnvironmentVariableIsSet("HOME"))
        return qgetenv("HOME");
    // The listing asks for it on a thread of its own.
    std::array<char, 16384> texts;
    passwd entry = {};
    passwd *user = nullptr;
    getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &user);
    return user ? QByteArray(user->pw_dir) : QByteArray();
}

QByteArray userFile()
{
    return homeDirectory() + "/.cups" + FileName;
}

QList<SavedEntry> savedIn(const QByteArray &file)
{
    return Destinations::parseSavedOptions(contentsOf(file));
}

/** `line` up to a comment, without blanks at its ends. "\#" stands for the character itself. */
QByteArray withoutComment(QByteArray line)
{
    const qsizetype sign = line.indexOf('#');
    if (sign > 0 && line.at(sign - 1) == '\\')
        line.remove(sign - 1, 1);
    else if (sign >= 0)
        line.truncate(sign);
    return line.trimmed();
}

bool isBlank(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

/** Cuts the first word off `text`. */
QByteArray takeWord(QByteArray &text)
{
    qsizetype end = 0;
    while (end < text.size() && !isBlank(text.at(end)))
        ++end;
    const QByteArray word = text.left(end);
    text = text.mid(end).trimmed();
    return word;
}

bool isWord(const QByteArray &word, const char *keyword)
{
    return word.compare(keyword, Qt::CaseInsensitive) == 0;
}

std::optional<SavedEntry> parseSavedLine(const QByteArray &line)
{
    QByteArray rest = withoutComment(line);
    const QByteArray keyword = takeWord(rest);
    const bool isDefault = isWord(keyword, "Default");
    if ((!isDefault && !isWord(keyword, "Dest")) || rest.isEmpty())
        return std::nullopt;
    const SavedOptionsFile::Name destination = SavedOptionsFile::splitName(takeWord(rest));
    return SavedEntry{destination.name, destination.instance, rest, isDefault};
}

} // namespace

namespace SavedOptionsFile
{
Name splitName(const QByteArray &destination)
{
    const qsizetype slash = destination.indexOf('/');
    if (slash < 0)
        return {destination, {}};
    return {destination.left(slash), destination.mid(slash + 1)};
}

QList<SavedEntry> ofUser()
{
    return savedIn(userFile());
}

QList<SavedEntry> all()
{
    return savedIn(systemFile()) + savedIn(userFile());
}
} // namespace SavedOptionsFile

QList<SavedEntry> Destinations::parseSavedOptions(const QByteArray &text)
{
    QList<SavedEntry> entries;
    for (const QByteArray &line : text.split('\n')) {
        if (auto entry = parseSavedLine(line))
            entries.append(*std::move(entry));
    }
    return entries;
}
