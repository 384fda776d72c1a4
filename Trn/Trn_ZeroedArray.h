// Memory for a table of which only parts may ever be looked at.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

namespace Trn {

// So many values whose bytes are all 0. The system gives a large one page by page, as pages are touched: a part of the
// table that nobody looks at costs neither time nor memory.
template <class Value>
class ZeroedArray {
public:
    static_assert(std::is_trivially_copyable_v<Value> && std::is_trivially_default_constructible_v<Value>);

    explicit ZeroedArray(std::size_t size)
        : values_(static_cast<Value*>(std::calloc(size == 0 ? 1 : size, sizeof(Value)))) {
        if (!values_) throw std::bad_alloc();
    }

    Value& operator[](std::size_t index) { return values_[index]; }
    const Value& operator[](std::size_t index) const { return values_[index]; }

private:
    struct Free {
        void operator()(Value* values) const { std::free(values); }
    };

    std::unique_ptr<Value[], Free> values_;
};

}  // namespace Trn
