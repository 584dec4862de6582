#pragma once

#include "CupsHandles.h"

#include <QMap>
#include <QString>
#include <QStringList>

class CommandLineOptions;

/**
 * The job options of one destination, in three forms that one operation keeps together: a table of
 * name to value (this object), a CUPS option array, and the marks of the destination's PPD.
 *
 * Copies share the PPD; the last one closes it. Failures warn and return false or a null string;
 * what was applied before stays.
 */
class PrinterOptions : public QMap<QString, QString>
{
public:
    /** What an option stands at where nothing sets it. */
    static constexpr int defaultNumberUp = 1;
    static constexpr int defaultCpi = 10;
    static constexpr int defaultLpi = 6;
    static constexpr int defaultColumns = 1;
    static constexpr int defaultBrightness = 100; // percent
    static constexpr int defaultGamma = 1000;     // thousandths
    static constexpr int defaultHue = 0;          // degrees
    static constexpr int defaultSaturation = 100; // percent
    static constexpr int defaultResolution = 128; // pixels an inch
    static constexpr int defaultScaling = 100;    // percent

    PrinterOptions();
    /** With the job options of an `lpr` command line. */
    explicit PrinterOptions(const CommandLineOptions &commandLine);
    PrinterOptions(const PrinterOptions &other);
    PrinterOptions &operator=(const PrinterOptions &other);
    virtual ~PrinterOptions();

    /** Applies the saved and the server's options of `destination`: `name` or `name/instance`. */
    bool load(const QString &destination);
    /** Writes the options as the user's saved options of `destination`. */
    bool save(const QString &destination);
    /** Opens and marks the PPD of the destination, or of a class's first member. */
    bool openPPD();
    /** Takes over an opened PPD (null: none) and marks its defaults, then the options held here. */
    void usePPD(const Cups::PpdPtr &ppd);
    /** Lets go of the PPD; the last owner closes it. */
    void closePPD();

    bool setOption(const QString &name, const QString &value);
    void setOptions(const QMap<QString, QString> &options);
    void removeOption(const QString &name);
    /** The PPD's marked choice, else the table's value, else `defaultValue`. */
    QString value(const QString &name, const QString &defaultValue) const;
    int intValue(const QString &name, int defaultValue) const;
    QString valueAsText(const QString &name) const;
    bool setValueAsText(const QString &name, const QString &text);
    QStringList choices(const QString &name) const;
    void setVolatileOptions(const QStringList &names);
    void clearCupsOptions();
    /** Takes `media`, `PageSize`, `MediaType` and `InputSlot` over where `source` has them. */
    void copyMediaOptions(const PrinterOptions &source);
    QString describe() const;

    /** Whether `name` is in the CUPS option array. */
    bool hasCupsOption(const QString &name) const;
    /** Whether `name` is in the CUPS option array or an option of the open PPD. */
    bool hasOption(const QString &name) const;
    const Cups::OptionArray &cupsOptions() const { return m_cupsOptions; }
    /** The open PPD, or null. It lives as long as this object or a copy holds it. */
    ppd_file_t *ppd() const { return m_ppd.get(); }
    const QString &destination() const { return m_destination; }
    void setDestination(const QString &destination) { m_destination = destination; }
    const QStringList &volatileOptions() const { return m_volatileOptions; }

private:
    struct TextMap {
        QMap<QString, QString> texts;  // value to display text
        QMap<QString, QString> values; // display text to value
        QStringList ordered;           // display texts in choice order
    };

    void buildTextMap(const char *keyword);

    QString m_destination;
    Cups::OptionArray m_cupsOptions;
    Cups::PpdPtr m_ppd;
    QMap<QString, TextMap> m_textMaps;
    QStringList m_volatileOptions;
};
