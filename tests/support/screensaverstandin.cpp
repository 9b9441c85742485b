// Stands in for the desktop's screen saver service on the session bus and
// writes every call it gets to the file named by its argument, one a line:
// "Inhibit <application> <cookie>" and "UnInhibit <cookie>". Prints "ready"
// once it owns the name.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QFile>
#include <cstdio>

class StandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
public:
    explicit StandIn(const QString &path) : m_log(path) { m_log.open(QIODevice::WriteOnly | QIODevice::Append); }
public slots:
    uint Inhibit(const QString &application, const QString &)
    {
        write(u"Inhibit "_qs + application + u' ' + QString::number(++m_cookie));
        return m_cookie;
    }
    void UnInhibit(uint cookie) { write(u"UnInhibit "_qs + QString::number(cookie)); }

private:
    void write(const QString &line)
    {
        m_log.write(line.toUtf8() + '\n');
        m_log.flush();
    }
    QFile m_log;
    uint m_cookie = 0;
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    StandIn standIn(app.arguments().value(1));
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(u"/org/freedesktop/ScreenSaver"_qs, &standIn, QDBusConnection::ExportAllSlots)
        || !bus.registerService(u"org.freedesktop.ScreenSaver"_qs))
        return 1;
    std::puts("ready");
    std::fflush(stdout);
    return app.exec();
}

#include "screensaverstandin.moc"
