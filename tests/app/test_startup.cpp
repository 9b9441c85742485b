#include "app/startup.h"

#include <QTemporaryDir>
#include <QtConcurrent/QtConcurrentRun>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

using namespace quorvel;
using handoff::SendResult;

namespace {

// The instance registry and the endpoints of every start, in memory. Sends
// follow `script` while it lasts; after that an endpoint answers when some
// start has opened it.
class FakeChannel final : public InstanceChannel {
public:
    InstanceRegistry::Endpoints readRegistry() override
    {
        std::lock_guard lock(m_mutex);
        return registry;
    }
    void writeRegistry(const InstanceRegistry::Endpoints &e) override
    {
        std::lock_guard lock(m_mutex);
        registry = e;
    }
    bool listen(ListeningEndpoints *e) override
    {
        std::this_thread::yield(); // widens the window two unserialised starts would race in
        std::lock_guard lock(m_mutex);
        const int n = ++listens;
        e->command = u"/run/quorvel-1-%1-cmd"_qs.arg(n);
        e->probe = u"/run/quorvel-1-%1-chk"_qs.arg(n);
        e->commandFd = e->probeFd = 1;
        m_open << e->command << e->probe;
        return true;
    }
    SendResult send(const QString &endpoint, const QString &text, const std::function<void()> &received) override
    {
        std::unique_lock lock(m_mutex);
        sent << endpoint + u' ' + text;
        SendResult r = !script.isEmpty() ? script.takeFirst()
                                         : (m_open.contains(endpoint) ? SendResult::Done : SendResult::NoInstance);
        lock.unlock();
        if (r == SendResult::Done || r == SendResult::Unconfirmed)
            received();
        return r;
    }

    InstanceRegistry::Endpoints registry;
    QList<SendResult> script;
    QStringList sent;
    int listens = 0;

private:
    std::mutex m_mutex;
    QStringList m_open;
};

} // namespace

TEST(StartupNegotiator, HandsOverOrBecomesTheInstanceAndNeverDropsFilesSilently)
{
    using Outcome = StartupDecision::Outcome;
    const InstanceRegistry::Endpoints running{u"/run/quorvel-1-77-cmd"_qs, u"/run/quorvel-1-77-chk"_qs};
    const QStringList file{u"/m/a b.mp4"_qs};
    // Sends follow `script`: D done, N no instance, X dropped, A no answer, U unconfirmed.
    struct Case {
        const char *name;
        bool registered, useNewInstance, withFile;
        const char *script;
        Outcome outcome;
        QString message; // part of the failure text
    };
    const Case cases[] = {
        {"first start ever", false, false, true, "", Outcome::BecomeInstance, {}},
        {"new instance asked for", true, true, true, "", Outcome::BecomeInstance, {}},
        {"handed over", true, false, true, "D", Outcome::HandedOver, {}},
        {"stale registry", true, false, true, "N", Outcome::BecomeInstance, {}},
        {"instance went away", true, false, true, "XN", Outcome::BecomeInstance, {}},
        {"always dropped", true, false, true, "XXX", Outcome::Failed, u"\"/m/a b.mp4\""_qs},
        {"hung instance", true, false, true, "A", Outcome::Failed,
         u"(process 77) does not answer; these files were not added: \"/m/a b.mp4\""_qs},
        {"hung instance, plain start", true, false, false, "A", Outcome::Failed, u"no second window"_qs},
        {"received, never confirmed", true, false, true, "U", Outcome::Failed, u"has not confirmed"_qs},
    };
    const QHash<char, SendResult> results{{'D', SendResult::Done},
                                          {'N', SendResult::NoInstance},
                                          {'X', SendResult::Dropped},
                                          {'A', SendResult::NoAnswer},
                                          {'U', SendResult::Unconfirmed}};
    for (const Case &c : cases) {
        QTemporaryDir dir;
        FakeChannel channel;
        if (c.registered)
            channel.registry = running;
        for (const char *r = c.script; *r; ++r)
            channel.script << results.value(*r);
        CommandLine command;
        if (c.withFile)
            command.files = file;
        const int sends = int(channel.script.size());
        const StartupDecision d
            = StartupNegotiator(channel, dir.filePath(u"lock"_qs)).decide(command, c.useNewInstance);
        EXPECT_EQ(d.outcome, c.outcome) << c.name;
        EXPECT_EQ(channel.sent.size(), sends) << c.name;
        EXPECT_TRUE(d.message.contains(c.message)) << c.name << ": " << d.message.toStdString();
        if (c.outcome == Outcome::BecomeInstance) {
            EXPECT_EQ(channel.registry.command, d.endpoints.command) << c.name;
            EXPECT_EQ(d.files, command.files) << c.name;
        }
        if (sends > 0) { // files go to the command endpoint, a plain start's "Hello" to the probe
            EXPECT_EQ(channel.sent.first().section(u' ', 0, 0), c.withFile ? running.command : running.probe) << c.name;
        }
    }
}

TEST(StartupNegotiator, AListTooLongForOneMessageGoesInPartsInOrder)
{
    QTemporaryDir dir;
    FakeChannel channel;
    channel.registry = {u"/run/quorvel-1-77-cmd"_qs, u"/run/quorvel-1-77-chk"_qs};
    channel.script = QList<SendResult>(10, SendResult::Done);
    CommandLine command;
    for (int i = 0; i < 2000; ++i)
        command.files << u"/m/%1 \"quoted\" name.mp4"_qs.arg(i, 80, 10, QChar(u'0'));
    const StartupDecision d = StartupNegotiator(channel, dir.filePath(u"lock"_qs)).decide(command, false);
    EXPECT_EQ(d.outcome, StartupDecision::Outcome::HandedOver);
    QStringList arrived;
    for (const QString &s : std::as_const(channel.sent)) {
        const QString text = s.section(u' ', 1);
        EXPECT_LE(text.toUtf8().size(), handoff::kMaxMessageBytes);
        arrived << CommandLine::filesOf(text);
    }
    EXPECT_GT(channel.sent.size(), 1);
    EXPECT_EQ(arrived, command.files);
}

TEST(StartupNegotiator, StartsAtOnceMakeOneInstanceThatGetsEveryFileInTurnOrder)
{
    QTemporaryDir dir;
    FakeChannel channel;
    constexpr int kStarts = 12;
    QList<QFuture<StartupDecision>> starts;
    for (int i = 0; i < kStarts; ++i) {
        starts << QtConcurrent::run([&channel, &dir, i] {
            CommandLine command;
            command.files = {u"/m/clip%1.mp4"_qs.arg(i)};
            return StartupNegotiator(channel, dir.filePath(u"lock"_qs)).decide(command, false);
        });
    }
    int instances = 0;
    QMap<quint64, QString> byTurn;
    for (int i = 0; i < kStarts; ++i) {
        const StartupDecision d = starts[i].result();
        instances += d.outcome == StartupDecision::Outcome::BecomeInstance;
        if (d.outcome == StartupDecision::Outcome::HandedOver)
            byTurn.insert(d.turn, u"/m/clip%1.mp4"_qs.arg(i));
        else
            EXPECT_EQ(d.turn, 1u); // the first turn found nobody
    }
    EXPECT_EQ(instances, 1);
    EXPECT_EQ(channel.listens, 1);
    QStringList arrived;
    for (const QString &s : std::as_const(channel.sent))
        arrived << CommandLine::filesOf(s.section(u' ', 1));
    EXPECT_EQ(arrived, byTurn.values());
}
