// The two forms hold the same.
#include "Corvane_Messages.h"

namespace corvane {

Error::~Error() = default;

Messages publicMessages(const Trn::ParseMessageList& messages) {
    Messages result;
    result.reserve(messages.size());
    for (const auto& [severity, position, code, text] : messages) {
        result.push_back({static_cast<Severity>(severity), position.line, position.column, code, text});
    }
    return result;
}

}  // namespace corvane
