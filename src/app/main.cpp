// Entry of the program. `quorvel FILE...` plays the first file and adds the
// rest (or hands them all to the running instance, which only adds them);
// `*Add` among the files only adds; `quorvel --report FILE` prints the
// file's media report without opening a window. --help and --version print
// and end without a display.
//
// Whether this start becomes the player or hands its files over is decided
// before Qt connects to the display. A running instance that does not answer
// (stopped, hung) is reported on stderr and the start ends with status 1: it
// neither waits for it nor opens a second window beside it, so the user is
// told and no file is silently lost.
//
// The decision needs only Qt's core library; the window, the engine and
// ffmpeg live in the player module, loaded once this start is to play.

#include "app/commandline.h"
#include "app/playermain.h"
#include "app/startup.h"
#include "common/appname.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <dlfcn.h>

namespace {

// An entry of the player module in the program's folder; null (and
// dlerror() says why) when it cannot be loaded.
void *playerEntry(const char *name)
{
    const QByteArray module = QFile::encodeName(quorvel::ExecutableFolder()) + quorvel::kPlayerModule;
    void *handle = dlopen(module.constData(), RTLD_NOW | RTLD_LOCAL);
    return handle ? dlsym(handle, name) : nullptr;
}

// Loads the player module and runs it.
int runPlayer(quorvel::PlayerStart &start)
{
    const auto entry = reinterpret_cast<quorvel::PlayerMainFunction>(playerEntry(quorvel::kPlayerEntry));
    if (!entry) {
        std::fprintf(stderr, "Quorvel cannot start: %s\n", dlerror());
        return 1;
    }
    return entry(start);
}

// libVLC's version is asked of the library itself, which the player module
// links; it needs no engine instance and no display.
int printVersions()
{
    std::printf("Quorvel %s\n", QUORVEL_VERSION);
    const auto engineVersion = reinterpret_cast<quorvel::EngineVersionFunction>(
        playerEntry(quorvel::kEngineVersionEntry));
    if (engineVersion)
        std::printf("libVLC %s\n", engineVersion());
    else
        std::fprintf(stderr, "libVLC cannot be loaded: %s\n", dlerror());
    return engineVersion ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    // Taken before Qt sees them: Qt would swallow a file named like one of
    // its own options ("-reverse", "-style").
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);

    const quorvel::CommandLine command = quorvel::CommandLine::parse(arguments, quorvel::CallerWorkingFolder());
    quorvel::PlayerStart start;
    start.argv = argv;
    switch (command.action) {
    case quorvel::CommandLine::Action::Help:
        std::fputs(quorvel::CommandLine::helpText().toLocal8Bit().constData(), stdout);
        return 0;
    case quorvel::CommandLine::Action::Version:
        return printVersions();
    case quorvel::CommandLine::Action::Invalid:
        std::fprintf(stderr, "quorvel: %s\n%s", command.error.toLocal8Bit().constData(),
                     quorvel::CommandLine::usageText().toLocal8Bit().constData());
        return 2;
    case quorvel::CommandLine::Action::Report:
        start.reportFile = command.reportFile;
        return runPlayer(start);
    case quorvel::CommandLine::Action::Play:
        break;
    }

    const QByteArray platform = quorvel::QtPlatformToUse(qgetenv("QT_QPA_PLATFORM"), qgetenv("WAYLAND_DISPLAY"),
                                                         qgetenv("XDG_SESSION_TYPE"));
    if (!platform.isEmpty())
        qputenv("QT_QPA_PLATFORM", platform);

    QCoreApplication::setOrganizationName(quorvel::kOrganizationName);
    QCoreApplication::setApplicationName(quorvel::kOrganizationName);
    quorvel::SystemInstanceChannel channel;
    quorvel::StartupNegotiator negotiator(channel, quorvel::StartupNegotiator::defaultLockPath());
    const quorvel::StartupDecision decision = negotiator.decide(
        command, quorvel::NewInstanceWanted(quorvel::ExecutableFolder()));
    if (decision.outcome == quorvel::StartupDecision::Outcome::HandedOver)
        return 0;
    if (decision.outcome == quorvel::StartupDecision::Outcome::Failed) {
        std::fprintf(stderr, "%s\n", decision.message.toLocal8Bit().constData());
        return 1;
    }

    start.decision = decision;
    start.forcePlay = command.forcePlay;
    return runPlayer(start);
}
