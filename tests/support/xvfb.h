#pragma once
// A private X server for end-to-end tests of the real program.

#include <QProcess>
#include <QString>
#include <memory>

namespace quorvel::test {

class XvfbServer {
public:
    XvfbServer(int width = 1280, int height = 1024);
    ~XvfbServer();
    XvfbServer(const XvfbServer &) = delete;
    XvfbServer &operator=(const XvfbServer &) = delete;

    bool isRunning() const { return !m_display.isEmpty(); }
    QString display() const { return m_display; } // ":N"
    // Environment for a child process that should draw on this server.
    QProcessEnvironment environment() const;
    // Saves a screenshot of the whole screen (PNG); false when it failed.
    bool screenshot(const QString &path) const;

private:
    std::unique_ptr<QProcess> m_process;
    QString m_display;
};

} // namespace quorvel::test
