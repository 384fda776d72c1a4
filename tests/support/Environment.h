// What tests change in their process, each put back at the end of a scope.
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>

namespace Environment {

// Sets a variable, or removes it for a null value.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        set(value);
    }
    ~Variable() { set(old_ ? old_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void set(const char* value) { value ? setenv(name_, value, 1) : unsetenv(name_); }

    const char* name_;
    std::optional<std::string> old_;
};

// No file can grow beyond a number of bytes: a disk that is full, also for the superuser.
class FullDisk {
public:
    explicit FullDisk(rlim_t limit = 16) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit small{limit, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*handler_)(int);
    rlimit old_{};
};

}  // namespace Environment
