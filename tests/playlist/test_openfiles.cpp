#include "playlist/filechooser.h"
#include "playlist/openfiles.h"
#include "support/qstringprint.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

using namespace quorvel::playlist;

namespace {

// Answers with a prepared choice and remembers how it was asked.
class ScriptedChooser final : public FileChooser {
public:
    QList<QStringList> answers;
    QStringList folders;
    QStringList chooseFiles(const QString &, const QStringList &, const QString &folder) override
    {
        folders << folder;
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
    QStringList rest;
    for (const FileFilterEntry &e : entries.mid(1))
        rest << e.patterns;
    EXPECT_EQ(entries.value(0).patterns, rest);
    EXPECT_EQ(OpenFileNameFilters().size(), entries.size());
}

TEST(FileOpener, FirstFilePlaysUnlessAppendingAndTheFolderIsRemembered)
{
    ScriptedChooser chooser;
    QList<Add> adds;
    FileOpener opener(chooser, [&](const QString &t, const QString &p, bool fs, bool play) {
        if (p.endsWith("bad.avi"))
            throw std::runtime_error("probe crashed"); // does not keep the others out
        adds.append({t, p, fs, play});
    });
    const struct {
        QStringList answer; // empty: cancelled
        bool append;
        QList<Add> adds;
        QString folder; // remembered afterwards, and where the next chooser opens
    } steps[] = {
        {{"/Media/a.avi"}, false, {{"a.avi", "/Media/a.avi", false, true}}, "/Media"},
        {{"/Other/c.mkv", "/Other/a.mp3"},
         true,
         {{"c.mkv", "/Other/c.mkv", false, false}, {"a.mp3", "/Other/a.mp3", false, false}},
         "/Other"},
        {{"/x.avi", "/y.avi"}, false, {{"x.avi", "/x.avi", false, true}, {"y.avi", "/y.avi", false, false}}, "/"},
        {{}, false, {}, "/"},
        {{"/p/bad.avi", "/q/b.avi"}, false, {{"b.avi", "/q/b.avi", false, false}}, "/p"},
    };
    QStringList folders{""}; // the first chooser opens in the default folder
    for (const auto &s : steps) {
        adds.clear();
        if (!s.answer.isEmpty())
            chooser.answers << s.answer;
        EXPECT_EQ(opener.OpenFiles(s.append), s.answer.size());
        EXPECT_EQ(adds, s.adds) << s.answer.join(u' ').toStdString();
        EXPECT_EQ(opener.LastOpenFolder(), s.folder);
        folders << s.folder;
    }
    EXPECT_EQ(chooser.folders, folders.mid(0, chooser.folders.size()));
}

TEST(FileOpener, TheRealDialogOffersTheFiltersAndReturnsSeveralFilesInOrder)
{
    QTemporaryDir dir;
    for (const char *name : {"b.mkv", "A.AVI", "c.mp3", "notes.txt"})
        QFile(dir.filePath(name)).open(QIODevice::WriteOnly);
    QStringList seenFilters;
    QString seenFolder;
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
        multi = dialog->fileMode() == QFileDialog::ExistingFiles;
        dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(QStringLiteral("\"c.mp3\" \"A.AVI\""));
        QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    });
    driver.start();
    QWidget owner;
    DialogFileChooser chooser(&owner);
    // Start in the temporary folder, as after an earlier choice there.
    QStringList chosen = chooser.chooseFiles(OpenFileDialogTitle(), OpenFileNameFilters(), dir.path());
    const QString folder = QDir(dir.path()).canonicalPath();
    // Typed names in typed order, or in the view's order once it has listed
    // the folder: either is the user's choice.
    chosen.sort(Qt::CaseInsensitive);
    EXPECT_EQ(chosen, (QStringList{folder + "/A.AVI", folder + "/c.mp3"}));
    EXPECT_EQ(seenFilters, OpenFileNameFilters());
    EXPECT_EQ(QDir(seenFolder).canonicalPath(), folder);
    EXPECT_TRUE(multi);
}
