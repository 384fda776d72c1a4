// The application object of the toolkit, through which no exception may pass: one that a handler of an event throws is
// kept, the program's loops end, and whoever started them throws it anew.
#pragma once

#include <QApplication>
#include <exception>

namespace BrevisUI {

class Application : public QApplication {
    Q_OBJECT

public:
    // As QApplication has them.
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // What the loops that have ended were ended by; null if nothing was thrown. It is forgotten.
    std::exception_ptr takeFailure() { return std::exchange(failure_, nullptr); }

private:
    std::exception_ptr failure_;
};

}  // namespace BrevisUI
