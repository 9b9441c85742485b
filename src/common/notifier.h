#pragma once
// Messages for the user go through this interface, so logic can be tested
// without a modal box and the real program shows them titled "Quorvel".

#include <QPointer>
#include <QString>

#include <QWidget>

namespace quorvel {

class MessageNotifier {
public:
    enum class Icon { Information, Exclamation, Critical };
    virtual ~MessageNotifier() = default;
    virtual void notify(Icon icon, const QString &text) = 0;
};

// Shows a window-modal but non-blocking box: the program keeps adding files
// and answering hand-offs while the user reads it.
class MessageBoxNotifier final : public MessageNotifier {
public:
    explicit MessageBoxNotifier(QWidget *parent = nullptr) : m_parent(parent) {}
    void setParent(QWidget *parent) { m_parent = parent; }
    void notify(Icon icon, const QString &text) override;

private:
    QPointer<QWidget> m_parent;
};

// Writes to standard error: for the headless commands of the program.
class StderrNotifier final : public MessageNotifier {
public:
    void notify(Icon icon, const QString &text) override;
};

} // namespace quorvel
