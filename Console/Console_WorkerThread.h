// A thread with room for the recursion of the engine, whatever the limits of the shell are.
#pragma once

#include <pthread.h>

#include <functional>

namespace Console {

class WorkerThread {
public:
    // Throws std::system_error if there can't be one. `body` must not throw.
    explicit WorkerThread(std::function<void()> body);
    // Waits until the body has come to its end.
    ~WorkerThread();
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

private:
    std::function<void()> body_;
    pthread_t thread_{};
};

}  // namespace Console
