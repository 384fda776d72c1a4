// The application object of the toolkit. No exception may pass through the toolkit: one that a command throws is kept,
// the program's loops end, and whoever started them throws it anew.
#pragma once

#include <QApplication>
#include <exception>
#include <functional>

namespace BrevisUI {

class Application : public QApplication {
    Q_OBJECT

public:
    // As QApplication has them.
    Application(int& argc, char** argv);

    // Runs a command. To be used where one may throw.
    static void guard(const std::function<void()>& command);
    // The last net: it keeps what any handler of an event throws, but objects of the toolkit may leak.
    bool notify(QObject* receiver, QEvent* event) override;

    // What the loops that have ended were ended by; null if nothing was thrown. It is forgotten.
    std::exception_ptr takeFailure() { return std::exchange(failure_, nullptr); }

private:
    void keepFailure();

    std::exception_ptr failure_;
};

}  // namespace BrevisUI
