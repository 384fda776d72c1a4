// The progress and cancel callback of a format run.
#pragma once

#include <string>

namespace Brevis {

class UpdateFunctor {
public:
    virtual ~UpdateFunctor() = default;

    // `pattern` is a printf pattern with one %s for the subject, which the functor knows. False means: stop now.
    virtual bool operator()(const std::string& pattern);
};

}  // namespace Brevis
