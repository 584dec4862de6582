#pragma once

#include <QFlags>
#include <QString>
#include <QStringList>

#include <optional>

/** What `vesk-server` is to print. */
struct ReportOptions {
    enum Section {
        Default = 0x1,
        Printers = 0x2,
        Classes = 0x4,
        Jobs = 0x8,
        Drivers = 0x10,
    };
    Q_DECLARE_FLAGS(Sections, Section)
    enum class Which { Active, Completed, All };

    /** Without the drivers unless they are asked for: the server takes seconds to list them. */
    Sections sections = Sections(Default) | Printers | Classes | Jobs;
    /** A pattern with the wildcards of the shell. */
    QString name = QStringLiteral("*");
    /** Bits of cups_ptype_t; 0 and 0 list everything. */
    int type = 0;
    int mask = 0;
    /** What the make or model of a printer contains; not set: anything. */
    std::optional<QString> model;
    /** The make of the drivers; not set: any. */
    std::optional<QString> make;
    Which which = Which::Active;
    /** The jobs as the server itself lists them, with their URIs. */
    bool hasJobUris = false;
    /** In place of the printers the one with this URI; empty: none. */
    QString uri;
    bool wantsHelp = false;

    bool matchesName(const QString &text) const;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(ReportOptions::Sections)

/** Reads the arguments, without the program's name. Nothing is returned when they are wrong; then
 * `error` says why. */
std::optional<ReportOptions> readReportOptions(const QStringList &arguments, QString &error);

/** The text for --help. */
QString reportHelp();
