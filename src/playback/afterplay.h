#pragma once
// What happens when playback runs out: nothing, exit the program, restart or
// power off the computer. The menu keyed commands call `DoAfter(0..3)`; the
// classic pop-up menu writes the action with `setAfterPlayAction` (it keeps
// its own marks); the monitor calls `DoAfterFinishPlay()` right after the
// stop command when the list is done. The window shows `checkedKey()`.

#include <QString>
#include <QStringList>
#include <functional>

namespace quorvel::playback {

class PowerControl;

// The values of `AfterPlayAction`.
enum AfterPlayValue { AfterDoNothing = 0, AfterExit = 1, AfterRestart = 2, AfterShutdown = 3 };

// "Donothing", "ExitQuorvel", "RestartTheComputer", "ShutdownTheComputer".
const QStringList &AfterPlayKeys();

class AfterPlay {
public:
    // `exitProgram` unloads the main window (which saves the settings and
    // ends the process); `power` asks the system to restart or power off.
    AfterPlay(PowerControl &power, std::function<void()> exitProgram);

    // Choose: for 0..3 the matching key becomes the only checked one; any
    // other value changes no mark (and later does nothing). Starts at 0 with
    // "Donothing" checked.
    void DoAfter(int toDo);
    // The classic menu's way: sets the action, leaves the keyed marks alone.
    void setAfterPlayAction(int toDo) { m_action = toDo; }

    int AfterPlayAction() const { return m_action; }
    QString checkedKey() const { return m_checkedKey; }

    // Carry the action out once. The action stays chosen afterwards.
    void DoAfterFinishPlay();

private:
    PowerControl &m_power;
    std::function<void()> m_exit;
    int m_action = AfterDoNothing;
    QString m_checkedKey = AfterPlayKeys().at(AfterDoNothing);
};

} // namespace quorvel::playback
