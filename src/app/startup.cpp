#include "startup.h"

#include "app/configfile.h"
#include "common/logging.h"

#include <QFile>
#include <QFileInfo>

namespace quorvel
{

namespace
{

// Holders keep the lock for moments, a hung sender for its receipt time.
constexpr int kLockWaitMs = 30000;
// A found instance that has gone away before taking the files.
constexpr int kAttempts = 3;

QString quotedList(const QStringList &files)
{
    QStringList quoted;
    for (const QString &f : files)
        quoted << u'"' + f + u'"';
    return quoted.join(u", ");
}

QString processOf(const QString &endpoint)
{
    const qint64 pid = handoff::ownerOf(endpoint);
    return pid > 0 ? QStringLiteral("the running Quorvel (process %1)").arg(pid)
                   : QStringLiteral("the running Quorvel");
}

StartupDecision failed(QString message)
{
    StartupDecision d;
    d.outcome = StartupDecision::Outcome::Failed;
    d.message = std::move(message);
    return d;
}

} // namespace

StartupNegotiator::StartupNegotiator(InstanceChannel &channel, QString lockPath)
    : m_channel(channel)
    , m_lock(std::move(lockPath))
{
}

QString StartupNegotiator::defaultLockPath()
{
    return RuntimeFolder() + QStringLiteral("/BrenlowQuorvel.start");
}

StartupDecision StartupNegotiator::decide(const CommandLine &command, bool useNewInstance)
{
    const bool hasFiles = !command.files.isEmpty();
    const QString text = hasFiles ? command.handOffText() : QStringLiteral("Hello");
    const QString what = hasFiles ? quotedList(command.files) : QString();
    if (hasFiles && handoff::frame(text).size() > handoff::kMaxMessageBytes + 8)
        useNewInstance = true; // too many to hand over at once: this start shows them itself

    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (!m_lock.acquire(kLockWaitMs))
            return failed(QStringLiteral("Quorvel: another start of Quorvel has not finished starting; "
                                         "try again. Not opened: %1")
                              .arg(hasFiles ? what : QStringLiteral("a window")));
        const quint64 turn = m_lock.turn();
        qCDebug(lcApp).noquote() << "negotiating, turn" << turn << "files" << text;
        const InstanceRegistry::Endpoints known = m_channel.readRegistry();
        if (useNewInstance || known.command == QLatin1String("-1"))
            return becomeInstance(turn);

        const QString endpoint = hasFiles ? known.command : known.probe;
        // Once the instance has the files queued, the next start may go on.
        const handoff::SendResult result = m_channel.send(endpoint, text, [this] { m_lock.release(); });
        if (result == handoff::SendResult::NoInstance)
            return becomeInstance(turn); // still under the lock: nobody else became it meanwhile
        m_lock.release();
        switch (result) {
        case handoff::SendResult::Done:
            return { StartupDecision::Outcome::HandedOver, {}, {}, turn };
        case handoff::SendResult::NoInstance:
        case handoff::SendResult::Dropped:
            qCWarning(lcApp) << "the running instance closed the hand-off; trying again";
            continue;
        case handoff::SendResult::NoAnswer:
            return failed(hasFiles
                    ? QStringLiteral("Quorvel: %1 does not answer; these files were not added: %2")
                          .arg(processOf(endpoint), what)
                    : QStringLiteral("Quorvel: %1 does not answer; no second window was opened.")
                          .arg(processOf(endpoint)));
        case handoff::SendResult::Unconfirmed:
            return failed(
                QStringLiteral("Quorvel: %1 received these files but has not confirmed adding them: %2")
                    .arg(processOf(endpoint), what));
        }
    }
    return failed(
        QStringLiteral("Quorvel: the running Quorvel kept closing the hand-off; these files were not "
                       "added: %1")
            .arg(hasFiles ? what : QStringLiteral("(none)")));
}

StartupDecision StartupNegotiator::becomeInstance(quint64 turn)
{
    StartupDecision d;
    d.turn = turn;
    if (m_channel.listen(&d.endpoints))
        m_channel.writeRegistry({ d.endpoints.command, d.endpoints.probe });
    else
        qCWarning(lcApp) << "cannot open the hand-off endpoints; later starts open windows of their own";
    m_lock.release();
    return d;
}

QByteArray QtPlatformToUse(
    const QByteArray &chosenPlatform, const QByteArray &waylandDisplay, const QByteArray &sessionType)
{
    if (!chosenPlatform.isEmpty())
        return {};
    if (!waylandDisplay.isEmpty() || sessionType == "wayland")
        return QByteArrayLiteral("xcb");
    return {};
}

} // namespace quorvel

namespace quorvel
{

bool NewInstanceWanted(const QString &programFolder)
{
    QFile file(ConfigFile::locate(programFolder));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const std::optional<Settings> settings = ConfigFile::parse(file.readAll());
    return settings && IsSet(settings->UseNewInstance);
}

QString ExecutableFolder()
{
    QString dir = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
    if (!dir.endsWith(u'/'))
        dir += u'/';
    return dir;
}

} // namespace quorvel
