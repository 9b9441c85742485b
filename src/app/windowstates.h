#pragma once
// The main window's full-screen and maximised states and what each leaves
// behind to return to. Kept here rather than read from the window: without a
// window manager the window's own state is not reliable, and nobody but the
// program resizes the window.

#include <QRect>
#include <optional>

namespace quorvel {

class WindowStates {
public:
    enum class Show { Normal, Maximized, FullScreen };
    // What the window does: show itself this way, then take `geometry`
    // unless it is invalid, and show or hide the playlist as `listVisible`.
    struct Step {
        Show show = Show::Normal;
        QRect geometry;
        bool listVisible = false;
    };

    bool isFullScreen() const { return m_fullScreen; }
    bool isMaximized() const { return m_maximized; }
    // Neither maximised nor full screen: the user sizes the window by hand
    // and its size is the one the settings keep.
    bool isNormal() const { return !m_fullScreen && !m_maximized; }

    // Full screen covers `screen` and hides the playlist; leaving it returns
    // to `current` and the playlist as it was. Nothing when already there.
    std::optional<Step> setFullScreen(bool on, const QRect &current, const QRect &screen, bool listVisible);
    // Maximising takes the `available` part of the screen; again returns to
    // the geometry before. The playlist is left as it is (`listVisible` unused).
    Step toggleMaximize(const QRect &current, const QRect &available);

private:
    bool m_fullScreen = false;
    bool m_maximized = false;
    QRect m_beforeFullScreen;
    bool m_listBeforeFullScreen = false;
    QRect m_beforeMaximize;
};

} // namespace quorvel
