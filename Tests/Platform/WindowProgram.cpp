// window_program CLASS TITLE: shows a window until it is ended. Its WM_CLASS is "window_program" and CLASS.

#include <QGuiApplication>
#include <QRasterWindow>

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    QGuiApplication::setApplicationName(arguments.value(1)); // becomes the class
    QRasterWindow window;
    window.setTitle(arguments.value(2));
    window.show();
    return QGuiApplication::exec();
}
