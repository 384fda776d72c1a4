// Work by several threads, taken in order.
#include "Console_OrderedWork.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <vector>

namespace Console {
namespace {

using Work = OrderedWork<std::size_t>;

// Runs `count` items that square their numbers; those that are a multiple of 7 dawdle.
struct Squares {
    Work::Steps steps() {
        Work::Steps steps;
        steps.weigh = [](std::size_t item) { return item % 10; };
        steps.mayBegin = [this] { return begun < stopBehind; };
        steps.work = [this](std::size_t item) {
            ++begun;
            const std::size_t held = item + 1 - taken;
            for (std::size_t most = mostHeld; held > most && !mostHeld.compare_exchange_weak(most, held);) continue;
            for (int turn = 0; item % 7 == 0 && turn < 100; ++turn) std::this_thread::yield();
            if (item == throwAt) throw std::runtime_error("no square");
            return item * item;
        };
        steps.take = [this](std::size_t item, std::size_t square) {
            EXPECT_EQ(taken, item);
            EXPECT_EQ(item * item, square);
            return ++taken < giveUpBehind;
        };
        return steps;
    }

    std::atomic<std::size_t> begun = 0, taken = 0, mostHeld = 0;
    std::size_t stopBehind = 1000000, throwAt = 1000000, giveUpBehind = 1000000;
};

constexpr std::size_t threadCounts[] = {1, 2, 3, 16};

TEST(OrderedWork, TakesAllInOrderAndHoldsNoMoreThanItMay) {
    for (const std::size_t threads : threadCounts) {
        for (const std::size_t items : {1, 4, 50}) {
            for (const std::size_t count : {0, 1, 3, 500}) {
                Squares squares;
                Work({threads, items, 1000}, squares.steps()).run(count);
                EXPECT_EQ(count, squares.taken);
                EXPECT_LE(squares.mostHeld, items);
            }
        }
        // An item that is too heavy goes alone.
        Squares heavy;
        Work::Steps steps = heavy.steps();
        steps.weigh = [](std::size_t) { return 5; };
        Work({threads, 50, 4}, std::move(steps)).run(100);
        EXPECT_EQ(100u, heavy.taken);
        EXPECT_EQ(1u, heavy.mostHeld);
    }
}

TEST(OrderedWork, EndsBehindWhatWasBegun) {
    for (const std::size_t threads : threadCounts) {
        Squares stopped;
        stopped.stopBehind = 20;
        Work({threads, 10, 1000}, stopped.steps()).run(500);
        EXPECT_EQ(stopped.begun, stopped.taken);
        EXPECT_LE(20u, stopped.taken);
        EXPECT_GE(20 + threads, stopped.taken);

        Squares givenUp;
        givenUp.giveUpBehind = 20;
        Work({threads, 10, 1000}, givenUp.steps()).run(500);
        EXPECT_EQ(20u, givenUp.taken);

        Squares thrown;
        thrown.throwAt = 30;
        Work work({threads, 10, 1000}, thrown.steps());
        EXPECT_THROW(work.run(500), std::runtime_error);
        EXPECT_EQ(30u, thrown.taken);
    }
}

}  // namespace
}  // namespace Console
