// The entry that libFuzzer calls; CORVANE_FUZZ_TARGET is the function of Fuzz_Targets.h that this program runs. A
// finding ends the program as an exception that nobody catches.
#include <cstddef>
#include <cstdint>

#include "Fuzz_Targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::CORVANE_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
    return 0;
}
