// picture_index_bench catalogue|settings FOLDER
//
// Builds the catalogue of device pictures from the index in FOLDER (which ends in a slash), or
// reads the same values of the same file with QSettings, once, and prints how many milliseconds
// that took.

#include "PixmapManager.h"

#include <QElapsedTimer>
#include <QMap>
#include <QSettings>

#include <cstdio>
#include <cstring>

namespace
{
double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double buildCatalogue(const QString &folder)
{
    QElapsedTimer timer;
    timer.start();
    const PixmapManager catalogue(folder);
    return milliseconds(timer);
}

double readSettings(const QString &folder)
{
    QElapsedTimer timer;
    timer.start();
    QSettings settings(folder + QLatin1String("pictures.ini"), QSettings::IniFormat);
    QMap<QString, PictureEntry> devices;
    const QStringList sections = settings.childGroups();
    for (const QString &section : sections) {
        settings.beginGroup(section);
        devices.insert(settings.value(QLatin1String("Model")).toString().toUpper(),
                       {settings.value(QLatin1String("BigPicture")).toString(),
                        settings.value(QLatin1String("SmallPicture")).toString()});
        settings.endGroup();
    }
    return milliseconds(timer);
}
} // namespace

// As before main, there is no application object.
int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: picture_index_bench catalogue|settings FOLDER\n", stderr);
        return 1;
    }
    const QString folder = QString::fromLocal8Bit(argv[2]);
    const bool ofSettings = std::strcmp(argv[1], "settings") == 0;
    std::printf("%.4f\n", ofSettings ? readSettings(folder) : buildCatalogue(folder));
    return 0;
}
