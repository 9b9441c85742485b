#include "app/playlistplacement.h"

#include "app/panesplitter.h"
#include "playlist/fancylist.h"
#include "skin/skinlayout.h"

namespace quorvel {

PlaylistPlacement::PlaylistPlacement(QWidget &window, PaneSplitter &splitter, FancyList &list)
    : m_window(window), m_splitter(splitter), m_list(list)
{
}

void PlaylistPlacement::SetPlaylistPosition(int layoutCode)
{
    m_fillsVideo = false;
    for (int pane = 0; pane < 5; ++pane)
        m_splitter.setLock(pane, false);
    if (const std::optional<PlaylistPanes> l = PlaylistPanesFor(layoutCode, QSizeF(m_splitter.size()))) {
        m_splitter.setPaneSize(0, qRound(l->pane0Width));
        m_splitter.setPaneSize(1, qRound(l->pane1Height));
        m_splitter.setPaneSize(3, qRound(l->pane3Height));
        m_splitter.setPaneSize(4, qRound(l->pane4Width));
        if (!l->keepContents) {
            for (int pane : {0, 1, 3, 4}) {
                if (pane != l->holder && m_splitter.paneContent(pane))
                    m_splitter.setPaneContent(pane, nullptr);
            }
            if (l->holder >= 0) {
                m_splitter.setPaneContent(l->holder, &m_list);
            } else if (l->fillsVideo) {
                const bool shown = !m_list.isHidden();
                // The engine's surface is a window of its own and would cover
                // a list drawn into ours: over the video the list needs its
                // own window too, stacked above the surface.
                m_list.setAttribute(Qt::WA_DontCreateNativeAncestors);
                m_list.setAttribute(Qt::WA_NativeWindow);
                m_list.setParent(&m_window);
                m_list.setGeometry(m_splitter.geometry());
                m_list.setVisible(shown);
                m_fillsVideo = true;
            }
        }
        m_splitter.setLock(0, l->lock0W);
        m_splitter.setLock(4, l->lock4W);
        m_splitter.setLock(1, l->lock1H);
        m_splitter.setLock(3, l->lock3H);
    }
    m_list.raise();
}

void PlaylistPlacement::followResize()
{
    if (m_fillsVideo)
        m_list.setGeometry(m_splitter.geometry());
}

} // namespace quorvel
