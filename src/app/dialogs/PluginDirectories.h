#pragma once

#include <QString>
#include <QStringList>

/**
 * The folders that are searched for plug-ins. `environment` is the value of VESK_PLUGIN_DIR
 * (folders separated by ';'), or null where it is not set: then the `plugins` folders beside the
 * program, /opt/V/mfp/plugins for a program at /opt/V/mfp/bin/vesk.
 */
QStringList pluginDirectories(const char *environment, const QString &programPath);

/**
 * Whether `programPath` is the program that this process runs. A name that is looked up in the
 * working directory may be somebody else's: what lies beside that must not be loaded.
 */
bool isRunningProgram(const QString &programPath);
