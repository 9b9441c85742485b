#pragma once
// Application-wide tables built once at start-up.

#include "app/commandline.h"
#include "media/mediatables.h"
#include "settings/configfile.h"

#include <QString>

namespace quorvel {

struct AppTables {
    QString AppPath;           // the program folder, ending in a separator
    ConfigLocation ConfigPath; // where "Config.cfg" is read and written
    MediaTables media;         // codec maps and default pictures
    CommandLine command;       // this process's command line
};

} // namespace quorvel
