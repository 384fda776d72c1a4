// The language-independent syntax node: it only answers for its positions.
#pragma once

#include "Trn_Position.h"

namespace Trn {

class SyntaxNode {
public:
    virtual ~SyntaxNode() = default;

    virtual void setFirstPosition(Position position) = 0;
    virtual Position firstPosition() const = 0;
    virtual void setLastPosition(Position position) = 0;
    virtual Position lastPosition() const = 0;
};

}  // namespace Trn
