// The console runner with real processes: every byte in order, both streams,
// output that comes as the tool ends, and the numbered errors.
#include "media/processrunner.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

TEST(ProcessRunner, CopiesEveryByteInOrderAfterTheCommandLine)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString out = dir.filePath(u"out.txt"_qs);
    const QString sh = ToolPath(u"sh"_qs);

    // 200,000 numbered lines on stdout, far more than one read or one pipe
    // buffer, with stderr lines in between: nothing may be lost or reordered
    // within a stream, and both streams land in the one file.
    const QString script = u"i=0; while [ $i -lt 20000 ]; do echo line$i; i=$((i+1)); done; "
                           "echo to-stderr >&2; printf 'last-without-newline'"_qs;
    ASSERT_TRUE(RunPiped(sh, {u"-c"_qs, script}, out));
    const QByteArray data = readAll(out);
    const QByteArray header = CommandLineText(sh, {u"-c"_qs, script}).toUtf8() + "\r\n";
    ASSERT_TRUE(data.startsWith(header));
    const QByteArray body = data.mid(header.size());
    int at = 0;
    for (int i = 0; i < 20000; ++i) {
        const QByteArray want = "line" + QByteArray::number(i) + "\n";
        ASSERT_EQ(body.mid(at, want.size()), want) << "at line " << i;
        at += want.size();
    }
    EXPECT_EQ(body.mid(at), QByteArray("to-stderr\nlast-without-newline"));

    // A tool that writes to stderr only, and a burst written just before the
    // tool ends, are both kept.
    ASSERT_TRUE(RunPiped(sh, {u"-c"_qs, u"echo only-error >&2"_qs}, out));
    EXPECT_TRUE(readAll(out).endsWith("\r\nonly-error\n"));
    ASSERT_TRUE(RunPiped(sh, {u"-c"_qs, u"sleep 0.2; head -c 100000 /dev/zero | tr '\\0' 'z'"_qs}, out));
    const QByteArray burst = readAll(out);
    EXPECT_EQ(burst.size() - burst.indexOf("\r\n") - 2, 100000);

    // A tool that prints nothing leaves just the command line; the old
    // content of the file is gone.
    ASSERT_TRUE(RunPiped(sh, {u"-c"_qs, u"true"_qs}, out));
    EXPECT_EQ(readAll(out), CommandLineText(sh, {u"-c"_qs, u"true"_qs}).toUtf8() + "\r\n");

    // The working folder is the one asked for.
    ASSERT_TRUE(RunPiped(sh, {u"-c"_qs, u"pwd"_qs}, out, dir.path()));
    EXPECT_TRUE(readAll(out).endsWith(QFile::encodeName(dir.path()) + "\n"));
}

TEST(ProcessRunner, ArgumentsAreNeverSeenByAShell)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString out = dir.filePath(u"out.txt"_qs);
    const QString marker = dir.filePath(u"pwned"_qs);
    // printf gets the text as one argument; nothing in it is run.
    const QString nasty = u"-x \"q\" 'a,b' $(touch "_qs + marker + u") ; touch "_qs + marker + u" ünï"_qs;
    ASSERT_TRUE(RunPiped(ToolPath(u"printf"_qs), {u"%s"_qs, nasty}, out));
    EXPECT_TRUE(readAll(out).endsWith(nasty.toUtf8()));
    EXPECT_FALSE(QFile::exists(marker));
}

TEST(ProcessRunner, NumberedErrorsAndShellExecuteWait)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString out = dir.filePath(u"out.txt"_qs);

    try {
        RunPiped(dir.filePath(u"no-such-tool"_qs), {}, out);
        FAIL() << "a missing tool must raise";
    } catch (const ProcessError &e) {
        EXPECT_EQ(e.number(), kProcessError);
        EXPECT_TRUE(QString::fromUtf8(e.what()).startsWith(u"Could not create piped process. LastError "_qs));
    }
    EXPECT_FALSE(QFile::exists(out)) << "no output file when the tool never ran";

    try {
        RunPiped(ToolPath(u"true"_qs), {}, dir.filePath(u"missing-folder/out.txt"_qs));
        FAIL() << "an unwritable output must raise";
    } catch (const ProcessError &e) {
        EXPECT_EQ(e.number(), kPipeError);
        EXPECT_TRUE(QString::fromUtf8(e.what()).startsWith(u"Could not create pipe LastError "_qs));
    }

    const QString made = dir.filePath(u"made by tool"_qs);
    EXPECT_TRUE(ShellExecuteWait(ToolPath(u"touch"_qs), {made}));
    EXPECT_TRUE(QFile::exists(made)) << "the wait ends only after the tool has done its work";
    EXPECT_FALSE(ShellExecuteWait(dir.filePath(u"no-such-tool"_qs), {}));
}
