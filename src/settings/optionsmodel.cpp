#include "settings/optionsmodel.h"

#include "settings/associations.h"

#include <algorithm>

namespace quorvel {

namespace {

bool isAudioRow(int row)
{
    // The rows whose text calls them audio or sound; every other row is video.
    const QString &text = OptionsModel::AssociationRowTexts()[row];
    return text.contains(u"Audio"_qs) || text.contains(u"Sound"_qs);
}

} // namespace

int PlayerControl::read(const Settings &s) const
{
    if (flag)
        return flagOption || kind == CheckBox ? int(IsSet(s.*flag)) : s.*flag;
    return s.*number;
}

void PlayerControl::write(Settings &s, int v) const
{
    if (flag)
        s.*flag = std::int16_t(v);
    else
        s.*number = v;
}

const std::vector<PlayerControl> &OptionsModel::PlayerControls()
{
    using S = Settings;
    const QString open = u"Open Options:"_qs, title = u"Title Bar:"_qs, other = u"Other:"_qs;
    const QString playlist = u"PlayList Options"_qs;
    const auto check = [](const QString &group, const QString &caption, std::int16_t S::*flag) {
        return PlayerControl{PlayerControl::CheckBox, group, caption, 0, flag, nullptr, false};
    };
    const auto option = [](const QString &group, const QString &caption, int value, std::int16_t S::*flag) {
        return PlayerControl{PlayerControl::Option, group, caption, value, flag, nullptr, false};
    };
    const auto position = [&](int value) {
        return PlayerControl{PlayerControl::Option, playlist, {}, value, nullptr, &S::PlaylistPosition, false};
    };
    static const std::vector<PlayerControl> controls = [&] {
        std::vector<PlayerControl> c{
            option(open, u"Use same player for each media file."_qs, 0, &S::UseNewInstance),
            option(open, u"Use new player for each media file played."_qs, 1, &S::UseNewInstance),
            check(open, u"Launch Files in Fullscreen."_qs, &S::LaunchFullScreen),
            option(title, u"Display File Name Only"_qs, 0, &S::TitleMode),
            option(title, u"Display Full Path."_qs, 1, &S::TitleMode),
            option(title, u"Don't include the File Name."_qs, 2, &S::TitleMode),
            check(other, u"Always OnTop"_qs, &S::AlwaysOnTop),
            check(other, u"Show in Tray."_qs, &S::ShowInTray),
            check(other, u"Remember Last Window Size."_qs, &S::RememberLastSize),
            check(other, u"Keep History of recently Opened files."_qs, &S::KeepHistory),
            check(other, u"Disable ScreenSaver while playing."_qs, &S::DisableScreenSaver),
            check(other, u"Remember Last Window Position"_qs, &S::RememberLastPos),
        };
        c[0].flagOption = c[1].flagOption = true;
        for (int value = 0; value <= 4; ++value) // left, right, top, bottom, fill
            c.push_back(position(value));
        return c;
    }();
    return controls;
}

const std::array<QString, kMediaExtensionCount> &OptionsModel::AssociationRowTexts()
{
    static const std::array<QString, kMediaExtensionCount> texts = {
        u"Audio File (*.wav)"_qs,          u"Flash Video File (*.flv)"_qs,      u"Matroska Audio File (*.mka)"_qs,
        u"Matroska Media File (*.mkv)"_qs, u"Mp3 Format Sound(*.mp3)"_qs,       u"MPEG Media File (*.mpg)"_qs,
        u"MPEG Media File (*.mpe)"_qs,     u"MPEG Media File (*.mpeg)"_qs,      u"MPEG4 Audio File (*.aac)"_qs,
        u"MPEG4 Media File (*.mp4)"_qs,    u"MPEG4 Media File (*.m4v)"_qs,      u"MPEG4 Audio File (*.m4a)"_qs,
        u"OGG Media File (*.ogm)"_qs,      u"OGG Vorbis Audio File (*.ogg)"_qs, u"QuickTime File (*.mov)"_qs,
        u"QuickTime File (*.hdmov)"_qs,    u"QuickTime File (*.qt)"_qs,         u"QuickTime File (*.3gp)"_qs,
        u"QuickTime File (*.3gpp)"_qs,     u"QuickTime File (*.3g2)"_qs,        u"Video File (*.avi)"_qs,
        u"Windows Audio File (*.wma)"_qs,  u"Windows Media File (*.wmv)"_qs,    u"Windows Media File (*.asf)"_qs,
    };
    return texts;
}

QList<int> OptionsModel::RowsSharingType(int row)
{
    QList<int> rows;
    for (const QString &e : FileAssociations::ExtensionsSharingType(row)) {
        const int other = int(std::find(MediaExtensions().begin(), MediaExtensions().end(), e)
                              - MediaExtensions().begin());
        if (other != row)
            rows << other;
    }
    return rows;
}

void OptionsModel::open()
{
    m_page = PagePlayer;
    m_host.LoadConfigurations();
    ShowSettings();
}

void OptionsModel::ShowSettings()
{
    const std::vector<PlayerControl> &controls = PlayerControls();
    for (size_t i = 0; i < controls.size(); ++i) {
        const int v = controls[i].read(m_settings);
        if (controls[i].kind == PlayerControl::CheckBox)
            m_checked[i] = v != 0;
        else if (v == controls[i].value)
            setChecked(int(i), true);
    }
    for (int row = 0; row < kMediaExtensionCount; ++row)
        m_rows[row] = IsSet(m_settings.AssocFlags[row]);
}

void OptionsModel::showPage(int page)
{
    if (page >= PagePlayer && page <= PageSnapShot)
        m_page = page;
}

void OptionsModel::setChecked(int control, bool checked)
{
    const std::vector<PlayerControl> &controls = PlayerControls();
    const PlayerControl &c = controls.at(control);
    if (c.kind == PlayerControl::CheckBox) {
        m_checked[control] = checked;
        return;
    }
    if (!checked)
        return;
    for (size_t i = 0; i < controls.size(); ++i) {
        if (controls[i].kind == PlayerControl::Option && controls[i].group == c.group)
            m_checked[i] = int(i) == control;
    }
}

void OptionsModel::setRowChecked(int row, bool checked)
{
    m_rows.at(row) = checked;
    for (int other : RowsSharingType(row))
        m_rows[other] = checked;
}

void OptionsModel::SelectAll()
{
    m_rows.fill(true);
}

void OptionsModel::DeselectAll()
{
    m_rows.fill(false);
}

void OptionsModel::AudioFiles()
{
    for (int row = 0; row < kMediaExtensionCount; ++row)
        m_rows[row] = isAudioRow(row);
}

void OptionsModel::VideoFiles()
{
    for (int row = 0; row < kMediaExtensionCount; ++row)
        m_rows[row] = !isAudioRow(row);
}

void OptionsModel::StoreSettings()
{
    const std::vector<PlayerControl> &controls = PlayerControls();
    for (size_t i = 0; i < controls.size(); ++i) {
        if (controls[i].kind == PlayerControl::CheckBox)
            controls[i].write(m_settings, m_checked[i] ? -1 : 0);
        else if (m_checked[i])
            controls[i].write(m_settings, controls[i].value);
    }
    for (int row = 0; row < kMediaExtensionCount; ++row)
        m_settings.AssocFlags[row] = m_rows[row] ? -1 : 0;
    m_host.ApplyAssociations(m_settings.AssocFlags);
    m_host.WriteConfigurations();
}

bool OptionsModel::click(int region)
{
    switch (region) {
    case RegionClose:
    case RegionCancel:
        return true;
    case RegionPlayer:
    case RegionAssocciations:
    case RegionSnapShot: // the tabs, whose captions lie over them
        showPage(region - RegionPlayer + PagePlayer);
        return false;
    case RegionApply:
        StoreSettings();
        // Apply shows its effect at once; closing applies again.
        m_host.SetLoadedOptions();
        return false;
    case RegionOK:
        StoreSettings();
        return true;
    case RegionSelectAll:
        SelectAll();
        return false;
    case RegionDeselectAll:
        DeselectAll();
        return false;
    case RegionAudioFiles:
        AudioFiles();
        return false;
    case RegionVideoFiles:
        VideoFiles();
        return false;
    default:
        return false;
    }
}

} // namespace quorvel
