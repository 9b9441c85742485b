#pragma once
// The engine on libVLC 3. One libVLC instance serves the whole process; each
// control is a fresh media player drawing into the video surface widget.
// Full screen is the window's business (the surface stays where it is), so
// the engine reports full-screen requests through a callback.

#include "playback/engine.h"

#include <QPointer>
#include <functional>
#include <memory>

struct libvlc_instance_t;
struct libvlc_media_player_t;
#include <QWidget>

namespace quorvel {

// Owns the process's libVLC instance.
class VlcInstance {
public:
    // Without a window the instance shows no video (see there).
    explicit VlcInstance(bool hasWindow);
    ~VlcInstance();
    VlcInstance(const VlcInstance &) = delete;
    VlcInstance &operator=(const VlcInstance &) = delete;

    libvlc_instance_t *get() const { return m_instance; }
    bool isValid() const { return m_instance != nullptr; }
    QString lastError() const { return m_error; }

private:
    libvlc_instance_t *m_instance = nullptr;
    QString m_error;
};

class VlcEngine final : public Engine {
public:
    // The instance is created on the first control that plays something, so
    // a process that only hands its file to a running instance never loads
    // the engine's plugins.
    explicit VlcEngine(QWidget *videoSurface);
    ~VlcEngine() override;

    // The engine library's version text, for the about dialog; loads no plugins.
    static QString version();

    void setFullscreenHandler(std::function<void(bool)> handler) { m_fullscreenHandler = std::move(handler); }
    // The window left full screen by itself (Escape, double-click).
    void noteFullscreenLeft() { m_fullscreen = false; }

    void createControl() override;
    void destroyControl() override;
    bool hasControl() const override { return m_hasControl; }
    QString failure() const override;
    // The address the engine reads the current item from ("file:///..."),
    // empty without an item.
    QString mrl() const;
    void playlistAdd(const QString &mrl, const QString &name, const QStringList &options) override;
    void play() override;
    void togglePause() override;
    void stop() override;
    int itemCount() const override;
    State state() const override;
    double position() const override;
    void setPosition(double fraction) override;
    double time() const override;
    double length() const override;
    bool hasVout() const override;
    int streamCount() const override;
    QList<Track> audioTracks() const override;
    QList<Track> subtitleTracks() const override;
    int audioTrack() const override;
    int subtitleTrack() const override;
    void setAudioTrack(int id) override;
    void setSubtitleTrack(int id) override;
    void addSubtitleFile(const QString &path) override;
    qint64 subtitleDelayMs() const override;
    void setSubtitleDelayMs(qint64 ms) override;
    void setRate(double rate) override;
    void setVolume(int volume) override;
    void toggleMute() override;
    void setFullscreen(bool on) override;
    void toggleFullscreen() override;
    void setEqualizer(const std::optional<EqualizerBands> &bands) override;

private:
    struct PlayerDeleter {
        void operator()(libvlc_media_player_t *p) const;
    };
    libvlc_instance_t *instance();
    QList<Track> tracksOf(int type) const;
    // The surface is an X11 window libVLC can draw into.
    bool hasWindow() const;
    void applyEqualizer();

    QPointer<QWidget> m_surface;
    std::unique_ptr<VlcInstance> m_instance;
    std::unique_ptr<libvlc_media_player_t, PlayerDeleter> m_player;
    bool m_hasControl = false;
    bool m_hasItem = false;
    bool m_fullscreen = false;
    int m_volume = -1;
    bool m_muted = false;
    std::optional<EqualizerBands> m_equalizer; // kept for every item's new player
    std::function<void(bool)> m_fullscreenHandler;
};

} // namespace quorvel
