#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>

/** The least program that shows the toolkit's own print dialog. */
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QPrinter printer;
    QPrintDialog dialog(&printer);
    return dialog.exec() == QDialog::Accepted ? 0 : 2;
}
