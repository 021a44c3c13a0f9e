// A Qt print dialog with its options opened, for comparison: opens it on the server's printers and
// waits.
#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QPrinter printer(QPrinter::HighResolution);
    if (argc > 1)
        printer.setPrinterName(QString::fromUtf8(argv[1]));
    QPrintDialog dialog(&printer);
    // The button's text in the language of this program, which has none.
    for (QPushButton* const button : dialog.findChildren<QPushButton*>()) {
        if (button->text().contains(QStringLiteral("Options")))
            button->click();
    }
    return dialog.exec();
}
