#include "app/handoffserver.h"
#include "support/waituntil.h"

#include <QCoreApplication>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QtConcurrent/QtConcurrentRun>
#include <gtest/gtest.h>

using namespace quorvel;
constexpr auto Done = handoff::SendResult::Done;

namespace {

// The result of `future`; the event loop runs meanwhile (the receiver lives on this thread).
template <typename T>
T await(QFuture<T> future)
{
    EXPECT_TRUE(test::waitUntil([&] { return future.isFinished(); }, std::chrono::minutes(2)));
    return future.result();
}

class HandoffTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        qputenv("XDG_RUNTIME_DIR", m_runtime.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", m_runtime.path().toUtf8());
        ASSERT_TRUE(m_server.listen());
        m_server.setCommandHandler([this](const QString &command, std::function<void()> done) {
            m_received << command;
            done();
        });
    }
    QTemporaryDir m_runtime;
    HandoffServer m_server;
    QStringList m_received;
};

} // namespace

TEST(HandoffFrame, RoundTripsAndRejectsBadData)
{
    QString text;
    const QByteArray f = handoff::frame(u"/vidéos/a b,c.mkv"_qs);
    EXPECT_EQ(handoff::unframe(f, &text), 1);
    EXPECT_EQ(text, u"/vidéos/a b,c.mkv"_qs);
    // 0: wait for more; -1: drop the sender.
    const std::pair<QByteArray, int> cases[] = {
        {f.left(10), 0},
        {"GET / HTTP/1.1\r\n", -1},
        {f + "x", -1},
        {"QVL1" + QByteArray::fromHex("7fffffff"), -1},
        {"QVL1" + QByteArray::fromHex("00000002") + "\xc3\x28", -1},
    };
    for (const auto &[bytes, result] : cases)
        EXPECT_EQ(handoff::unframe(bytes, &text), result) << bytes.toHex().toStdString();
}

// Commands, a hello and hostile senders (dropped, others still served).
TEST_F(HandoffTest, DeliversCommandsAnswersHelloAndDropsHostileSenders)
{
    const InstanceRegistry::Endpoints e = m_server.endpoints();
    int hellos = 0;
    QObject::connect(&m_server, &HandoffServer::helloReceived, [&] { ++hellos; });
    EXPECT_EQ(await(QtConcurrent::run([&] { return handoff::send(e.probe, u"Hello"_qs); })), Done);
    EXPECT_TRUE(test::waitUntil([&] { return hellos > 0; })); // reported after the answer went out
    auto rawSend = [name = e.command](QByteArray bytes) {
        QLocalSocket s;
        s.connectToServer(name);
        if (!s.waitForConnected(3000))
            return QByteArray("noconnect");
        s.write(bytes);
        s.waitForBytesWritten(3000);
        s.waitForReadyRead(1000);
        return s.readAll();
    };
    const QByteArray oversized = "QVL1" + QByteArray::fromHex("00100000") + QByteArray(4096, 'a'); // 1 MiB announced
    for (const QByteArray &bytes : {QByteArray("rubbish that is no frame"), oversized})
        EXPECT_TRUE(await(QtConcurrent::run([&] { return rawSend(bytes); })).isEmpty());
    EXPECT_TRUE(m_received.isEmpty());
    EXPECT_EQ(await(QtConcurrent::run([&] { return handoff::send(e.command, u"/clip.mp4"_qs); })), Done);
    EXPECT_EQ(m_received, QStringList{u"/clip.mp4"_qs}); // the others are still served
    EXPECT_EQ(hellos, 1);
}

// A stale or missing endpoint is not alive (a hung one is told apart end to end).
TEST(Handoff, StaleAndMissingReceivers)
{
    QTemporaryDir dir;
    QFile stale(dir.filePath(u"stale"_qs)); // a socket file left behind by a killed process
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    for (const QString &endpoint : {QString(), dir.filePath(u"nobody-listens"_qs), stale.fileName()})
        EXPECT_EQ(handoff::send(endpoint, u"x"_qs), handoff::SendResult::NoInstance) << endpoint.toStdString();
}
