// The exceptions of the base layer. They are thrown for misuse of an object and for texts beyond a fixed
// limit, never for a syntax error, which is a ParseMessage.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace Trn {

class Exception : public std::exception {
public:
    explicit Exception(std::string message) : message_(std::move(message)) {}

    const char* what() const noexcept override { return message_.c_str(); }
    const std::string& message() const { return message_; }

private:
    std::string message_;
};

class InvalidValueType : public Exception {
public:
    InvalidValueType() : Exception("Invalid value() function called for Token object.") {}
};

class AlreadyExistsException : public virtual Exception {
public:
    AlreadyExistsException()
        : Exception("Attempt to add an object to a collection that already exists in that collection.") {}
};

class InvalidParameterException : public virtual Exception {
public:
    // The spelling is part of the library's surface.
    InvalidParameterException() : Exception("InvalidParameterExecption") {}
};

}  // namespace Trn
