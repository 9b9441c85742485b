#pragma once
// The Qt application with a last line of defence: an exception thrown in an
// event handler is reported and the program goes on, instead of ending.

#include <QApplication>

namespace quorvel {

class Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject *receiver, QEvent *event) override;
};

} // namespace quorvel
