#include "application.h"

#include "common/logging.h"

#include <exception>

namespace quorvel {

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &e) {
        qCCritical(lcApp) << "unexpected error while handling an event:" << e.what();
    } catch (...) {
        qCCritical(lcApp) << "unexpected error while handling an event";
    }
    return false;
}

} // namespace quorvel
