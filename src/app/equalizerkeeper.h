#pragma once
// The equalizer for the main window: the setting kept in "quorvel.conf",
// given to the engine at start (the engine applies it to every item), and
// the "Equalizer..." entry of both menu trees, which opens the dialog and
// stores what the user kept.

#include "settings/equalizer.h"

#include <QObject>

class QWidget;

namespace quorvel {

class Engine;
class MenuModel;
class MessageNotifier;
class SkinImages;

class EqualizerKeeper : public QObject {
    Q_OBJECT
public:
    struct Parts {
        QWidget *window;
        MenuModel &menu;
        MenuModel &classicMenu;
        Engine &engine;
        const SkinImages &images;
        MessageNotifier &notifier;
    };
    // Reads the setting of `path` ("quorvel.conf") and gives it to the engine.
    EqualizerKeeper(Parts parts, QString path);

    void edit();

private:
    Parts m_parts;
    QString m_path;
    EqualizerSettings m_settings;
};

} // namespace quorvel
