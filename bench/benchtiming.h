#pragma once
// Timing and tool runs shared by the benchmarks.

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <algorithm>
#include <chrono>
#include <vector>

namespace quorvel::bench {

// Median of seven rounds of `rounds` calls, in nanoseconds per call: the
// median keeps one disturbed round on a shared machine out of the result.
template <typename F>
double Measure(F &&work, int rounds)
{
    std::vector<double> samples;
    for (int r = 0; r < 7; ++r) {
        QElapsedTimer t;
        t.start();
        for (int i = 0; i < rounds; ++i)
            work(i);
        samples.push_back(double(t.nsecsElapsed()) / rounds);
    }
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}

// Now on the clock the program's trace stamps use (steady, in milliseconds).
inline qint64 monotonicMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

// The monotonic time the program's trace gives for the first line matching
// `what`, or -1 when it has none.
inline qint64 stamp(const QString &log, const QString &what)
{
    const QRegularExpression re(what + QStringLiteral(".*monotonic= *(\\d+)"));
    const auto m = re.match(log);
    return m.hasMatch() ? m.captured(1).toLongLong() : -1;
}

// Median of the measured values; -1 marks a round that measured nothing.
inline qint64 median(std::vector<qint64> v)
{
    v.erase(std::remove(v.begin(), v.end(), -1), v.end());
    if (v.empty())
        return -1;
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

// Runs a tool to its end, its output read and dropped; returns its exit code,
// or -1 when it did not start or crashed.
inline int RunTool(const QString &program, const QStringList &args)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args, QIODevice::ReadOnly);
    if (!p.waitForStarted(-1))
        return -1;
    p.waitForFinished(-1);
    p.readAll();
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

} // namespace quorvel::bench
