// How long the pieces are that a text has been written in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Brevis {

// Nearly all take one byte.
class PieceSizes {
public:
    void reserve(std::size_t pieces) { bytes_.reserve(pieces); }
    // The next piece reaches from the end of the last one to this place.
    void endAt(std::size_t position) {
        const std::size_t size = position - end_;
        end_ = position;
        if (size < manyBytes) {
            bytes_.push_back(static_cast<std::uint8_t>(size));
        } else {
            addLong(size);
        }
    }

    // Goes through the pieces in their order.
    class Reader {
    public:
        explicit Reader(const PieceSizes& sizes) : next_(sizes.bytes_.data()) {}

        std::size_t next() {
            std::size_t size = *next_++;
            if (size < manyBytes) return size;
            for (std::size_t byte = size = 0; byte < longBytes; ++byte) size |= std::size_t{*next_++} << 8 * byte;
            return size;
        }

    private:
        const std::uint8_t* next_;
    };

private:
    static constexpr std::size_t manyBytes = 255;  // behind it the size follows
    static constexpr std::size_t longBytes = 4;

    void addLong(std::size_t size) {
        bytes_.push_back(manyBytes);
        for (std::size_t byte = 0; byte < longBytes; ++byte) {
            bytes_.push_back(static_cast<std::uint8_t>(size >> 8 * byte));
        }
    }

    std::vector<std::uint8_t> bytes_;
    std::size_t end_ = 0;
};

}  // namespace Brevis
