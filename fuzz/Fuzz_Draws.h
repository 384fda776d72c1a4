// Numbers below a bound, from which schemes are drawn: those of a seeded generator, or the bytes of a fuzz input.
#pragma once

#include <cstdint>
#include <random>
#include <string_view>

namespace Fuzz {

class Draws {
public:
    virtual ~Draws() = default;

    // A number from 0 to bound - 1; `bound` is at least 1.
    virtual unsigned below(unsigned bound) = 0;
};

// The same numbers on every machine.
class SeededDraws : public Draws {
public:
    explicit SeededDraws(std::uint64_t seed) : engine_(seed) {}

    unsigned below(unsigned bound) override { return static_cast<unsigned>(engine_() % bound); }

private:
    std::mt19937_64 engine_;
};

// One byte a number, two for a bound beyond 256, and zero for all numbers once the bytes are used up, so that a small
// change of the bytes is a small change of what is drawn.
class ByteDraws : public Draws {
public:
    // `bytes` must outlive the object.
    explicit ByteDraws(std::string_view bytes) : bytes_(bytes) {}

    unsigned below(unsigned bound) override;
    // What has not been used.
    std::string_view rest() const { return bytes_; }

private:
    unsigned nextByte();

    std::string_view bytes_;
};

}  // namespace Fuzz
