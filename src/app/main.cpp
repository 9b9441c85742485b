// Entry of the program. `quorvel FILE...` plays the first file and adds the
// rest (or hands them all to the running instance, which only adds them);
// `*Add` among the files only adds; `quorvel --report FILE` prints the
// file's media report without opening a window.
//
// Whether this start becomes the player or hands its files over is decided
// before Qt connects to the display. A running instance that does not answer
// (stopped, hung) is reported on stderr and the start ends with status 1: it
// neither waits for it nor opens a second window beside it, so the user is
// told and no file is silently lost.

#include "app/application.h"
#include "app/commandline.h"
#include "app/handoffserver.h"
#include "app/mainwindow.h"
#include "app/startup.h"
#include "media/reportcommand.h"

#include <QCoreApplication>
#include <QFile>

#include <chrono>
#include <cstdio>
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

    const QByteArray platform = quorvel::QtPlatformToUse(
        qgetenv("QT_QPA_PLATFORM"), qgetenv("WAYLAND_DISPLAY"), qgetenv("XDG_SESSION_TYPE"));
    if (!platform.isEmpty())
        qputenv("QT_QPA_PLATFORM", platform);

    QCoreApplication::setOrganizationName(QStringLiteral("Brenlow Quorvel"));
    QCoreApplication::setApplicationName(QStringLiteral("Brenlow Quorvel"));
    const quorvel::CommandLine command
        = quorvel::CommandLine::parse(arguments, quorvel::CallerWorkingFolder());
    quorvel::SystemInstanceChannel channel;
    quorvel::StartupNegotiator negotiator(channel, quorvel::StartupNegotiator::defaultLockPath());
    const quorvel::StartupDecision decision
        = negotiator.decide(command, quorvel::NewInstanceWanted(quorvel::ExecutableFolder()));
    if (decision.outcome == quorvel::StartupDecision::Outcome::HandedOver)
        return 0;
    if (decision.outcome == quorvel::StartupDecision::Outcome::Failed) {
        std::fprintf(stderr, "%s\n", decision.message.toLocal8Bit().constData());
        return 1;
    }

    quorvel::Application app(qtArgc, argv);
    auto receiver = std::make_unique<quorvel::HandoffServer>();
    if (!decision.endpoints.isValid() || !receiver->adopt(decision.endpoints))
        receiver.reset();

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
    window.FormLoad({decision.files, command.forcePlay}, std::move(receiver));
    window.show();
    return app.exec();
}
