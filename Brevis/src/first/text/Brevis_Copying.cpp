// The operations that copy from the input cursor up to a position.
#include "first/text/Brevis_Copying.h"

namespace Brevis {

std::string_view readThrough(ITextDocStream& in, Position position) { return in.readWhileBelow(position); }

std::string_view readBefore(ITextDocStream& in, Position position) {
    std::string_view text = in.readWhileBelow(position);
    if (!text.empty() && in.position() == position) {
        in.unget();
        text.remove_suffix(1);
    }
    return text;
}

bool copyThrough(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readThrough(in, position);
    if (in.good()) out << text;
    return in.good();
}

bool copyBefore(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readBefore(in, position);
    if (in.good()) out << text;
    return in.good();
}

bool copyThroughRaw(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readThrough(in, position);
    if (in.good()) writeRaw(out, text);
    return in.good();
}

bool copyBeforeRaw(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readBefore(in, position);
    if (in.good()) writeRaw(out, text);
    return in.good();
}

void writeRaw(OIndentStream& out, std::string_view text) { out.writeRaw(text); }

bool skipThrough(ITextDocStream& in, Position position) {
    in.readWhileBelow(position);
    return in.good();
}

bool skipBefore(ITextDocStream& in, Position position) {
    in.readWhileBelow(position);
    return in.position() == position && in.unget();
}

std::string_view remainderOf(ITextDocStream& in) { return in.readRest(); }

}  // namespace Brevis
