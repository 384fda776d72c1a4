// The owning pointer of a node's single member: may be empty, and copies what it owns.
#pragma once

#include <memory>

namespace Cpp {

// A unique_ptr whose copy is deep, made by the copy constructor of the exact class T, so that the nodes
// need no copy constructors of their own.
template <class T>
class Owned : public std::unique_ptr<T> {
public:
    using std::unique_ptr<T>::unique_ptr;
    Owned() = default;
    Owned(std::unique_ptr<T> pointer) : std::unique_ptr<T>(std::move(pointer)) {}
    Owned(const Owned& other) : std::unique_ptr<T>(other ? std::make_unique<T>(*other) : nullptr) {}
    Owned(Owned&&) noexcept = default;
    Owned& operator=(Owned other) noexcept {
        std::unique_ptr<T>::operator=(std::unique_ptr<T>(other.release()));
        return *this;
    }
};

}  // namespace Cpp
