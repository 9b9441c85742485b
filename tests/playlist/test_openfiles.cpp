#include "playlist/filechooser.h"
#include "playlist/openfiles.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace quorvel::playlist;

inline void PrintTo(const QString &text, std::ostream *os)
{
    *os << '"' << text.toStdString() << '"';
}

namespace {

// Answers with a prepared choice and remembers how it was asked.
class ScriptedChooser final : public FileChooser {
public:
    QList<QStringList> answers;
    QStringList titles;
    QStringList folders;
    QList<QStringList> filters;
    QStringList chooseFiles(const QString &title, const QStringList &nameFilters, const QString &folder) override
    {
        titles << title;
        folders << folder;
        filters << nameFilters;
        return answers.isEmpty() ? QStringList{} : answers.takeFirst();
    }
};

struct Add {
    QString title;
    QString path;
    bool fullScreen;
    bool forcePlay;
    bool operator==(const Add &) const = default;
};

} // namespace

// The first entry offers every extension of the others; the dialog's filters
// are built from the same entries.
TEST(FileOpener, FilterEntriesAndDialogFilters)
{
    const QList<FileFilterEntry> entries = OpenFileFilterEntries();
    ASSERT_FALSE(entries.isEmpty());
    QStringList rest;
    for (const FileFilterEntry &e : entries.mid(1))
        rest << e.patterns;
    EXPECT_EQ(entries.first().patterns, rest);
    const QStringList filters = OpenFileNameFilters();
    ASSERT_EQ(filters.size(), entries.size());
    EXPECT_EQ(filters.at(4), "MKV (*.mkv)");
    EXPECT_TRUE(filters.first().startsWith("All Supported Formats (*.wav *.flv "));
}

TEST(FileOpener, FirstFilePlaysUnlessAppendingAndTheFolderIsRemembered)
{
    ScriptedChooser chooser;
    QList<Add> adds;
    FileOpener opener(chooser, [&](const QString &t, const QString &p, bool fs, bool play) {
        adds.append({t, p, fs, play});
    });
    EXPECT_TRUE(opener.LastOpenFolder().isEmpty());

    // One file, not appending: added with its name as title, and played.
    chooser.answers << QStringList{"/Media/a.avi"};
    EXPECT_EQ(opener.OpenFiles(false), 1);
    EXPECT_EQ(adds, (QList<Add>{{"a.avi", "/Media/a.avi", false, true}}));
    EXPECT_EQ(opener.LastOpenFolder(), "/Media");
    EXPECT_EQ(chooser.folders, QStringList{""}); // the first chooser opens in the default folder
    EXPECT_EQ(chooser.titles, QStringList{"Open Video File"});
    EXPECT_EQ(chooser.filters.first(), OpenFileNameFilters());

    // Three files, appending: added in the chooser's order, none played.
    adds.clear();
    chooser.answers << QStringList{"/Other/c.mkv", "/Other/a.mp3", "/Other/b.wav"};
    EXPECT_EQ(opener.OpenFiles(true), 3);
    EXPECT_EQ(adds, (QList<Add>{{"c.mkv", "/Other/c.mkv", false, false},
                                {"a.mp3", "/Other/a.mp3", false, false},
                                {"b.wav", "/Other/b.wav", false, false}}));
    EXPECT_EQ(chooser.folders.last(), "/Media");
    EXPECT_EQ(opener.LastOpenFolder(), "/Other");

    // Several, not appending: only the first plays.
    adds.clear();
    chooser.answers << QStringList{"/x.avi", "/y.avi"};
    opener.OpenFiles(false);
    EXPECT_EQ(adds, (QList<Add>{{"x.avi", "/x.avi", false, true}, {"y.avi", "/y.avi", false, false}}));
    EXPECT_EQ(opener.LastOpenFolder(), "/");

    // Cancel: nothing added, the folder stays.
    adds.clear();
    EXPECT_EQ(opener.OpenFiles(false), 0);
    EXPECT_TRUE(adds.isEmpty());
    EXPECT_EQ(opener.LastOpenFolder(), "/");

    // Files from two folders keep their own paths.
    chooser.answers << QStringList{"/p/a.avi", "/q/b.avi"};
    opener.OpenFiles(true);
    EXPECT_EQ(adds, (QList<Add>{{"a.avi", "/p/a.avi", false, false}, {"b.avi", "/q/b.avi", false, false}}));
    EXPECT_EQ(opener.LastOpenFolder(), "/p");
}

TEST(FileOpener, AnAddThatThrowsDoesNotKeepTheOthersOut)
{
    ScriptedChooser chooser;
    QStringList added;
    FileOpener opener(chooser, [&](const QString &, const QString &p, bool, bool) {
        if (p.endsWith("bad.avi"))
            throw std::runtime_error("probe crashed");
        added << p;
    });
    chooser.answers << QStringList{"/m/bad.avi", "/m/good.avi"};
    EXPECT_EQ(opener.OpenFiles(false), 2);
    EXPECT_EQ(added, QStringList{"/m/good.avi"});
}

TEST(FileOpener, TheRealDialogOffersTheFiltersAndReturnsSeveralFilesInOrder)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    for (const char *name : {"b.mkv", "A.AVI", "c.mp3", "notes.txt"}) {
        QFile f(dir.filePath(name));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }

    QStringList seenFilters;
    QString seenFolder;
    QString seenTitle;
    QString seenSelectedFilter;
    bool multi = false;
    // Plays the user: once the dialog is up, types two names and accepts.
    QTimer driver;
    driver.setInterval(10);
    QObject::connect(&driver, &QTimer::timeout, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        driver.stop();
        seenFilters = dialog->nameFilters();
        seenFolder = dialog->directory().absolutePath();
        seenTitle = dialog->windowTitle();
        seenSelectedFilter = dialog->selectedNameFilter();
        multi = dialog->fileMode() == QFileDialog::ExistingFiles;
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(edit, nullptr);
        edit->setText(QStringLiteral("\"c.mp3\" \"A.AVI\""));
        QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    });
    driver.start();

    QWidget owner;
    DialogFileChooser chooser(&owner);
    QList<Add> adds;
    FileOpener opener(chooser, [&](const QString &t, const QString &p, bool fs, bool play) {
        adds.append({t, p, fs, play});
    });
    // Start in the temporary folder, as after an earlier choice there.
    QStringList chosen = chooser.chooseFiles(OpenFileDialogTitle(), OpenFileNameFilters(), dir.path());
    const QString folder = QDir(dir.path()).canonicalPath();
    // The dialog gives typed names in typed order, or in its view's order once
    // it has listed the folder: either is the user's choice.
    chosen.sort(Qt::CaseInsensitive);
    EXPECT_EQ(chosen, (QStringList{folder + "/A.AVI", folder + "/c.mp3"}));
    EXPECT_EQ(seenFilters, OpenFileNameFilters());
    EXPECT_EQ(seenSelectedFilter, OpenFileNameFilters().first());
    EXPECT_EQ(seenTitle, "Open Video File");
    EXPECT_EQ(QDir(seenFolder).canonicalPath(), folder);
    EXPECT_TRUE(multi);

    // The whole command on the real dialog: the first file plays.
    driver.start();
    EXPECT_EQ(opener.OpenFiles(false), 2);
    ASSERT_EQ(adds.size(), 2);
    const bool typedOrder = adds.at(0).path.endsWith(u"c.mp3");
    const QString first = typedOrder ? "c.mp3" : "A.AVI", second = typedOrder ? "A.AVI" : "c.mp3";
    EXPECT_EQ(adds.at(0), (Add{first, folder + "/" + first, false, true}));
    EXPECT_EQ(adds.at(1), (Add{second, folder + "/" + second, false, false}));
    EXPECT_EQ(opener.LastOpenFolder(), folder);
}
