// A limit on the depth of recursion, so that no text can overflow the stack.
#pragma once

#include "Trn_Exception.h"

namespace Trn {

// Counts one level for the extent of a scope; throws Trn::Exception beyond `limit` levels.
class NestingGuard {
public:
    static constexpr int limit = 1000;

    explicit NestingGuard(int& depth) : depth_(depth) {
        if (depth_ >= limit) throw Exception("The text is nested more than 1000 levels deep.");
        ++depth_;
    }
    ~NestingGuard() { --depth_; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;

private:
    int& depth_;
};

}  // namespace Trn
