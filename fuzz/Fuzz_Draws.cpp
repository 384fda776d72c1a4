// The draws from the bytes of a fuzz input.
#include "Fuzz_Draws.h"

namespace Fuzz {

unsigned ByteDraws::below(unsigned bound) {
    unsigned number = nextByte();
    if (bound > 256) number = number * 256 + nextByte();
    return number % bound;
}

unsigned ByteDraws::nextByte() {
    if (bytes_.empty()) return 0;
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
}

}  // namespace Fuzz
