// Entry of the program. `quorvel FILE` plays a file (or hands it to the
// running instance); `quorvel FILE *Add` only adds it.

#include "app/application.h"
#include "app/mainwindow.h"

int main(int argc, char **argv)
{
    quorvel::Application app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brenlow Quorvel"));
    QStringList arguments = QApplication::arguments();
    arguments.removeFirst();

    quorvel::MainWindow window;
    if (!window.FormLoad(arguments))
        return 0; // the running instance has the file now
    window.show();
    return app.exec();
}
