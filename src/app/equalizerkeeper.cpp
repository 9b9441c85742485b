#include "equalizerkeeper.h"

#include "app/equalizerdialog.h"
#include "common/notifier.h"
#include "menus/menukeys.h"
#include "menus/menumodel.h"
#include "playback/engine.h"
#include "playback/equalizerpresets.h"

namespace quorvel {

EqualizerKeeper::EqualizerKeeper(Parts parts, QString path)
    : m_parts(parts), m_path(std::move(path)), m_settings(LoadEqualizerSettings(m_path))
{
    m_parts.engine.setEqualizer(m_settings.active());
    connect(&parts.menu, &MenuModel::MenuItemClick, this, [this](int position) {
        if (m_parts.menu.KeyAt(position) == menukey::Equalizer)
            edit();
    });
    connect(&parts.classicMenu, &MenuModel::MenuItemClick, this, [this](int position) {
        // The pop-up tree's entries are the bar's keys with "mnu" before them.
        if (m_parts.classicMenu.KeyAt(position) == u"mnu"_qs + menukey::Equalizer)
            edit();
    });
}

void EqualizerKeeper::edit()
{
    Engine &engine = m_parts.engine;
    EqualizerModel model(EngineEqualizerPresets(), m_settings,
                         [&engine](const std::optional<EqualizerBands> &bands) { engine.setEqualizer(bands); });
    EqualizerDialog dialog(m_parts.images, model, EngineEqualizerFrequencies(), m_parts.window);
    if (dialog.exec() != QDialog::Accepted || model.settings() == m_settings)
        return;
    m_settings = model.settings();
    if (!SaveEqualizerSettings(m_path, m_settings))
        m_parts.notifier.notify(MessageNotifier::Icon::Exclamation,
                                u"Cannot save the equalizer to <"_qs + m_path + u">"_qs);
}

} // namespace quorvel
