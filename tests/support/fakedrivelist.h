#pragma once
// Optical drives as a test describes them; the description may change
// between enumerations (a disc inserted, a drive unplugged).

#include "playback/dvddrives.h"

namespace quorvel::test {

class FakeDriveList final : public DriveList {
public:
    QVector<OpticalDrive> described;
    QVector<OpticalDrive> drives() const override { return described; }
};

} // namespace quorvel::test
