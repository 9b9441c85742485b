#include "settings/optionsmodel.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

// "Config.cfg" as a record: read on open, written on store.
struct FileHost : OptionsHost {
    Settings file, live;
    int associationCalls = 0, applied = 0;
    void LoadConfigurations() override { live = file; }
    void ApplyAssociations(const std::array<std::int16_t, kMediaExtensionCount> &) override { ++associationCalls; }
    void WriteConfigurations() override { file = live; }
    void SetLoadedOptions() override { ++applied; }
};

int control(const QString &caption)
{
    const auto &c = OptionsModel::PlayerControls();
    return int(std::ranges::find(c, caption, &PlayerControl::caption) - c.begin());
}

TEST(OptionsModel, StoresOnlyOnApplyOrOkAndReadsTheFileOnEveryOpen)
{
    constexpr int mkv = 3, mpg = 5; // ticking a row and OK run end to end
    const struct {
        const char *name;
        std::function<void(Settings &)> file;
        std::function<void(OptionsModel &)> act;
        int region;
        std::function<bool(const Settings &stored)> expect;
    } cases[] = {
        {"cancel keeps the file", [](Settings &s) { s.AssocFlags[mkv] = -1; },
         [](OptionsModel &m) {
             m.setRowChecked(mkv, false);
             m.setChecked(control(u"Always OnTop"_qs), true);
         },
         RegionCancel, [](const Settings &s) { return IsSet(s.AssocFlags[mkv]) && !s.AlwaysOnTop; }},
        {"rows of one type go together", nullptr, [](OptionsModel &m) { m.setRowChecked(mpg, true); }, RegionApply,
         [](const Settings &s) { return std::count(s.AssocFlags.begin(), s.AssocFlags.end(), -1) == 3; }},
        {"a playlist position without an option stays", [](Settings &s) { s.PlaylistPosition = 7; }, nullptr,
         RegionApply, [](const Settings &s) { return s.PlaylistPosition == 7; }},
        {"choosing an option stores its value", [](Settings &s) { s.UseNewInstance = 1; },
         [](OptionsModel &m) { m.setChecked(control(u"Use same player for each media file."_qs), true); }, RegionOK,
         [](const Settings &s) { return !IsSet(s.UseNewInstance); }},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        FileHost host;
        if (c.file)
            c.file(host.file);
        const Settings before = host.file;
        OptionsModel m(host.live, host);
        m.showPage(PageAssocciations);
        m.open();
        EXPECT_EQ(m.CurrentPage(), PagePlayer);
        if (c.act)
            c.act(m);
        EXPECT_EQ(m.click(c.region), c.region != RegionApply); // OK and Cancel close the dialog
        EXPECT_TRUE(c.expect(host.file));
        const bool stored = c.region != RegionCancel;
        EXPECT_EQ(host.associationCalls, stored ? 1 : 0);
        EXPECT_TRUE(stored || host.file == before);
    }
}

TEST(OptionsModel, EveryControlRoundTripsAndTheSelectionSetsSplitTheRows)
{
    for (int i = 0; i < int(OptionsModel::PlayerControls().size()); ++i) {
        for (bool on : {true, false}) {
            if (!on && OptionsModel::PlayerControls()[i].kind == PlayerControl::Option)
                continue; // an option is cleared by choosing another
            FileHost host;
            OptionsModel first(host.live, host);
            first.open();
            first.setChecked(i, on);
            first.StoreSettings();
            OptionsModel again(host.live, host);
            again.open();
            EXPECT_EQ(again.isChecked(i), on) << i;
        }
    }
    FileHost host;
    OptionsModel m(host.live, host);
    std::array<bool, kMediaExtensionCount> audio{};
    for (auto start : {&OptionsModel::SelectAll, &OptionsModel::DeselectAll}) {
        (m.*start)();
        m.AudioFiles();
        for (int row = 0; row < kMediaExtensionCount; ++row)
            audio[row] = m.isRowChecked(row);
        m.VideoFiles();
        for (int row = 0; row < kMediaExtensionCount; ++row)
            EXPECT_NE(m.isRowChecked(row), audio[row]) << row;
    }
}

} // namespace
