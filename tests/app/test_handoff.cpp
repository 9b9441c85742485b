#include "app/instance.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QtConcurrent/QtConcurrentRun>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

// Runs the event loop until `future` is done (the receiver lives on this thread).
template <typename T>
T await(QFuture<T> future)
{
    while (!future.isFinished())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
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
    EXPECT_EQ(handoff::unframe(f.left(3), &text), 0);
    EXPECT_EQ(handoff::unframe(f.left(10), &text), 0);
    EXPECT_EQ(handoff::unframe("GET / HTTP/1.1\r\n", &text), -1);
    EXPECT_EQ(handoff::unframe(f + "x", &text), -1);
    QByteArray huge = "QVL1";
    huge += QByteArray::fromHex("7fffffff");
    EXPECT_EQ(handoff::unframe(huge, &text), -1);
    QByteArray badUtf8 = "QVL1";
    badUtf8 += QByteArray::fromHex("00000002") + QByteArray("\xc3\x28");
    EXPECT_EQ(handoff::unframe(badUtf8, &text), -1);
}

TEST_F(HandoffTest, DeliversCommandsAndAnswersHello)
{
    const InstanceRegistry::Endpoints e = m_server.endpoints();
    int hellos = 0;
    QObject::connect(&m_server, &HandoffServer::helloReceived, [&] { ++hellos; });

    EXPECT_TRUE(await(QtConcurrent::run([&] { return handoff::send(e.command, u"/x/a.mp4"_qs); })));
    EXPECT_TRUE(await(QtConcurrent::run([&] { return handoff::send(e.probe, u"Hello"_qs); })));
    EXPECT_TRUE(await(QtConcurrent::run([&] { return handoff::endpointAlive(e.probe); })));
    EXPECT_EQ(m_received, QStringList{u"/x/a.mp4"_qs});
    EXPECT_EQ(hellos, 1);
}

TEST_F(HandoffTest, HostileSendersAreDroppedAndOthersStillServed)
{
    const QString name = m_server.endpoints().command;
    auto rawSend = [name](QByteArray bytes) {
        QLocalSocket s;
        s.connectToServer(name);
        if (!s.waitForConnected(3000))
            return QByteArray("noconnect");
        s.write(bytes);
        s.waitForBytesWritten(3000);
        s.waitForReadyRead(1000);
        return s.readAll();
    };
    EXPECT_TRUE(await(QtConcurrent::run([&] { return rawSend("rubbish that is no frame"); })).isEmpty());
    QByteArray oversized = "QVL1";
    oversized += QByteArray::fromHex("00100000"); // 1 MiB announced
    oversized += QByteArray(4096, 'a');
    EXPECT_TRUE(await(QtConcurrent::run([&] { return rawSend(oversized); })).isEmpty());
    EXPECT_TRUE(m_received.isEmpty());
    EXPECT_TRUE(await(QtConcurrent::run([&] { return handoff::send(name, u"/ok.mp3"_qs); })));
    EXPECT_EQ(m_received, QStringList{u"/ok.mp3"_qs});
}

TEST_F(HandoffTest, ManySendersAtOnceAreEachServedOnce)
{
    const QString name = m_server.endpoints().command;
    QList<QFuture<bool>> sends;
    for (int i = 0; i < 20; ++i)
        sends << QtConcurrent::run([name, i] { return handoff::send(name, u"/clip%1.mp4"_qs.arg(i)); });
    for (auto &f : sends)
        EXPECT_TRUE(await(f));
    EXPECT_EQ(m_received.size(), 20);
    m_received.removeDuplicates();
    EXPECT_EQ(m_received.size(), 20);
}

TEST(Handoff, AStaleOrMissingEndpointIsNotAlive)
{
    QTemporaryDir dir;
    EXPECT_FALSE(handoff::endpointAlive(dir.filePath(u"nobody-listens"_qs)));
    EXPECT_FALSE(handoff::endpointAlive(QString()));
    EXPECT_FALSE(handoff::send(dir.filePath(u"nobody-listens"_qs), u"x"_qs));
    // A socket file left behind by a killed process.
    QFile stale(dir.filePath(u"stale"_qs));
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.close();
    EXPECT_FALSE(handoff::endpointAlive(stale.fileName()));
}
