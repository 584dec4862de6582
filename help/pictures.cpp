/**
 * Takes the pictures of the help pages from the real windows, with the queues of a private world:
 * help-pictures PROGRAM FOLDER SUFFIX, plus --dark. The language is that of the environment, its
 * catalogues those of the installation that PROGRAM belongs to.
 */

#include "DevicePicture.h"
#include "IPPRequest.h"
#include "InstallationSettings.h"
#include "Looks.h"
#include "PPDOptionView.h"
#include "PPDTreeView.h"
#include "PasswordPrompt.h"
#include "PrintDialog.h"
#include "PrinterPropertiesDialog.h"
#include "Translations.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QLocale>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{
const QString Laser = u"Laser"_s;
const QString Photo = u"Photo"_s;
const QString Stopped = u"Stopped"_s;
constexpr int AdvancedTab = 3;

/** Where the pictures go. */
class Album
{
public:
    Album(const QString &folder, const QString &suffix)
        : m_folder(folder)
        , m_suffix(suffix)
    {
    }

    /** Shows the window and takes a picture of it, or of a part of it with some room around. */
    void take(const QString &name, QWidget &window, QWidget *part = nullptr)
    {
        constexpr int Room = 3;
        window.show();
        // The second round is for what the first one has moved.
        QCoreApplication::processEvents();
        window.adjustSize();
        QCoreApplication::processEvents();
        const QRect around = QRect(part ? part->mapTo(&window, QPoint()) : QPoint(),
                                   part ? part->size() : window.size())
                                 .adjusted(-Room, -Room, Room, Room);
        save(name, window.grab(part ? around & window.rect() : window.rect()));
    }

    bool isComplete() const { return m_isComplete; }

private:
    void save(const QString &name, const QPixmap &picture)
    {
        const QString path = QDir(m_folder).filePath(name + m_suffix + u".png"_s);
        if (picture.save(path))
            return;
        std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(path));
        m_isComplete = false;
    }

    QString m_folder;
    QString m_suffix;
    bool m_isComplete = true;
};

template <typename Widget> Widget &child(QWidget &window, const char *name)
{
    auto *found = window.findChild<Widget *>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}

PrintDialogServices services()
{
    PrintDialogServices result;
    result.devicePicture = devicePicture;
    result.createPropertiesDialog = [](const QString &destination, const PrinterOptions &options,
                                       QWidget *parent) -> QDialog * {
        return new PrinterPropertiesDialog(destination, options, parent);
    };
    return result;
}

void takePrintDialog(Album &album)
{
    PrintDialog dialog(Laser, PrinterOptions(), services());
    child<QRadioButton>(dialog, "SomePagesRadio").click();
    child<QLineEdit>(dialog, "PagesEdit").setText(u"1,2-5"_s);
    child<QSpinBox>(dialog, "CopiesSpinBox").setValue(3);
    album.take(u"print-dialog"_s, dialog);
}

void takeStoppedPrinter(Album &album)
{
    PrintDialog dialog(Stopped, PrinterOptions(), services());
    album.take(u"stopped"_s, dialog, &child<QGroupBox>(dialog, "groupBox"));
}

/** The properties dialog of a destination with some options. */
std::unique_ptr<PrinterPropertiesDialog> properties(const QString &destination,
                                                    const QMap<QString, QString> &set)
{
    PrinterOptions options;
    options.load(destination);
    for (auto option = set.begin(); option != set.end(); ++option)
        options.setOption(option.key(), option.value());
    return std::make_unique<PrinterPropertiesDialog>(destination, options);
}

/** Opens the last tab with the row of an option of the driver selected. */
PPDTreeView &showOption(PrinterPropertiesDialog &dialog, const QString &keyword)
{
    child<QTabWidget>(dialog, "TabControl").setCurrentIndex(AdvancedTab);
    auto &tree = child<PPDTreeView>(dialog, "ppdTreeView");
    QTreeWidgetItem *row = tree.m_dict.value(keyword);
    if (!row)
        qFatal("there is no option %s", qUtf8Printable(keyword));
    tree.setCurrentItem(row);
    tree.scrollToItem(row, QAbstractItemView::PositionAtCenter);
    return tree;
}

void takeTabs(Album &album)
{
    const auto dialog = properties(Laser, {{u"Duplex"_s, u"DuplexNoTumble"_s},
                                           {u"number-up"_s, u"2"_s},
                                           {u"page-left"_s, u"36"_s},
                                           {u"page-right"_s, u"36"_s},
                                           {u"page-top"_s, u"48"_s},
                                           {u"page-bottom"_s, u"48"_s},
                                           {u"columns"_s, u"2"_s},
                                           {u"brightness"_s, u"110"_s},
                                           {u"saturation"_s, u"140"_s},
                                           {u"position"_s, u"top-right"_s}});
    auto &tabs = child<QTabWidget>(*dialog, "TabControl");
    const QStringList names = {u"general"_s, u"text"_s, u"graphics"_s};
    for (int i = 0; i < names.size(); ++i) {
        tabs.setCurrentIndex(i);
        album.take(names[i], *dialog);
    }
    showOption(*dialog, u"InputSlot"_s);
    album.take(u"advanced"_s, *dialog);
}

void takeConflict(Album &album)
{
    const auto dialog =
        properties(Laser, {{u"Duplex"_s, u"DuplexTumble"_s}, {u"MediaType"_s, u"Labels"_s}});
    // The selected row would not be red.
    album.take(u"conflict"_s, *dialog, &showOption(*dialog, u"InputSlot"_s));
}

void takeCustomPageSize(Album &album)
{
    const auto dialog = properties(Photo, {{u"PageSize"_s, u"Custom.120x180mm"_s}});
    showOption(*dialog, u"PageSize"_s);
    constexpr int Millimetres = 1;
    child<QComboBox>(*dialog, "m_unitsComboBox").setCurrentIndex(Millimetres);
    album.take(u"custom-size"_s, *dialog, &child<PPDOptionView>(*dialog, "ppdOptionView"));
}

void takePassword(Album &album)
{
    PasswordPrompt::install();
    QTimer::singleShot(0, qApp, [&album] {
        QWidget *prompt = QApplication::activeModalWidget();
        if (!prompt)
            qFatal("the password is not asked for");
        album.take(u"password"_s, *prompt);
        prompt->close();
    });
    IPPRequest::rootPasswordCallback("");
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QStringList words = QCoreApplication::arguments().mid(1);
    const bool isDark = words.removeAll(u"--dark"_s) > 0;
    if (words.size() != 3) {
        std::fputs("usage: help-pictures [--dark] PROGRAM FOLDER SUFFIX\n", stderr);
        return 2;
    }
    InstallationSettings::load(QFile::encodeName(words[0]).constData());
    Translations::installToolkit(Translations::install(Translations::catalogues(), {}), {});
    // Numbers are written as in the language of the texts.
    QLocale::setDefault(QLocale(QLocale::system().uiLanguages().constFirst()));
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setFont(QFont(u"DejaVu Sans"_s, 9));
    if (isDark)
        QApplication::setPalette(Looks::darkPalette());

    Album album(words[1], words[2]);
    takePrintDialog(album);
    takeStoppedPrinter(album);
    takeTabs(album);
    takeConflict(album);
    takeCustomPageSize(album);
    takePassword(album);
    return album.isComplete() ? 0 : 1;
}
