// The console runner with real processes: every byte in order, both streams,
// no shell in between, and the numbered errors.
#include "media/processrunner.h"
#include "support/files.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(ProcessRunner, CopiesEveryByteInOrderAfterTheCommandLine)
{
    QTemporaryDir dir;
    const QString out = dir.filePath(u"out.txt"_qs);
    const QString sh = ToolPath(u"sh"_qs);
    QByteArray lines;
    for (int i = 0; i < 20000; ++i)
        lines += "line" + QByteArray::number(i) + "\n";
    const QString marker = dir.filePath(u"pwned"_qs);
    const QString nasty = u"-x \"q\" 'a,b' $(touch "_qs + marker + u") ; touch "_qs + marker + u" ünï"_qs;
    const std::tuple<QString, QStringList, QByteArray> cases[] = {
        // Far more than one read or one pipe buffer, then stderr: both streams, in order.
        {sh,
         {u"-c"_qs,
          u"i=0; while [ $i -lt 20000 ]; do echo line$i; i=$((i+1)); done; echo to-stderr >&2; printf 'end'"_qs},
         lines + "to-stderr\nend"},
        // A burst just before the tool ends is kept.
        {sh, {u"-c"_qs, u"sleep 0.2; head -c 100000 /dev/zero | tr '\\0' 'z'"_qs}, QByteArray(100000, 'z')},
        // Nothing printed: the old content of the file is gone.
        {sh, {u"-c"_qs, u"true"_qs}, {}},
        // The text is one argument; nothing in it is run.
        {ToolPath(u"printf"_qs), {u"%s"_qs, nasty}, nasty.toUtf8()},
    };
    for (const auto &[program, args, printed] : cases) {
        ASSERT_TRUE(RunPiped(program, args, out));
        EXPECT_EQ(test::readFile(out), CommandLineText(program, args).toUtf8() + "\r\n" + printed)
            << args.join(u' ').left(60).toStdString();
    }
    EXPECT_FALSE(QFile::exists(marker));
    // The working folder is the one asked for.
    ASSERT_TRUE(RunPiped(sh, {u"-c"_qs, u"pwd"_qs}, out, dir.path()));
    EXPECT_TRUE(test::readFile(out).endsWith(QFile::encodeName(dir.path()) + "\n"));
}

TEST(ProcessRunner, NumberedErrorsAndShellExecuteWait)
{
    QTemporaryDir dir;
    const QString out = dir.filePath(u"out.txt"_qs);
    const auto errorOf = [](const QString &program, const QString &output) -> std::pair<int, QString> {
        try {
            RunPiped(program, {}, output);
        } catch (const ProcessError &e) {
            return {e.number(), QString::fromUtf8(e.what()).section(u"LastError"_qs, 0, 0)};
        }
        return {0, {}};
    };
    EXPECT_EQ(errorOf(dir.filePath(u"no-such-tool"_qs), out),
              std::pair(kProcessError, u"Could not create piped process. "_qs));
    EXPECT_FALSE(QFile::exists(out)) << "no output file when the tool never ran";
    EXPECT_EQ(errorOf(ToolPath(u"true"_qs), dir.filePath(u"missing-folder/out.txt"_qs)),
              std::pair(kPipeError, u"Could not create pipe "_qs));

    const QString made = dir.filePath(u"made by tool"_qs);
    EXPECT_TRUE(ShellExecuteWait(ToolPath(u"touch"_qs), {made}));
    EXPECT_TRUE(QFile::exists(made)) << "the wait ends only after the tool has done its work";
    EXPECT_FALSE(ShellExecuteWait(dir.filePath(u"no-such-tool"_qs), {}));
}
