#include "study/shared_work.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <thread>
#include <vector>

int threads_for(int wanted, int pieces) {
    const int threads = wanted > 0 ? wanted : static_cast<int>(std::thread::hardware_concurrency());
    return std::clamp(threads, 1, std::max(pieces, 1));
}

void share_work(int pieces, int threads, const std::function<void(int thread, int number)>& work) {
    std::atomic<int> next{0};
    std::atomic<bool> failed{false};
    std::vector<std::exception_ptr> failures(static_cast<std::size_t>(std::max(pieces, 0)));
    const auto take_pieces = [&](int thread) {
        for (int number = next++; number < pieces && !failed; number = next++) {
            try {
                work(thread, number);
            } catch (...) {
                failures[static_cast<std::size_t>(number)] = std::current_exception();
                failed = true;
            }
        }
    };
    std::vector<std::thread> others;
    others.reserve(static_cast<std::size_t>(std::max(threads, 1)));
    try {
        for (int thread = 1; thread < threads; ++thread) {
            others.emplace_back(take_pieces, thread);
        }
    } catch (const std::exception&) {
        // The machine gives no more threads: those there are do the work.
    }
    take_pieces(0);
    for (std::thread& other : others) {
        other.join();
    }
    for (const std::exception_ptr& failure : failures) {
        if (failure) {
            std::rethrow_exception(failure);
        }
    }
}
