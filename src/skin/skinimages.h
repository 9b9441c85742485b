#pragma once
// The skin's pictures: every file of the "images" folder loaded once, in a
// fixed order, and kept for the run, so that painting never reads a file.
// Loading stops at the first file that cannot be read; that slot and all
// later ones stay empty, and drawing an empty slot draws nothing.

#include "common/geometry.h"

#include <QImage>
#include <QString>
#include <array>
#include <span>
#include <vector>

class QPainter;
class QWidget;

namespace quorvel {

// Button states and the folder each state's pictures live in.
enum SkinButtonState : int { StateNormal = 0, StateOver = 1, StatePressed = 2, StateDisabled = 3 };
inline constexpr int kSkinStateCount = 4;
QString SkinStateFolder(int state); // "Normal", "Over", "Press", "Disabel"

// Single pictures, in the order they are first loaded.
enum class SkinSingle : int {
    TLCorner,
    TRCorner,
    BLCorner,
    BRCorner,
    HLine,
    VLine,
    TabButton,
    Playlist,
    BGDC,
    BGDL,
    BGDR,
    BGBLCorner,
    BGBRCorner,
    BGBCorner,
    BGCL,
    BGCC,
    BGCR,
    BGCd,
    TitleBar,
    WindowIcon,
    Menu,
    Menubar,
    MenuButton,
    AboutLogo,
    Count
};

// Button picture sets: one picture per state.
enum class SkinSet : int {
    Minimize,
    Maxmize,
    Close,
    Play,
    Pause,
    Stop,
    Previous,
    Next,
    Rewind,
    ff,
    PlayList,
    Open,
    dvd,
    SnapShoot,
    FullScreen,
    SoundOn,
    SoundOFF,
    Button,
    Count
};

// One step of the load order: a file below the program folder and the slot it fills.
struct SkinLoadStep {
    QString relativePath; // e.g. "images/Over/Play.jpg"
    bool isSet = false;
    int index = 0; // SkinSingle or SkinSet value
    int state = 0; // for sets
};

// The 96 loads of the 95 files, in the order that decides what survives a
// missing file.
const std::vector<SkinLoadStep> &SkinLoadOrder();

class SkinImages {
public:
    // Loads every slot from `programFolder` (ending in a separator) in load
    // order and returns how many slots were filled. A file that cannot be
    // read ends the loading: it and every later slot stay empty.
    int LoadSkinImages(const QString &programFolder);
    // The seek bar background is loaded on its own; its absence costs
    // nothing else.
    bool LoadProgressBack(const QString &programFolder);

    const QImage &single(SkinSingle s) const { return m_singles[int(s)]; }
    const QImage &button(SkinSet set, int state) const;
    const QImage &progressBack() const { return m_progressBack; }
    int loadedCount() const { return m_loaded; }
    bool isComplete() const { return m_loaded == int(SkinLoadOrder().size()); }

private:
    std::array<QImage, int(SkinSingle::Count)> m_singles;
    std::array<std::array<QImage, kSkinStateCount>, int(SkinSet::Count)> m_sets;
    QImage m_progressBack;
    int m_loaded = 0;
};

// Draws `image` scaled to fill (x, y, width, height) and returns that
// rectangle; an empty image draws nothing and gives an empty rectangle.
HitRect DrawSkinImage(QPainter &painter, const QImage &image, int x, int y, int width, int height);

// The lowest index whose rectangle contains `clientPos`, or -1.
qint16 HitTestButtons(std::span<const HitRect> rects, QPoint clientPos);
// The same for the live pointer position over `window`.
qint16 HitTestButtons(std::span<const HitRect> rects, const QWidget *window);

} // namespace quorvel
