#include "startup.h"

#include "common/logging.h"
#include "settings/configfile.h"

#include <QFile>
#include <QFileInfo>

namespace quorvel {

namespace {

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
    : m_channel(channel), m_lock(std::move(lockPath))
{
}

QString StartupNegotiator::defaultLockPath()
{
    return RuntimeFolder() + QStringLiteral("/BrenlowQuorvel.start");
}

StartupDecision StartupNegotiator::decide(const CommandLine &command, bool useNewInstance)
{
    QStringList remaining = command.files; // not yet with the running instance
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (!m_lock.acquire(kLockWaitMs))
            return failed(QStringLiteral("Quorvel: another start of Quorvel has not finished starting; "
                                         "try again. Not opened: %1")
                              .arg(remaining.isEmpty() ? QStringLiteral("a window") : quotedList(remaining)));
        const quint64 turn = m_lock.turn();
        qCDebug(lcApp).noquote() << "negotiating, turn" << turn << "files" << CommandLine{remaining}.handOffText();
        const InstanceRegistry::Endpoints known = m_channel.readRegistry();
        if (useNewInstance || known.command == QLatin1String("-1"))
            return becomeInstance(turn, remaining);

        const bool hello = remaining.isEmpty();
        const QString endpoint = hello ? known.probe : known.command;
        handoff::SendResult result;
        do {
            // One message holds the whole list unless it outgrows the limit.
            const QStringList part = hello ? QStringList() : firstPart(remaining);
            const bool last = part.size() == remaining.size();
            const QString text = hello ? QStringLiteral("Hello") : CommandLine{part}.handOffText();
            // Once the instance has the last files queued, the next start may go on.
            result = m_channel.send(endpoint, text, [this, last] {
                if (last)
                    m_lock.release();
            });
            if (result == handoff::SendResult::Done)
                remaining.remove(0, part.size());
        } while (result == handoff::SendResult::Done && !remaining.isEmpty());
        if (result == handoff::SendResult::NoInstance)
            return becomeInstance(turn, remaining); // still under the lock: nobody else became it meanwhile
        m_lock.release();
        switch (result) {
        case handoff::SendResult::Done:
            return {StartupDecision::Outcome::HandedOver, {}, {}, {}, turn};
        case handoff::SendResult::NoInstance:
        case handoff::SendResult::Dropped:
            qCWarning(lcApp) << "the running instance closed the hand-off; trying again";
            continue;
        case handoff::SendResult::NoAnswer:
            return failed(hello ? QStringLiteral("Quorvel: %1 does not answer; no second window was opened.")
                                      .arg(processOf(endpoint))
                                : QStringLiteral("Quorvel: %1 does not answer; these files were not added: %2")
                                      .arg(processOf(endpoint), quotedList(remaining)));
        case handoff::SendResult::Unconfirmed:
            return failed(QStringLiteral("Quorvel: %1 received these files but has not confirmed adding them: %2")
                              .arg(processOf(endpoint), quotedList(remaining)));
        }
    }
    return failed(QStringLiteral("Quorvel: the running Quorvel kept closing the hand-off; not added: %1")
                      .arg(remaining.isEmpty() ? QStringLiteral("(no files)") : quotedList(remaining)));
}

QStringList StartupNegotiator::firstPart(const QStringList &files)
{
    // A JSON array: brackets, the quoted names and a comma between two.
    qsizetype size = 8 + 2;
    QStringList part;
    for (const QString &file : files) {
        const qsizetype entry = CommandLine{{file}}.handOffText().toUtf8().size() - 2 + (part.isEmpty() ? 0 : 1);
        if (!part.isEmpty() && size + entry > handoff::kMaxMessageBytes + 8)
            break;
        size += entry;
        part << file;
    }
    return part;
}

StartupDecision StartupNegotiator::becomeInstance(quint64 turn, const QStringList &files)
{
    StartupDecision d;
    d.turn = turn;
    d.files = files;
    if (m_channel.listen(&d.endpoints))
        m_channel.writeRegistry({d.endpoints.command, d.endpoints.probe});
    else
        qCWarning(lcApp) << "cannot open the hand-off endpoints; later starts open windows of their own";
    m_lock.release();
    return d;
}

QByteArray QtPlatformToUse(const QByteArray &chosenPlatform, const QByteArray &waylandDisplay,
                           const QByteArray &sessionType)
{
    if (!chosenPlatform.isEmpty())
        return {};
    if (!waylandDisplay.isEmpty() || sessionType == "wayland")
        return QByteArrayLiteral("xcb");
    return {};
}


bool NewInstanceWanted(const QString &programFolder)
{
    QFile file(ConfigFile::locate(programFolder).readPath);
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
