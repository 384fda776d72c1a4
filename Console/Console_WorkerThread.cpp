// std::thread knows no size of a stack.
#include "Console_WorkerThread.h"

#include <cstddef>
#include <system_error>
#include <utility>

namespace Console {

namespace {

// More than the usual limit of the first thread. Only what is used takes memory.
constexpr std::size_t stackSize = std::size_t{16} << 20;

void* runBody(void* body) {
    (*static_cast<const std::function<void()>*>(body))();
    return nullptr;
}

}  // namespace

WorkerThread::WorkerThread(std::function<void()> body) : body_(std::move(body)) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    const int error = pthread_create(&thread_, &attributes, runBody, &body_);
    pthread_attr_destroy(&attributes);
    if (error != 0) throw std::system_error(error, std::generic_category());
}

WorkerThread::~WorkerThread() { pthread_join(thread_, nullptr); }

}  // namespace Console
