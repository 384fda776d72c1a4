// The writing side of the formatters: what it adds to the buffer are the ways of writing and the guards.
#include "Vellum_OIndentStream.h"

namespace Vellum {

OIndentStream& OIndentStream::operator<<(std::string_view text) {
    buf_.write(text);
    return *this;
}

OIndentStream& OIndentStream::operator<<(char c) {
    buf_.write({&c, 1});
    return *this;
}

OIndentStream& OIndentStream::operator<<(Verbatim verbatim) {
    const LeadingWsGuard keep(*this, true);
    return *this << verbatim.text;
}

const std::string& OIndentStream::str() {
    buf_.sync();
    return buf_.text();
}

std::string OIndentStream::takeStr() {
    buf_.sync();
    return buf_.takeText();
}

IndentStreamSettings OIndentStream::settings() const {
    return {indent(), keepLeadingWs(), convertMode(), tabSize(), line(), column(), behindBackslash()};
}

IndentStringGuard::IndentStringGuard(OIndentStream& stream, std::string indent)
    : stream_(stream), saved_(std::move(indent)) {
    stream_.buf_.swapIndent(saved_);
}

IndentStringGuard::~IndentStringGuard() { stream_.buf_.swapIndent(saved_); }

LeadingWsGuard::LeadingWsGuard(OIndentStream& stream, bool keep) : stream_(stream), saved_(stream.keepLeadingWs()) {
    stream_.setKeepLeadingWs(keep);
}

LeadingWsGuard::~LeadingWsGuard() { stream_.setKeepLeadingWs(saved_); }

}  // namespace Vellum
