#pragma once

#include <QString>
#include <QStringList>

/**
 * The program's own path: `argv0` where that names an executable file (relative to the working
 * directory), else SystemPaths::program(); absolute, and with a symbolic link replaced by its
 * target.
 */
QString programPath(const char *argv0);

/**
 * The folders that are searched for plug-ins. `environment` is the value of VESK_PLUGIN_DIR
 * (folders separated by ';'), or null where it is not set: then the `plugins` folders beside the
 * program, /opt/V/mfp/plugins for a program at /opt/V/mfp/bin/vesk.
 */
QStringList pluginDirectories(const char *environment, const QString &programPath);
