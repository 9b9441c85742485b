#include "playlist/filechooser.h"
#include "playlist/openfiles.h"
#include "support/qstringprint.h"

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
