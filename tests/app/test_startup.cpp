#include "app/startup.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;
using handoff::SendResult;

namespace {

// The instance registry and the endpoints of every start, in memory. Sends
// follow `script` while it lasts; after that an endpoint answers when some
// start has opened it.
class FakeChannel final : public InstanceChannel {
public:
    InstanceRegistry::Endpoints readRegistry() override { return registry; }
    void writeRegistry(const InstanceRegistry::Endpoints &e) override { registry = e; }
    bool listen(ListeningEndpoints *e) override
    {
        const int n = ++listens;
        e->command = u"/run/quorvel-1-%1-cmd"_qs.arg(n);
        e->probe = u"/run/quorvel-1-%1-chk"_qs.arg(n);
        e->commandFd = e->probeFd = 1;
        m_open << e->command << e->probe;
        return true;
    }
    SendResult send(const QString &endpoint, const QString &text, const std::function<void()> &received) override
    {
        sent << endpoint + u' ' + text;
        const SendResult r = !script.isEmpty()
                                 ? script.takeFirst()
                                 : (m_open.contains(endpoint) ? SendResult::Done : SendResult::NoInstance);
        if (r == SendResult::Done || r == SendResult::Unconfirmed)
            received();
        return r;
    }

    InstanceRegistry::Endpoints registry;
    QList<SendResult> script;
    QStringList sent;
    int listens = 0;

private:
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
    // A hand-over and a hung instance with files run end to end.
    const Case cases[] = {
        {"first start ever", false, false, true, "", Outcome::BecomeInstance, {}},
        {"new instance asked for", true, true, true, "", Outcome::BecomeInstance, {}},
        {"stale registry", true, false, true, "N", Outcome::BecomeInstance, {}},
        {"instance went away", true, false, true, "XN", Outcome::BecomeInstance, {}},
        {"always dropped", true, false, true, "XXX", Outcome::Failed, u"\"/m/a b.mp4\""_qs},
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
