// The toolkit's own colour dialog: start-up is measured beside it.
#include <QApplication>
#include <QColorDialog>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QColorDialog dialog(Qt::darkCyan);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    return dialog.exec();
}
