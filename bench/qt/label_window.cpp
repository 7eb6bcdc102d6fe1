// The least that a program of the toolkit shows: start-up is measured beside it.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QLabel label("A label");
    label.resize(640, 480);
    label.show();
    return QApplication::exec();
}
