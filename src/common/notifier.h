#pragma once
// Messages for the user go through this interface, so logic can be tested
// without a modal box. The window's implementation (app/messagebox.h) shows
// them in a box titled "Quorvel".

#include <QString>

namespace quorvel {

class MessageNotifier {
public:
    enum class Icon { Information, Exclamation, Critical };
    virtual ~MessageNotifier() = default;
    virtual void notify(Icon icon, const QString &text) = 0;
};

} // namespace quorvel
