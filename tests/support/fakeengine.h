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
    double scriptedPosition = 0;
    double scriptedTime = 0;
    double scriptedLength = 0;
    bool scriptedVout = true;
    int scriptedStreams = 2;
    QString scriptedFailure; // an engine that cannot start

    // What happened.
    QStringList calls;
    int controlsCreated = 0;
    bool control = false;
    QList<Item> items;
    double rate = 1.0;
    int volume = -1;
    bool muted = false;
    bool fullscreen = false;
    double lastSetPosition = -1;

    void createControl() override
    {
        log("create");
        control = scriptedFailure.isEmpty();
        ++controlsCreated;
        items.clear();
    }
    QString failure() const override { return scriptedFailure; }
    void destroyControl() override
    {
        log("destroy");
        control = false;
        items.clear();
    }
    bool hasControl() const override { return control; }
    void playlistAdd(const QString &mrl, const QString &, const QStringList &options) override
    {
        log("add " + mrl);
        if (control)
            items.append({mrl, options});
    }
    void play() override { log("play"); }
    void togglePause() override { log("togglePause"); }
    void stop() override { log("stop"); }
    int itemCount() const override { return static_cast<int>(items.size()); }
    State state() const override { return control ? scriptedState : Idle; }
    double position() const override { return control ? scriptedPosition : 0; }
    void setPosition(double f) override
    {
        log("setPosition");
        lastSetPosition = f;
    }
    double time() const override { return control ? scriptedTime : 0; }
    double length() const override { return control ? scriptedLength : 0; }
    bool hasVout() const override { return control && scriptedVout; }
    int streamCount() const override { return control ? scriptedStreams : 0; }
    void setRate(double r) override
    {
        log("setRate");
        rate = r;
    }
    void setVolume(int v) override { volume = v; }
    void toggleMute() override
    {
        log("toggleMute");
        muted = !muted;
    }
    void setFullscreen(bool on) override
    {
        log("setFullscreen");
        fullscreen = on;
    }
    void toggleFullscreen() override
    {
        log("toggleFullscreen");
        fullscreen = !fullscreen;
    }

private:
    void log(const QString &call) { calls << call; }
};

} // namespace quorvel::test
