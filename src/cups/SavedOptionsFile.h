#pragma once

#include "Destinations.h"

/** The files in which the library keeps saved options: the system's and the user's. */
namespace SavedOptionsFile
{
struct Name {
    QByteArray name;
    QByteArray instance;
};

/** `name` or `name/instance` in its two parts. */
Name splitName(const QByteArray &destination);

/** The entries of the user's file, the one that the library writes. */
QList<Destinations::SavedEntry> ofUser();
/** The entries of both files in the order in which the library applies them. */
QList<Destinations::SavedEntry> all();
} // namespace SavedOptionsFile
