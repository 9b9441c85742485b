#pragma once
// What the "Options" dialog holds, without a window: the page shown, the
// state of every control of the "Player" page and of every row of the
// association list, and the rules of Apply, OK and Cancel. The dialog's
// widgets only mirror this state. Nothing reaches the settings record, the
// desktop or "Config.cfg" before Apply or OK; storing goes through
// OptionsHost, so the three change together.

#include "common/paths.h"
#include "settings/settings.h"

#include <QList>
#include <QString>
#include <array>
#include <cstdint>
#include <vector>

namespace quorvel {

// What the dialog asks of the running program.
class OptionsHost {
public:
    virtual ~OptionsHost() = default;
    // Reads "Config.cfg" into the settings record again.
    virtual void LoadConfigurations() = 0;
    // Makes the desktop follow all 24 association flags at once.
    virtual void ApplyAssociations(const std::array<std::int16_t, kMediaExtensionCount> &AssocFlags) = 0;
    virtual void WriteConfigurations() = 0;
    // Applies the window-related settings to the running program.
    virtual void SetLoadedOptions() = 0;
};

enum OptionsPage : int { PagePlayer = 1, PageAssocciations = 2, PageSnapShot = 3 };

// The dialog's clickable regions, by their index in its region table.
enum OptionsRegion : int {
    RegionClose,
    RegionPlayer,
    RegionAssocciations,
    RegionSnapShot,
    RegionApply,
    RegionOK,
    RegionCancel,
    RegionSelectAll,
    RegionDeselectAll,
    RegionAudioFiles,
    RegionVideoFiles,
    RegionCaption, // a press here drags the dialog
    RegionCount
};

// One check box or option button of the "Player" page and the setting it edits.
struct PlayerControl {
    enum Kind { CheckBox, Option };
    Kind kind = CheckBox;
    QString group;   // the frame or heading it sits under
    QString caption; // empty for the playlist positions, which are placed like the playlist
    int value = 0;   // what a chosen option stores
    std::int16_t Settings::*flag = nullptr;
    std::int32_t Settings::*number = nullptr;
    bool flagOption = false; // an option of a flag: any non-zero value chooses the option of value 1

    int read(const Settings &s) const;
    void write(Settings &s, int v) const;
};

class OptionsModel {
public:
    OptionsModel(Settings &settings, OptionsHost &host) : m_settings(settings), m_host(host) {}

    static const std::vector<PlayerControl> &PlayerControls();
    // The row texts of the association list, in the order of the media extensions.
    static const std::array<QString, kMediaExtensionCount> &AssociationRowTexts();
    // The rows whose extension has the MIME type of `row`'s, `row` left out.
    static QList<int> RowsSharingType(int row);

    // The dialog opens: page 1, the settings read from "Config.cfg" again,
    // and every control set from them.
    void open();
    int CurrentPage() const { return m_page; }
    void showPage(int page);

    bool isChecked(int control) const { return m_checked.at(control); }
    // Choosing an option clears the others of its group; an option cannot
    // be cleared by itself.
    void setChecked(int control, bool checked);
    bool isRowChecked(int row) const { return m_rows.at(row); }
    // Rows of one MIME type are one association, so they follow each other.
    void setRowChecked(int row, bool checked);
    void SelectAll();
    void DeselectAll();
    void AudioFiles();
    void VideoFiles();

    // Every control into the settings, the associations and "Config.cfg".
    void StoreSettings();
    // The region's action. True when the dialog is to close.
    bool click(int region);
    // The dialog has closed, however: the window follows the settings again.
    void closed() { m_host.SetLoadedOptions(); }

private:
    void ShowSettings();

    Settings &m_settings;
    OptionsHost &m_host;
    int m_page = PagePlayer;
    // Nothing is chosen before the settings are shown: an option group
    // whose setting matches none of its options stays so, and stores nothing.
    std::vector<bool> m_checked = std::vector<bool>(PlayerControls().size(), false);
    std::array<bool, kMediaExtensionCount> m_rows{};
};

} // namespace quorvel
