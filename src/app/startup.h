#pragma once
// The start-up decision, taken before any window or display connection
// exists: does this process hand its files to the running instance and end,
// or become the running instance itself?
//
// All starts of one user negotiate one after the other, under a lock: each
// checks for a live instance and either hands its files over or, when there
// is none, opens its endpoints and records them before letting the next one
// in. So a burst of starts makes exactly one instance, and the running
// instance queues the files in the order the starts got their turn. A start
// never drops its files: when the instance it found has gone, it tries again
// (and becomes the instance itself); when the instance does not answer
// within seconds, it says so and ends with a failure.

#include "app/commandline.h"
#include "app/instance.h"

#include <QString>
#include <functional>

namespace quorvel {

// What the decision needs of the system; a test double replaces it.
class InstanceChannel {
public:
    virtual ~InstanceChannel() = default;
    virtual InstanceRegistry::Endpoints readRegistry() = 0;
    virtual void writeRegistry(const InstanceRegistry::Endpoints &endpoints) = 0;
    // Opens this process's endpoints; false when the system refused.
    virtual bool listen(ListeningEndpoints *endpoints) = 0;
    virtual handoff::SendResult send(const QString &endpoint, const QString &text,
                                     const std::function<void()> &received)
        = 0;
};

class SystemInstanceChannel final : public InstanceChannel {
public:
    InstanceRegistry::Endpoints readRegistry() override { return InstanceRegistry::read(); }
    void writeRegistry(const InstanceRegistry::Endpoints &endpoints) override { InstanceRegistry::write(endpoints); }
    bool listen(ListeningEndpoints *endpoints) override { return handoff::listen(RuntimeFolder(), endpoints); }
    handoff::SendResult send(const QString &endpoint, const QString &text,
                             const std::function<void()> &received) override
    {
        return handoff::send(endpoint, text, {}, received);
    }
};

struct StartupDecision {
    enum class Outcome {
        BecomeInstance, // build the window; `endpoints` are open when valid
        HandedOver,     // the running instance has the files: end with success
        Failed          // `message` says why; end with a failure
    };
    Outcome outcome = Outcome::BecomeInstance;
    ListeningEndpoints endpoints;
    QStringList files; // for BecomeInstance: the files this start opens itself
    QString message;
    quint64 turn = 0; // this start's place in the order of negotiation
};

class StartupNegotiator {
public:
    StartupNegotiator(InstanceChannel &channel, QString lockPath);
    StartupDecision decide(const CommandLine &command, bool useNewInstance);

    static QString defaultLockPath();

private:
    StartupDecision becomeInstance(quint64 turn, const QStringList &files);
    // The first files of `files` whose message stays within the size limit.
    static QStringList firstPart(const QStringList &files);

    InstanceChannel &m_channel;
    StartupLock m_lock;
};

// libVLC 3 draws video only into an X11 window. On a Wayland session Qt
// would make native Wayland windows, and the video would stay black; unless
// the user chose a platform, Qt runs on xcb (XWayland) instead. Returns the
// platform to set, or an empty text to leave Qt's choice alone.
QByteArray QtPlatformToUse(const QByteArray &chosenPlatform, const QByteArray &waylandDisplay,
                           const QByteArray &sessionType);

// True when "Config.cfg" asks for a new instance at every start. Read before
// the program is set up, so it takes the file as it is and changes nothing.
bool NewInstanceWanted(const QString &programFolder);
// The folder of the executable, ending in "/", known before Qt is set up.
QString ExecutableFolder();

} // namespace quorvel
