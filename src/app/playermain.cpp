#include "app/playermain.h"

#include "app/application.h"
#include "app/handoffserver.h"
#include "app/mainwindow.h"
#include "media/reportcommand.h"

#include <QCoreApplication>
#include <vlc/vlc.h>

#include <chrono>
#include <cstdlib>
#include <thread>

extern "C" __attribute__((visibility("default"))) int QuorvelPlayerMain(quorvel::PlayerStart &start)
{
    using namespace quorvel;
    if (!start.reportFile.isEmpty()) {
        QCoreApplication app(start.argc, start.argv);
        return RunReportCommand(start.reportFile);
    }

    Application app(start.argc, start.argv);
    auto receiver = std::make_unique<HandoffServer>();
    if (!start.decision.endpoints.isValid() || !receiver->adopt(start.decision.endpoints))
        receiver.reset();

    MainWindow window;
    QObject::connect(&window, &MainWindow::closing, [] {
        // The settings are safe. Should the engine hang while it lets go of
        // its outputs, the process still ends: a closed player must never
        // keep running where the user cannot see it.
        std::thread([] {
            std::this_thread::sleep_for(std::chrono::seconds(10));
            std::_Exit(0);
        }).detach();
    });
    window.FormLoad({start.decision.files, start.forcePlay}, std::move(receiver));
    window.show();
    return app.exec();
}

extern "C" __attribute__((visibility("default"))) const char *QuorvelEngineVersion()
{
    return libvlc_get_version();
}
