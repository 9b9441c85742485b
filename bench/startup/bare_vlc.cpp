// The baseline: the least a libVLC program must do to show a window of the
// same size and play a file in it. Prints the same traces as the player.
#include "common/logging.h"

#include <QApplication>
#include <QWidget>
#include <cstdio>
#include <vlc/vlc.h>

namespace {

class Window : public QWidget {
public:
    void paintEvent(QPaintEvent *) override
    {
        if (!m_painted) {
            m_painted = true;
            std::printf("first paint monotonic= %lld\n", static_cast<long long>(MonotonicMs()));
            std::fflush(stdout);
        }
    }

private:
    bool m_painted = false;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    if (argc < 2)
        return 2;
    Window window;
    window.resize(388, 515);
    auto *surface = new QWidget(&window);
    surface->setAttribute(Qt::WA_NativeWindow);
    surface->setGeometry(0, 0, 388, 300);

    const char *const args[] = {"--no-video-title-show"};
    libvlc_instance_t *vlc = libvlc_new(1, args);
    libvlc_media_t *media = libvlc_media_new_path(vlc, argv[1]);
    libvlc_media_player_t *player = libvlc_media_player_new_from_media(media);
    libvlc_media_release(media);
    libvlc_event_attach(
        libvlc_media_player_event_manager(player), libvlc_MediaPlayerPlaying,
        [](const libvlc_event_t *, void *) {
            std::printf("engine playing monotonic= %lld\n", static_cast<long long>(MonotonicMs()));
            std::fflush(stdout);
        },
        nullptr);
    libvlc_media_player_set_xwindow(player, static_cast<uint32_t>(surface->winId()));
    std::printf("started monotonic= %lld\n", static_cast<long long>(MonotonicMs()));
    std::fflush(stdout);
    libvlc_media_player_play(player);
    window.show();
    const int rc = app.exec();
    libvlc_media_player_release(player);
    libvlc_release(vlc);
    return rc;
}
