#include "skinimages.h"

#include "common/logging.h"

#include <QCursor>
#include <QImageReader>
#include <QPainter>
#include <QWidget>

namespace quorvel {

QString SkinStateFolder(int state)
{
    static const char *const folders[kSkinStateCount] = {"Normal", "Over", "Press", "Disabel"};
    return state >= 0 && state < kSkinStateCount ? QString::fromLatin1(folders[state]) : QString();
}

namespace {

std::vector<SkinLoadStep> BuildLoadOrder()
{
    std::vector<SkinLoadStep> order;
    auto single = [&](const char *file, SkinSingle slot) {
        order.push_back({QStringLiteral("images/") + QLatin1String(file), false, int(slot), 0});
    };
    auto set = [&](SkinSet s, const char *file, int state) {
        order.push_back(
            {QStringLiteral("images/%1/%2").arg(SkinStateFolder(state), QLatin1String(file)), true, int(s), state});
    };
    single("TLCorner.png", SkinSingle::TLCorner);
    single("TRCorner.png", SkinSingle::TRCorner);
    single("BLCorner.png", SkinSingle::BLCorner);
    single("BRCorner.png", SkinSingle::BRCorner);
    single("HLine.png", SkinSingle::HLine);
    single("VLine.png", SkinSingle::VLine);
    single("TabButton.png", SkinSingle::TabButton);
    single("playlist.png", SkinSingle::Playlist);
    single("BGDC.jpg", SkinSingle::BGDC);
    single("BGDL.jpg", SkinSingle::BGDL);
    single("BGDR.jpg", SkinSingle::BGDR);
    single("BGBLCorner.jpg", SkinSingle::BGBLCorner);
    single("BGBRCorner.jpg", SkinSingle::BGBRCorner);
    single("BGBCorner.jpg", SkinSingle::BGBCorner);
    single("BGCL.jpg", SkinSingle::BGCL);
    single("BGCC.jpg", SkinSingle::BGCC);
    single("BGCR.jpg", SkinSingle::BGCR);
    single("BGCd.jpg", SkinSingle::BGCd);
    single("TitleBar.jpg", SkinSingle::TitleBar);
    auto windowButtons = [&](int state) {
        set(SkinSet::Minimize, "Minimize.jpg", state);
        set(SkinSet::Maxmize, "Maxmize.jpg", state);
        set(SkinSet::Close, "Close.jpg", state);
    };
    windowButtons(StateNormal);
    single("About.png", SkinSingle::WindowIcon);
    for (int st = StateOver; st < kSkinStateCount; ++st)
        windowButtons(st);
    single("menu.jpg", SkinSingle::Menu);
    single("Menubar.jpg", SkinSingle::Menubar);
    single("MenuButton.jpg", SkinSingle::MenuButton);
    for (int st = 0; st < kSkinStateCount; ++st) {
        set(SkinSet::Play, "Play.jpg", st);
        set(SkinSet::Pause, "Pause.jpg", st);
        set(SkinSet::Stop, "Stop.jpg", st);
    }
    for (int st = 0; st < kSkinStateCount; ++st) {
        set(SkinSet::Previous, "Previous.jpg", st);
        set(SkinSet::Next, "Next.jpg", st);
        set(SkinSet::Rewind, "Rewind.jpg", st);
        set(SkinSet::ff, "ff.jpg", st);
    }
    for (int st = 0; st < kSkinStateCount; ++st) {
        set(SkinSet::PlayList, "PlayList.jpg", st);
        set(SkinSet::Open, "Open.jpg", st);
        set(SkinSet::dvd, "dvd.jpg", st);
    }
    for (int st = 0; st < kSkinStateCount; ++st) {
        set(SkinSet::SnapShoot, "SnapShoot.jpg", st);
        set(SkinSet::FullScreen, "FullScreen.jpg", st);
    }
    for (int st = 0; st < kSkinStateCount; ++st)
        set(SkinSet::SoundOn, "SoundOn.jpg", st);
    for (int st = 0; st < kSkinStateCount; ++st)
        set(SkinSet::SoundOFF, "SoundOFF.jpg", st);
    for (int st = 0; st < kSkinStateCount; ++st)
        set(SkinSet::Button, "Button.png", st);
    single("About.png", SkinSingle::AboutLogo);
    return order;
}

// Reads a picture in the format that draws fastest, or a null image.
QImage ReadPicture(const QString &path, QString *error)
{
    QImageReader reader(path);
    QImage img = reader.read();
    if (img.isNull()) {
        *error = reader.errorString();
        return {};
    }
    return img.convertToFormat(img.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

} // namespace

const std::vector<SkinLoadStep> &SkinLoadOrder()
{
    static const std::vector<SkinLoadStep> order = BuildLoadOrder();
    return order;
}

int SkinImages::LoadSkinImages(const QString &programFolder)
{
    m_loaded = 0;
    for (const SkinLoadStep &step : SkinLoadOrder()) {
        QString error;
        QImage img = ReadPicture(programFolder + step.relativePath, &error);
        if (img.isNull()) {
            qCWarning(lcSkin) << "skin picture" << step.relativePath << "cannot be loaded:" << error
                              << "- it and the pictures after it stay empty";
            break;
        }
        if (step.isSet)
            m_sets[step.index][step.state] = std::move(img);
        else
            m_singles[step.index] = std::move(img);
        ++m_loaded;
    }
    return m_loaded;
}

bool SkinImages::LoadProgressBack(const QString &programFolder)
{
    QString error;
    QImage img = ReadPicture(programFolder + QStringLiteral("images/ProgressBarBack.jpg"), &error);
    if (img.isNull()) {
        qCWarning(lcSkin) << "seek bar background cannot be loaded:" << error;
        return false;
    }
    m_progressBack = std::move(img);
    return true;
}

const QImage &SkinImages::button(SkinSet set, int state) const
{
    static const QImage none;
    if (int(set) < 0 || int(set) >= int(SkinSet::Count) || state < 0 || state >= kSkinStateCount)
        return none;
    return m_sets[int(set)][state];
}

HitRect DrawSkinImage(QPainter &painter, const QImage &image, int x, int y, int width, int height)
{
    if (image.isNull() || !painter.isActive())
        return {};
    painter.drawImage(QRect(x, y, width, height), image);
    return {x, y, x + width, y + height};
}

qint16 HitTestButtons(std::span<const HitRect> rects, QPoint clientPos)
{
    for (size_t i = 0; i < rects.size(); ++i) {
        if (rects[i].contains(clientPos))
            return qint16(i);
    }
    return -1;
}

qint16 HitTestButtons(std::span<const HitRect> rects, const QWidget *window)
{
    if (!window)
        return -1;
    return HitTestButtons(rects, window->mapFromGlobal(QCursor::pos()));
}

} // namespace quorvel
