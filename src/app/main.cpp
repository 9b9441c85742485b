// Entry of the program. `quorvel FILE` plays a file (or hands it to the
// running instance); `quorvel FILE *Add` only adds it; `quorvel --report
// FILE` prints the file's media report without opening a window.

#include "app/application.h"
#include "app/mainwindow.h"
#include "media/reportcommand.h"

#include <QCoreApplication>
#include <QFile>

#include <chrono>
#include <cstdlib>
#include <thread>

int main(int argc, char **argv)
{
    // Taken before Qt sees them: Qt would swallow a file named like one of
    // its own options ("-reverse", "-style").
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);

    int qtArgc = 1;
    if (arguments.size() == 2 && arguments[0] == u"--report") {
        QCoreApplication app(qtArgc, argv);
        return quorvel::RunReportCommand(arguments[1]);
    }

    quorvel::Application app(qtArgc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brenlow Quorvel"));

    quorvel::MainWindow window;
    QObject::connect(&window, &quorvel::MainWindow::closing, [] {
        // The settings are safe. Should the engine hang while it lets go of
        // its outputs, the process still ends: a closed player must never
        // keep running where the user cannot see it.
        std::thread([] {
            std::this_thread::sleep_for(std::chrono::seconds(10));
            std::_Exit(0);
        }).detach();
    });
    if (!window.FormLoad(arguments))
        return 0; // the running instance has the file now
    window.show();
    return app.exec();
}
