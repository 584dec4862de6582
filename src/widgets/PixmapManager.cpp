#include "PixmapManager.h"

#include "BoundedFile.h"
#include "ModelMatch.h"
#include "PictureFile.h"
#include "SystemPaths.h"
#include "images/GenericPrinterImage.xpm"
#include "images/GenericScannerImage.xpm"

#include <QFile>
#include <QGuiApplication>

/** Outside of any namespace, as the macro wants it. */
static void registerPictures()
{
    Q_INIT_RESOURCE(widgets);
}

namespace
{
constexpr QLatin1StringView indexName("pictures.ini");
constexpr QLatin1StringView printerPrefix("Printer_");
constexpr QLatin1StringView scannerPrefix("Scanner_");
constexpr QByteArrayView smallKey("SmallPicture");
constexpr QByteArrayView bigKey("BigPicture");
constexpr QByteArrayView modelKey("Model");

PictureEntry entryOf(const IniReader &index)
{
    return {index.value(bigKey, QString()), index.value(smallKey, QString())};
}

/** The entry of the device called `name`; null when none fits. */
template <typename Table> const PictureEntry *find(const Table &table, const QString &name)
{
    const QString key = ModelMatch::key(name);
    if (const auto same = table.constFind(key); same != table.cend())
        return &*same;
    const PictureEntry *best = nullptr;
    qsizetype bestScore = 0;
    for (auto entry = table.cbegin(); entry != table.cend(); ++entry) {
        const qsizetype score = ModelMatch::score(entry.key(), key);
        if (score > bestScore) {
            bestScore = score;
            best = &*entry;
        }
    }
    return best;
}

QString fileOf(const PictureEntry &entry, int flags)
{
    const bool wantsBig = (flags & PixmapManager::BigPicture) != 0;
    return wantsBig && !entry.big.isEmpty() ? entry.big : entry.small;
}

bool leadsUpwards(const QString &fileName)
{
    return fileName.split(u'/').contains(QLatin1StringView(".."));
}

} // namespace

/** A picture that is compiled in, and the file of the same one for fine screens. */
struct PixmapManager::Generic {
    const char *const *picture;
    QLatin1StringView fineFile;

    QPixmap load() const
    {
        if (qGuiApp->devicePixelRatio() <= 1)
            return QPixmap(picture);
        registerPictures();
        return QPixmap(QStringLiteral(":/widgets/images/") + fineFile);
    }
};

PixmapManager
    PixmapManager::m_PixmapManagerInstance(QFile::decodeName(SystemPaths::pictureDirectory()));
PixmapManager *const _PIXMAN = &PixmapManager::m_PixmapManagerInstance;

PixmapManager::PixmapManager(const QString &directory)
    : m_index(BoundedFile::read(directory + indexName, MaxIndexSize))
    , m_directory(directory)
{
    const QStringList sections = m_index.sections();
    for (const QString &section : sections)
        readSection(section);
}

PixmapManager::~PixmapManager() = default;

void PixmapManager::readSection(const QString &section)
{
    m_index.select(section);
    const auto model = [this] { return ModelMatch::key(m_index.value(modelKey, QString())); };
    if (section.startsWith(printerPrefix))
        m_printers.insert(model(), entryOf(m_index));
    else if (section.startsWith(scannerPrefix))
        m_scanners.insert(model(), entryOf(m_index));
    else
        m_others.insert(section.toUpper(), entryOf(m_index));
}

bool PixmapManager::printerPicture(QPixmap &out, const char *makeAndModel, int flags) const
{
    const Generic generic{_GenericPrinterImage, QLatin1StringView("generic_printer@2x.png")};
    return lookUp(out, m_printers, generic, QString::fromUtf8(makeAndModel), flags);
}

bool PixmapManager::scannerPicture(QPixmap &out, const char *makeAndModel, int flags) const
{
    const Generic generic{_GenericScannerImage, QLatin1StringView("generic_scanner@2x.png")};
    return lookUp(out, m_scanners, generic, QString::fromUtf8(makeAndModel), flags);
}

bool PixmapManager::lookUp(QPixmap &out, const Table &table, const Generic &generic,
                           const QString &makeAndModel, int flags) const
{
    if (picture(out, table, makeAndModel, flags))
        return true;
    // The entry without a model, if there is one, stands for all others.
    if (!picture(out, table, QString(), flags))
        out = generic.load();
    return false;
}

bool PixmapManager::picture(QPixmap &out, const Table &table, const QString &name, int flags) const
{
    const PictureEntry *entry = find(table, name);
    return entry && load(out, fileOf(*entry, flags));
}

bool PixmapManager::load(QPixmap &out, const QString &fileName) const
{
    if (fileName.isEmpty() || leadsUpwards(fileName))
        return false;
    const QPixmap picture = PictureFile::load(m_directory + fileName);
    if (picture.isNull())
        return false;
    out = picture;
    return true;
}
