#include "batch/workers.h"

#include "commands/commands.h"

#ifdef _WIN32

bool run_jobs(const std::vector<int>& order, int, const WorkerCalls& calls,
              const std::atomic<bool>& stop) {
    for (const int job : order) {
        calls.tick(1);
        const int status = stop ? kInterrupted : calls.perform(job);
        // While a job runs, Ctrl-C is the job's.
        if (stop || status == kInterrupted) {
            return false;
        }
        calls.ended(job, status);
    }
    return true;
}

#else

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <thread>

#include "terminal/print.h"

namespace {

constexpr int kPause = 200;  // milliseconds

using Pipe = std::array<int, 2>;

// The end of a process closes its ends of pipes, so a pipe that nobody writes to tells of it.
struct Worker {
    int job = 0;
    pid_t process = -1;
    int end = -1;  // nothing comes from it but its end
};

// Ends this process once the other end of the pipe is closed.
void die_with(int alive) {
    std::thread([alive] {
        char byte = 0;
        while (::read(alive, &byte, 1) < 0 && errno == EINTR) {
        }
        std::_Exit(kNotCompleted);
    }).detach();
}

[[noreturn]] void work(int job, const WorkerCalls& calls, const Pipe& alive) {
    // Ctrl-C reaches the whole group; whoever forked this process decides.
    ::signal(SIGINT, SIG_IGN);
    ::close(alive[1]);
    int status = kNotCompleted;
    try {
        die_with(alive[0]);
        status = calls.perform(job);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "ovri: job %d: %s\n", job, problem.what());
    }
    std::fflush(stderr);
    std::_Exit(status);
}

class WorkerPool {
  public:
    WorkerPool(const WorkerCalls& calls, std::size_t size) : calls_(calls), size_(size) {
        if (::pipe(alive_.data()) != 0) {
            alive_ = {-1, -1};
        }
    }
    ~WorkerPool() {
        ::close(alive_[0]);
        ::close(alive_[1]);
    }
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    bool ok() const { return alive_[0] >= 0; }
    bool full() const { return workers_.size() >= size_; }
    bool idle() const { return workers_.empty(); }
    int running() const { return static_cast<int>(workers_.size()); }

    // False when the system has no room for another process.
    bool begin(int job) {
        Pipe end{};
        if (::pipe(end.data()) != 0) {
            return false;
        }
        // What was printed so far must not be printed by the child again.
        std::fflush(stdout);
        const pid_t process = ::fork();
        if (process == 0) {
            work(job, calls_, alive_);
        }
        ::close(end[1]);
        if (process < 0) {
            ::close(end[0]);
            return false;
        }
        workers_.push_back({job, process, end[0]});
        return true;
    }

    // Waits until a job ends or a fifth of a second is over.
    void wait() {
        std::vector<pollfd> ends;
        for (const Worker& each : workers_) {
            ends.push_back({each.end, POLLIN, 0});
        }
        if (::poll(ends.data(), static_cast<nfds_t>(ends.size()), kPause) <= 0) {
            return;
        }
        for (std::size_t k = ends.size(); k-- > 0;) {
            if (ends[k].revents != 0) {
                const Worker ended = workers_[k];
                workers_.erase(workers_.begin() + static_cast<std::ptrdiff_t>(k));
                calls_.ended(ended.job, status_of(ended));
            }
        }
    }

    void kill() {
        for (const Worker& each : workers_) {
            ::kill(each.process, SIGKILL);
        }
        for (const Worker& each : workers_) {
            status_of(each);
        }
        workers_.clear();
    }

  private:
    static int status_of(const Worker& worker) {
        int status = 0;
        while (::waitpid(worker.process, &status, 0) < 0 && errno == EINTR) {
        }
        ::close(worker.end);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    const WorkerCalls& calls_;
    std::size_t size_;
    std::vector<Worker> workers_;
    Pipe alive_{-1, -1};
};

}  // namespace

bool run_jobs(const std::vector<int>& order, int workers, const WorkerCalls& calls,
              const std::atomic<bool>& stop) {
    WorkerPool pool(calls, static_cast<std::size_t>(workers));
    for (std::size_t next = 0; next < order.size() || !pool.idle();) {
        if (stop) {
            pool.kill();
            return false;
        }
        if (next < order.size() && !pool.full()) {
            const int job = order[next];
            if (pool.ok() && pool.begin(job)) {
                ++next;
                continue;
            }
            if (pool.idle()) {
                print(stderr, "ovri: job {}: the system has no room for another process\n", job);
                calls.ended(job, kNotCompleted);
                ++next;
                continue;
            }
        }
        pool.wait();
        calls.tick(pool.running());
    }
    return true;
}

#endif
