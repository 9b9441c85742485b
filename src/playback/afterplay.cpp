#include "playback/afterplay.h"

#include "common/logging.h"
#include "playback/systempower.h"

namespace quorvel::playback {

const QStringList &AfterPlayKeys()
{
    static const QStringList keys{QStringLiteral("Donothing"), QStringLiteral("ExitQuorvel"),
                                  QStringLiteral("RestartTheComputer"), QStringLiteral("ShutdownTheComputer")};
    return keys;
}

AfterPlay::AfterPlay(PowerControl &power, std::function<void()> exitProgram)
    : m_power(power), m_exit(std::move(exitProgram))
{
}

void AfterPlay::DoAfter(int toDo)
{
    if (toDo >= 0 && toDo < AfterPlayKeys().size())
        m_checkedKey = AfterPlayKeys().at(toDo);
    m_action = toDo;
}

void AfterPlay::DoAfterFinishPlay()
{
    qCInfo(lcPlayback) << "playback finished; after-play action" << m_action;
    switch (m_action) {
    case AfterExit:
        if (m_exit)
            m_exit();
        break;
    case AfterRestart:
        m_power.reboot();
        break;
    case AfterShutdown:
        m_power.powerOff();
        break;
    default:
        break;
    }
}

} // namespace quorvel::playback
