// Works on numbered items with several threads and hands the results over in the order of the items.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <utility>

#include "Console_WorkerThread.h"

namespace Console {

// At any moment the items that have been begun and whose results have not been taken are a stretch without gaps, of
// limited length and weight: so memory stays flat, however long one item takes and however slow the taking is.
template <class Result>
class OrderedWork {
public:
    struct Limits {
        std::size_t threads = 1;
        std::size_t items = 1;     // at a time
        std::uint64_t weight = 0;  // of these together, unless it is a single one
    };
    struct Steps {
        // Called by any of the threads, several at once. What it throws comes out of run().
        std::function<Result(std::size_t item)> work;
        // Whether another item may begin; once it says no, none does. As the next one, it doesn't throw.
        std::function<bool()> mayBegin;
        // Asked once for each item, in their order.
        std::function<std::uint64_t(std::size_t item)> weigh;
        // Called in the thread of run(). False if the results behind it are of no use to anybody.
        std::function<bool(std::size_t item, Result result)> take;
    };

    OrderedWork(Limits limits, Steps steps) : limits_(limits), steps_(std::move(steps)) {}

    // Works on the items from 0 on. All that were begun are taken, unless `take` says no.
    void run(std::size_t count) {
        count_ = count;
        std::deque<WorkerThread> threads;
        const End end(*this);
        addThreads(threads);
        threads.empty() ? runAlone() : takeAll();
    }

private:
    struct Begun {
        std::uint64_t weight = 0;
        std::optional<Result> result;
        std::exception_ptr failure;
        bool isDone() const { return result || failure; }
    };

    // However the run ends, the threads see that there is no more to begin.
    class End {
    public:
        explicit End(OrderedWork& work) : work_(work) {}
        ~End() {
            const std::lock_guard lock(work_.mutex_);
            work_.count_ = 0;
            work_.roomMade_.notify_all();
        }
        End(const End&) = delete;
        End& operator=(const End&) = delete;

    private:
        OrderedWork& work_;
    };

    void addThreads(std::deque<WorkerThread>& threads) {
        const std::size_t wanted = std::min(limits_.threads, count_);
        if (wanted < 2) return;
        try {
            while (threads.size() < wanted) threads.emplace_back([this] { workOn(); });
        } catch (const std::system_error&) {
            // Those that are there do the work.
        }
    }

    void runAlone() {
        for (std::size_t item = 0; item < count_ && steps_.mayBegin(); ++item) {
            if (!steps_.take(item, steps_.work(item))) return;
        }
    }

    void takeAll() {
        std::unique_lock lock(mutex_);
        while (hasArrived(lock)) {
            Begun done = std::move(begun_.front());
            begun_.front().result.reset();
            lock.unlock();
            if (done.failure) std::rethrow_exception(done.failure);
            if (!steps_.take(taken_, std::move(*done.result))) return;
            done.result.reset();
            lock.lock();
            ++taken_;
            weight_ -= done.weight;
            begun_.pop_front();
            roomMade_.notify_all();
        }
    }

    // Waits for the next result. False if there is none to come.
    bool hasArrived(std::unique_lock<std::mutex>& lock) {
        arrived_.wait(lock, [this] { return begun_.empty() ? nextItem() >= count_ : begun_.front().isDone(); });
        return !begun_.empty();
    }

    // What the threads do.
    void workOn() {
        std::unique_lock lock(mutex_);
        while (mayBegin(lock)) {
            const std::size_t item = nextItem();
            weight_ += *nextWeight_;
            begun_.push_back({*std::exchange(nextWeight_, std::nullopt), {}, {}});
            lock.unlock();
            Begun done = workOnItem(item);
            lock.lock();
            done.weight = begun_[item - taken_].weight;
            begun_[item - taken_] = std::move(done);
            if (item == taken_) arrived_.notify_one();
        }
    }

    Begun workOnItem(std::size_t item) {
        Begun done;
        try {
            done.result = steps_.work(item);
        } catch (...) {
            done.failure = std::current_exception();
        }
        return done;
    }

    // Waits until there is room for the next item. False if none is to begin any more.
    bool mayBegin(std::unique_lock<std::mutex>& lock) {
        roomMade_.wait(lock, [this] { return nextItem() >= count_ || hasRoom(); });
        if (nextItem() < count_ && steps_.mayBegin()) return true;
        count_ = std::min(count_, nextItem());
        arrived_.notify_one();
        roomMade_.notify_all();
        return false;
    }

    bool hasRoom() {
        if (begun_.size() >= limits_.items) return false;
        if (!nextWeight_) nextWeight_ = steps_.weigh(nextItem());
        return begun_.empty() || weight_ + *nextWeight_ <= limits_.weight;
    }

    std::size_t nextItem() const { return taken_ + begun_.size(); }

    const Limits limits_;
    const Steps steps_;

    std::mutex mutex_;  // of all that follows, once there are threads
    std::condition_variable arrived_, roomMade_;
    std::size_t count_ = 0;
    std::size_t taken_ = 0;
    std::deque<Begun> begun_;   // from the item `taken_` on
    std::uint64_t weight_ = 0;  // of these
    std::optional<std::uint64_t> nextWeight_;
};

}  // namespace Console
