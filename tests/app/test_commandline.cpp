#include "app/commandline.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(CommandLine, EachArgumentIsOneFileMadeAbsoluteAgainstTheCallersFolder)
{
    const QString here = u"/home/u/films"_qs;
    using Action = CommandLine::Action;
    struct Case {
        QStringList arguments;
        QStringList files;
        bool forcePlay;
        Action action = Action::Play;
    };
    // Names as a file manager passes them, *Add and the options run end to end too.
    const Case cases[] = {
        {{}, {}, true},
        // Quotes, blanks, '#', a leading dash and line breaks are part of the name.
        {{u"/m/say \"hi\".mp4"_qs, u"-reverse #1 a b.mkv"_qs, u"a\nb.mp3"_qs},
         {u"/m/say \"hi\".mp4"_qs, here + u"/-reverse #1 a b.mkv"_qs, here + u"/a\nb.mp3"_qs},
         true},
        // The marker may stand anywhere.
        {{u"a.mp3"_qs, u"*Add"_qs, u"/x/b.mp3"_qs}, {here + u"/a.mp3"_qs, u"/x/b.mp3"_qs}, false},
        {{u"./sub/../c.mp4"_qs, u"../d.mp4"_qs}, {here + u"/c.mp4"_qs, u"/home/u/d.mp4"_qs}, true},
        // Options start with "--"; after a lone "--" everything is a file.
        {{u"--"_qs, u"--help"_qs, u"-v"_qs, u"--"_qs},
         {here + u"/--help"_qs, here + u"/-v"_qs, here + u"/--"_qs},
         true},
        {{u"a.mp4"_qs, u"--help"_qs, u"--version"_qs}, {here + u"/a.mp4"_qs}, true, Action::Help},
        {{u"--version"_qs, u"*Add"_qs}, {}, false, Action::Version},
        {{u"--report"_qs, u"--x.mp4"_qs}, {}, true, Action::Report},
        {{u"--report"_qs}, {}, true, Action::Invalid},
        {{u"--report"_qs, u"a.mp4"_qs, u"b.mp4"_qs}, {here + u"/b.mp4"_qs}, true, Action::Invalid},
    };
    for (const Case &c : cases) {
        const CommandLine parsed = CommandLine::parse(c.arguments, here);
        EXPECT_EQ(parsed.files, c.files) << c.arguments.join(u'|').toStdString();
        EXPECT_EQ(parsed.forcePlay, c.forcePlay) << c.arguments.join(u'|').toStdString();
        EXPECT_EQ(parsed.action, c.action) << c.arguments.join(u'|').toStdString();
        EXPECT_EQ(parsed.error.isEmpty(), c.action != Action::Invalid);
        if (c.action == Action::Report) {
            EXPECT_EQ(parsed.reportFile, c.arguments[1]); // as given
        }
        // The hand-off carries the list whole, character for character.
        EXPECT_EQ(CommandLine::filesOf(parsed.handOffText()), c.files);
    }
    EXPECT_TRUE(CommandLine::filesOf(u"/a.mp4"_qs).isEmpty());
    EXPECT_TRUE(CommandLine::filesOf(u"[\"/a.mp4\", 3]"_qs).isEmpty());
}
