#pragma once

#include "IniReader.h"

#include <QMap>
#include <QPixmap>
#include <QString>

/** The file names of a device's pictures, below the picture folder. Either may be empty. */
struct PictureEntry {
    QString big;
    QString small;
};

/**
 * The picture catalogue: finds the picture of a device by its make and model.
 *
 * It is built from the index `pictures.ini` of the picture folder and never changes. A section
 * `Printer_...` or `Scanner_...` names the files of a model by its keys `Model`, `BigPicture` and
 * `SmallPicture`; one without `Model` gives the picture of all devices that are not listed. Without
 * an index, and where a file cannot be loaded, there is a generic picture.
 *
 * One instance for the process, built with the program's static objects (for the dialogs: when
 * their library is loaded), reached through `_PIXMAN`. Pictures need the application object.
 */
class PixmapManager
{
public:
    /** A flag of the look-ups: the big picture, if there is one. */
    static constexpr int BigPicture = 1;
    /** An index that is larger is as good as missing. */
    static constexpr qsizetype MaxIndexSize = 1024 * 1024;

    /** Reads the index. `directory`, which ends in a slash, comes before the names of all files. */
    explicit PixmapManager(const QString &directory);
    virtual ~PixmapManager();

    /**
     * The picture of the printer that `makeAndModel` (UTF-8; null: empty) names. True when this
     * printer's own picture was loaded; else `out` is the one for unlisted printers or the generic
     * one.
     */
    bool printerPicture(QPixmap &out, const char *makeAndModel, int flags) const;
    /** The same for a scanner. */
    bool scannerPicture(QPixmap &out, const char *makeAndModel, int flags) const;

    static PixmapManager m_PixmapManagerInstance;

private:
    /** By model key, or by section name in upper case. */
    using Table = QMap<QString, PictureEntry>;

    struct Generic;

    void readSection(const QString &section);
    bool lookUp(QPixmap &out, const Table &table, const Generic &generic,
                const QString &makeAndModel, int flags) const;
    bool picture(QPixmap &out, const Table &table, const QString &name, int flags) const;
    bool load(QPixmap &out, const QString &fileName) const;

    IniReader m_index;
    Table m_printers;
    Table m_scanners;
    Table m_others;
    QString m_directory;
};

/** The process's one PixmapManager. */
extern PixmapManager *const _PIXMAN;
