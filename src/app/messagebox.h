#pragma once
// The window's way of telling the user: a box titled "Quorvel".

#include "common/notifier.h"

#include <QPointer>
#include <QWidget>

namespace quorvel {

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

} // namespace quorvel
