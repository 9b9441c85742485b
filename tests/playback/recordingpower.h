#pragma once
// Records restart and power-off requests instead of making them.

#include "playback/systempower.h"

#include <QStringList>

namespace quorvel::test {

class RecordingPower final : public playback::PowerControl {
public:
    void reboot() override { requests << QStringLiteral("reboot"); }
    void powerOff() override { requests << QStringLiteral("powerOff"); }
    QStringList requests;
};

} // namespace quorvel::test
