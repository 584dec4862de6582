#include "OptionPictures.h"

#include <QHash>
#include <QPixmapCache>

#include <array>

/** Outside of any namespace, as the macro wants it. */
static void registerPictures()
{
    Q_INIT_RESOURCE(ppdwidgets);
}

namespace
{
constexpr QLatin1StringView stp("Stp");
constexpr QLatin1StringView optionFolder("option/images");
constexpr QLatin1StringView groupFolder("group/images");

struct Row {
    const char *keyword;
    const char *file;
};

constexpr std::array rows{
    Row{"PageSize", "pagesize.png"},    Row{"MediaType", "pagesize.png"},
    Row{"InputSlot", "inputslot.png"},  Row{"Brightness", "brightness.png"},
    Row{"ColorModel", "color_opt.png"}, Row{"Grayscale", "color_opt.png"},
    Row{"Yellow", "yellow.png"},        Row{"Cyan", "cyan.png"},
    Row{"Magenta", "magenta.png"},      Row{"Gamma", "gamma.png"},
    Row{"Duplex", "duplex.png"},        Row{"GSResolution", "gsresol.png"},
    Row{"Resolution", "resol.png"},     Row{"Saturation", "saturation.png"},
    Row{"Contrast", "contrast.png"},    Row{"Dither", "dither.png"},
    Row{"Dithering", "dither.png"},     Row{"ImageType", "imagetype.png"},
    Row{"Quality", "pagesize.png"},
};

using Files = QHash<QString, QString>;

/** By keyword in lower case, plain and in the form that a family of drivers writes. */
Files filesByKeyword()
{
    Files files;
    for (const Row &row : rows) {
        const QString keyword = QLatin1StringView(row.keyword);
        files.insert(keyword.toLower(), QLatin1StringView(row.file));
        files.insert((stp + keyword).toLower(), QLatin1StringView(row.file));
    }
    return files;
}

QString fileOf(const QString &keyword)
{
    static const Files files = filesByKeyword();
    return files.value(keyword.toLower());
}

/** Loads a picture once for all rows. */
QPixmap picture(QLatin1StringView folder, const QString &fileName)
{
    static const bool registered = (registerPictures(), true);
    Q_UNUSED(registered);
    const QString path = QStringLiteral(":/%1/%2").arg(folder, fileName);
    QPixmap pixmap;
    if (!QPixmapCache::find(path, &pixmap) && pixmap.load(path))
        QPixmapCache::insert(path, pixmap);
    return pixmap;
}
} // namespace

namespace OptionPictures
{
QString optionFile(const QString &keyword, const QString &fallback)
{
    QString file = fileOf(keyword);
    if (file.isEmpty() && !keyword.startsWith(stp))
        file = fileOf(stp + keyword);
    return file.isEmpty() ? fallback : file;
}

QString booleanFile(const QString &choice)
{
    return choice == QLatin1StringView("True") ? QStringLiteral("bool_on.png")
                                               : QStringLiteral("bool_off.png");
}

QString groupFile(const QString &text)
{
    if (text == QLatin1StringView("Extra"))
        return QStringLiteral("printer_extra.png");
    if (text == QLatin1StringView("JCL"))
        return QStringLiteral("printer_jcl.png");
    if (isInstallGroup(text))
        return QStringLiteral("printer_install.png");
    return QStringLiteral("printer_general.png");
}

bool isInstallGroup(const QString &text)
{
    return text.contains(QLatin1StringView("install"), Qt::CaseInsensitive);
}

QPixmap option(const QString &fileName)
{
    return picture(optionFolder, fileName);
}

QPixmap group(const QString &fileName)
{
    return picture(groupFolder, fileName);
}

QPixmap root()
{
    return group(QStringLiteral("printer.png"));
}
} // namespace OptionPictures
