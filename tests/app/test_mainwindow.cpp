// The main window without a display: start-up without a file, drops on the
// list and on the video (files and folders), and the settings written on close.
#include "app/mainwindow.h"
#include "app/mediainfobox.h"
#include "app/videoframe.h"
#include "menus/menukeys.h"
#include "playback/player.h"
#include "playlist/playlist.h"
#include "support/files.h"
#include "support/mediagen.h"

#include "playlist/fancylist.h"
#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QHelpEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QToolTip>
#include <QUrl>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

// As a drag from a file manager: the drop follows only when the target takes the drag.
bool drop(QWidget *target, const QStringList &paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &p : paths)
        urls << QUrl::fromLocalFile(p);
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent dropEvent(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &dropEvent);
    return true;
}

} // namespace

TEST(MainWindow, StartsEmptyTakesDropsAndWritesSettingsOnClose)
{
    QTemporaryDir home;
    qputenv("XDG_RUNTIME_DIR", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const QString a = test::makeClip(u"window-a.mp4"_qs, 2);
    const QString b = test::makeClip(u"window-b.mkv"_qs, 2);
    ASSERT_FALSE(a.isEmpty() || b.isEmpty());
    QFile::remove(ProgramFolder() + u"Config.cfg"_qs);

    MainWindow window;
    window.FormLoad();
    EXPECT_FALSE(window.isLoading());
    EXPECT_TRUE(QFile::exists(window.tables().ConfigPath.writePath)); // defaults written at start
    EXPECT_FALSE(window.menu().isEnabled(u"Stop"_qs) || window.menu().isEnabled(u"Remove"_qs));
    // The transport's modes show as the menu's marks.
    MenuModel &menu = window.menu();
    menu.choose(menu.IndexOfKey(menukey::PMShuffle));
    EXPECT_TRUE(menu.isChecked(menukey::PMShuffle) && !menu.isChecked(menukey::PMContinuous));

    auto *list = window.findChild<FancyList *>(u"FancyList1"_qs);
    auto *video = window.findChild<VideoFrame *>();
    ASSERT_TRUE(list && video);

    // On the list: media files are added, others skipped, nothing plays.
    EXPECT_TRUE(drop(list, {a, home.filePath(u"notes.txt"_qs)}));
    window.playlist().waitForAdds();
    EXPECT_EQ(window.playlist().fullPaths(), QStringList{a});
    EXPECT_FALSE(window.playback().MediaLoaded);

    // On the video: a folder gives its media files, and the first plays; a
    // file that is no media is refused.
    const QString folder = home.filePath(u"dropped"_qs), inFolder = folder + u"/window-b.mkv"_qs;
    ASSERT_TRUE(QDir().mkpath(folder) && QFile::copy(b, inFolder));
    EXPECT_FALSE(drop(video, {home.filePath(u"notes.txt"_qs)}));
    EXPECT_TRUE(drop(video, {folder}));
    window.playlist().waitForAdds();
    EXPECT_EQ(window.playlist().fullPaths(), (QStringList{a, inFolder}));
    EXPECT_EQ(window.playback().CurrentFile, inFolder);
    EXPECT_TRUE(window.playback().MediaLoaded);
    EXPECT_EQ(window.windowTitle(), u"Quorvel - ("_qs + inFolder + u')');
    EXPECT_TRUE(window.menu().isEnabled(u"Stop"_qs) && window.menu().isEnabled(u"Remove"_qs));

    // The caption's tooltip holds it whole.
    QHelpEvent help(QEvent::ToolTip, QPoint(60, 14), window.mapToGlobal(QPoint(60, 14)));
    QCoreApplication::sendEvent(&window, &help);
    EXPECT_EQ(QToolTip::text(), window.windowTitle());
    // Settings applied while the window runs move the list and keep it shown.
    for (int position : {0, 1}) {
        window.settings().PlaylistPosition = position;
        window.SetLoadedOptions();
    }
    EXPECT_FALSE(list->isHidden());
    // With the list emptied the caption names no file.
    window.menu().choose(window.menu().IndexOfKey(u"RemoveAll"_qs));
    EXPECT_EQ(window.windowTitle(), u"Quorvel"_qs);

    window.settings().PlayMode = 0;
    window.close();
    EXPECT_EQ(test::readFile(window.tables().ConfigPath.writePath).split('\n').value(2), " 0 \r");
}

TEST(MediaInfoBox, ReportLinesBecomeHeadingsAndNameValuePairs)
{
    const QVector<ReportRow> rows = ReportRows(u"Stream information of /m/Clip : a.mp4\r\nDuration  : "
                                               u"5\r\nStream 0 (Video)\r\nWidth       : 320 pixels\r\n"
                                               u"BitRate     : 120 Kbit\\s\r\n"_qs);
    QStringList got;
    for (const ReportRow &r : rows)
        got << (r.isHeading() ? u"# "_qs : r.label + u" = "_qs) + r.value;
    EXPECT_EQ(got, (QStringList{u"# Stream information of /m/Clip : a.mp4"_qs, u"Duration = 5"_qs,
                                u"# Stream 0 (Video)"_qs, u"Width = 320 pixels"_qs, u"BitRate = 120 Kbit\\s"_qs}));
}
