// qt_keys field|choice - a Qt window with a field that takes decimal numbers alone and a group of
// radio buttons, for comparison.  The keyboard is in the one that is named.
#include <QApplication>
#include <QDoubleValidator>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit field;
    QRadioButton first(QStringLiteral("Speed First"));
    QRadioButton second(QStringLiteral("Quality First"));
    QDoubleValidator decimal(0, 1e6, 3);
    decimal.setNotation(QDoubleValidator::StandardNotation);
    field.setValidator(&decimal);
    second.setChecked(true);
    for (QWidget* const widget : {static_cast<QWidget*>(&field), static_cast<QWidget*>(&first),
                                  static_cast<QWidget*>(&second)})
        layout.addWidget(widget);
    window.show();
    (argc > 1 && qstrcmp(argv[1], "choice") == 0 ? static_cast<QWidget*>(&second) : &field)
        ->setFocus();
    return QApplication::exec();
}
