#pragma once
// Keeps the messages the program would have shown, for assertions.

#include "common/notifier.h"

#include <QStringList>
#include <vector>

namespace quorvel::test {

class RecordingNotifier final : public MessageNotifier {
public:
    struct Message {
        Icon icon;
        QString text;
    };
    void notify(Icon icon, const QString &text) override { messages.push_back({icon, text}); }
    QStringList texts() const
    {
        QStringList out;
        for (const auto &m : messages)
            out << m.text;
        return out;
    }
    std::vector<Message> messages;
};

} // namespace quorvel::test
