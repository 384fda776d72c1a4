// The desktop program. It takes no arguments of its own.
#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    return 0;
}
