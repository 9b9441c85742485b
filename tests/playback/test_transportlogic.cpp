#include "support/fakeengine.h"
#include "playback/transportlogic.h"
#include "qstringprint.h"
#include "recordingpower.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace quorvel::playback;

namespace {

// A window stand-in: a playlist of paths, an item start that uses the
// scripted engine like the real one, and a record of what was shown.
class TestHost final : public TransportHost {
public:
    explicit TestHost(test::FakeEngine &engine, PlaybackState &state) : m_engine(engine), m_state(state) {}
    Transport *transport = nullptr;

    QStringList paths;
    int selected = -1;
    QStringList started;       // paths started through PlayItem
    QList<MediaAction> actions; // enableMediaControl calls
    QList<bool> opens;          // openFiles(append) calls
    QMap<QString, bool> checked;
    QMap<QString, bool> enabled;
    QString timeText;
    QString rateText;
    bool rateVisible = false;
    int progress = -1;
    bool rewindRunning = false;
    int exits = 0;
    int dvdChecks = 0;

    int playlistCount() const override { return static_cast<int>(paths.size()); }
    int selectedItem() const override { return selected; }
    void selectEntry(int index) override { selected = index; }
    void PlayItem(int index, bool) override
    {
        if (index < 0 || index >= paths.size())
            return;
        m_engine.destroyControl();
        m_engine.createControl();
        m_state.CurrentFile = paths.at(index);
        m_engine.playlistAdd(m_state.CurrentFile, {}, {});
        m_engine.play();
        started << m_state.CurrentFile;
        transport->setMediaControl(MediaAction::Playing);
        transport->itemStarted();
    }
    void enableMediaControl(MediaAction action) override { actions << action; }
    void openFiles(bool append) override { opens << append; }
    void afterStopPause(std::function<void()> then) override { then(); }
    void setTimeText(const QString &text) override { timeText = text; }
    void setRateLabel(const QString &text, bool visible) override
    {
        rateText = text;
        rateVisible = visible;
    }
    void setProgressPercent(int percent) override { progress = percent; }
    void setMenuEnabled(const QString &key, bool on) override { enabled[key] = on; }
    void setMenuChecked(const QString &key, bool on) override { checked[key] = on; }
    void setRewindTimer(bool running) override { rewindRunning = running; }
    void enableDvdCheck() override { ++dvdChecks; }
    void exitProgram() override { ++exits; }

private:
    test::FakeEngine &m_engine;
    PlaybackState &m_state;
};

class TransportLogicTest : public ::testing::Test {
protected:
    TransportLogicTest() : host(engine, state), transport(engine, state, host, power, [this] { return gen.generateDouble(); })
    {
        host.transport = &transport;
        state.apply(MediaAction::Stopped);
    }

    void addEntries(int n)
    {
        for (int i = 0; i < n; ++i)
            host.paths << QStringLiteral("/media/item%1.mkv").arg(host.paths.size());
        transport.order().rebuild(host.playlistCount(), host.selected);
    }
    // Plays entry `index` the way a double-click does.
    void start(int index)
    {
        host.selected = index;
        host.PlayItem(index, false);
        transport.order().setCursor(index);
    }
    // The engine reports the item at its end; two ticks: the end test, then the rules.
    void finishItem()
    {
        engine.scriptedLength = 10000;
        engine.scriptedTime = 10000;
        transport.tmrMovie_Timer();
        EXPECT_TRUE(state.isEnded());
        engine.scriptedTime = 0;
        transport.tmrMovie_Timer();
    }

    QRandomGenerator gen{11};
    test::FakeEngine engine;
    PlaybackState state;
    test::RecordingPower power;
    TestHost host;
    Transport transport;
};

} // namespace

TEST_F(TransportLogicTest, ContinuousPlaysOnThenStopsAndRunsTheAfterPlayAction)
{
    addEntries(3);
    transport.PBCont();
    transport.RepeatNone();
    transport.DoAfter(AfterShutdown);
    start(1);
    finishItem();
    EXPECT_EQ(host.started.last(), "/media/item2.mkv");
    EXPECT_EQ(host.selected, 2);
    EXPECT_TRUE(power.requests.isEmpty());
    finishItem();
    EXPECT_EQ(host.started.size(), 2);
    EXPECT_EQ(power.requests, QStringList{"powerOff"});
    EXPECT_TRUE(state.IsStopped);
    EXPECT_EQ(host.actions.last(), MediaAction::Stopped);
    EXPECT_EQ(host.timeText, "00:00:00 / 00:00:00");
    EXPECT_EQ(host.progress, 0);
    EXPECT_EQ(engine.calls.filter("stop").size(), 1);
    EXPECT_TRUE(host.checked["ShutdownTheComputer"]);
    EXPECT_FALSE(host.checked["Donothing"]);
}

TEST_F(TransportLogicTest, RepeatAllGoesRoundAndSingleRepeatReplaysOnTheSameControl)
{
    addEntries(3);
    transport.PBCont();
    transport.RepeatAll();
    start(2);
    finishItem();
    EXPECT_EQ(host.started.last(), "/media/item0.mkv");

    transport.RepeatSingle();
    EXPECT_TRUE(host.checked["RMSingleRepeat"]);
    EXPECT_FALSE(host.checked["RMRepeatAll"]);
    const int controls = engine.controlsCreated;
    const int starts = static_cast<int>(host.started.size());
    finishItem();
    // Stop, then play on the same control: no new start.
    EXPECT_EQ(engine.controlsCreated, controls);
    EXPECT_EQ(host.started.size(), starts);
    EXPECT_EQ(engine.calls.mid(engine.calls.size() - 2), (QStringList{"stop", "play"}));
    EXPECT_TRUE(state.MediaLoaded);
}

TEST_F(TransportLogicTest, MonitorShowsLoadingProgressAndTimeWhilePlaying)
{
    addEntries(1);
    start(0);
    engine.scriptedState = Engine::Opening;
    transport.tmrMovie_Timer();
    EXPECT_TRUE(host.rateVisible);
    EXPECT_EQ(host.rateText, "Loading...");
    EXPECT_TRUE(state.MediaLoaded); // no length yet: not an end
    engine.scriptedState = Engine::Playing;
    engine.scriptedPosition = 0.5;
    engine.scriptedTime = 30700;
    engine.scriptedLength = 61400;
    transport.tmrMovie_Timer();
    EXPECT_FALSE(host.rateVisible);
    EXPECT_EQ(host.progress, 50);
    EXPECT_EQ(host.timeText, "00:00:31 / 00:01:01");
    // Paused: the display keeps its last text, the drive poll stays off.
    transport.CMDPauseClick();
    EXPECT_EQ(host.actions.last(), MediaAction::Paused);
    engine.scriptedTime = 40000;
    transport.tmrMovie_Timer();
    EXPECT_EQ(host.timeText, "00:00:31 / 00:01:01");
    EXPECT_EQ(host.dvdChecks, 0);
    transport.CMDPauseClick();
    EXPECT_TRUE(state.MediaLoaded);
    EXPECT_EQ(engine.calls.filter("togglePause").size(), 2);
}

TEST_F(TransportLogicTest, PlayNextPreviousAndStopFollowTheirTables)
{
    transport.CMDPlayClick();
    EXPECT_EQ(host.opens, QList<bool>{false}); // empty list: the file dialog
    transport.cmdStopClick();
    EXPECT_TRUE(engine.calls.filter("stop").isEmpty()); // nothing in the engine

    addEntries(3);
    transport.PBNormal();
    start(2);
    transport.cmdNextClick();
    EXPECT_EQ(host.started.last(), "/media/item0.mkv");
    transport.cmdPreviousClick();
    EXPECT_EQ(host.started.last(), "/media/item2.mkv");
    transport.CMDPauseClick();
    transport.cmdNextClick(); // paused: nothing
    EXPECT_EQ(host.started.size(), 3);
    // Play from paused resumes the same engine item.
    transport.CMDPlayClick();
    EXPECT_EQ(engine.calls.last(), "play");
    EXPECT_EQ(host.started.size(), 3);
    // Play while playing starts the selection anew.
    host.selected = 1;
    transport.CMDPlayClick();
    EXPECT_EQ(host.started.last(), "/media/item1.mkv");
    EXPECT_EQ(transport.order().cursor(), 1);
    transport.cmdStopClick();
    EXPECT_TRUE(state.IsStopped && state.IsHalted && !state.MediaLoaded);
    EXPECT_FALSE(transport.speed().isEnabled("IncreaseSpeed"));
}

TEST_F(TransportLogicTest, SpeedFastForwardRewindMuteAndFullScreen)
{
    addEntries(1);
    start(0);
    transport.IncreaseRate();
    transport.IncreaseRate();
    EXPECT_EQ(engine.rate, 4);
    EXPECT_EQ(state.Rate, 4);
    EXPECT_EQ(host.rateText, "Playing rate:4x");
    transport.cmdffMouseDown();
    EXPECT_EQ(engine.rate, 10);
    transport.cmdffMouseUp();
    EXPECT_EQ(engine.rate, 1);
    EXPECT_EQ(state.Rate, 4);
    transport.IncreaseRate();
    transport.IncreaseRate();
    EXPECT_FALSE(host.enabled["IncreaseSpeed"]);
    transport.ResetRate();
    EXPECT_TRUE(host.enabled["IncreaseSpeed"]);
    EXPECT_EQ(engine.rate, 1);
    // A new start sets the factor back to 1.
    transport.DecreaseRate();
    start(0);
    EXPECT_EQ(state.Rate, 1);

    engine.scriptedPosition = 0.3;
    transport.StartRewind();
    EXPECT_TRUE(host.rewindRunning);
    transport.tmrRewind_Timer();
    EXPECT_DOUBLE_EQ(engine.lastSetPosition, 0.299);
    transport.StopRewind();
    EXPECT_FALSE(host.rewindRunning);

    transport.cmdMuteClick();
    EXPECT_TRUE(state.IsMuted);
    EXPECT_TRUE(engine.muted);
    transport.cmdFulScreenClick();
    EXPECT_TRUE(engine.fullscreen);
}
