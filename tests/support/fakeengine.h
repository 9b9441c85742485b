#pragma once
// A scripted engine for logic tests: records every call and answers queries
// with values the test sets.

#include "playback/engine.h"

#include <QStringList>

namespace quorvel::test {

class FakeEngine final : public Engine {
public:
    struct Item {
        QString mrl;
        QStringList options;
    };

    // Scripted answers.
    State scriptedState = Playing;
    double scriptedPosition = 0, scriptedTime = 0, scriptedLength = 0;
    bool scriptedVout = true;
    int scriptedStreams = 2;
    QString scriptedFailure; // an engine that cannot start
    QList<Track> scriptedAudio, scriptedSubtitles;

    // What happened.
    QStringList calls;
    int controlsCreated = 0;
    bool control = false, muted = false, fullscreen = false;
    QList<Item> items;
    double rate = 1.0, lastSetPosition = -1;
    int volume = -1;
    int audio = -1, subtitle = -1;
    qint64 subtitleDelay = 0;
    QStringList subtitleFiles;

    void createControl() override
    {
        calls << u"create"_qs;
        control = scriptedFailure.isEmpty();
        ++controlsCreated;
        items.clear();
    }
    QString failure() const override { return scriptedFailure; }
    void destroyControl() override
    {
        calls << u"destroy"_qs;
        control = false;
        items.clear();
    }
    bool hasControl() const override { return control; }
    void playlistAdd(const QString &mrl, const QString &, const QStringList &options) override
    {
        calls << u"add "_qs + mrl;
        if (control)
            items.append({mrl, options});
    }
    void play() override { calls << u"play"_qs; }
    void togglePause() override { calls << u"togglePause"_qs; }
    void stop() override { calls << u"stop"_qs; }
    int itemCount() const override { return static_cast<int>(items.size()); }
    State state() const override { return control ? scriptedState : Idle; }
    double position() const override { return control ? scriptedPosition : 0; }
    void setPosition(double f) override
    {
        calls << u"setPosition"_qs;
        lastSetPosition = f;
    }
    double time() const override { return control ? scriptedTime : 0; }
    double length() const override { return control ? scriptedLength : 0; }
    bool hasVout() const override { return control && scriptedVout; }
    int streamCount() const override { return control ? scriptedStreams : 0; }
    QList<Track> audioTracks() const override { return control ? scriptedAudio : QList<Track>(); }
    QList<Track> subtitleTracks() const override { return control ? scriptedSubtitles : QList<Track>(); }
    int audioTrack() const override { return control ? audio : -1; }
    int subtitleTrack() const override { return control ? subtitle : -1; }
    void setAudioTrack(int id) override { audio = id; }
    void setSubtitleTrack(int id) override { subtitle = id; }
    void addSubtitleFile(const QString &path) override { subtitleFiles << path; }
    qint64 subtitleDelayMs() const override { return subtitleDelay; }
    void setSubtitleDelayMs(qint64 ms) override { subtitleDelay = ms; }
    void setRate(double r) override
    {
        calls << u"setRate"_qs;
        rate = r;
    }
    void setVolume(int v) override { volume = v; }
    void toggleMute() override
    {
        calls << u"toggleMute"_qs;
        muted = !muted;
    }
    void setFullscreen(bool on) override
    {
        calls << u"setFullscreen"_qs;
        fullscreen = on;
    }
    void toggleFullscreen() override
    {
        calls << u"toggleFullscreen"_qs;
        fullscreen = !fullscreen;
    }
    std::optional<EqualizerBands> equalizer;
    void setEqualizer(const std::optional<EqualizerBands> &bands) override
    {
        calls << (bands ? u"equalizer on"_qs : u"equalizer off"_qs);
        equalizer = bands;
    }
};

} // namespace quorvel::test
