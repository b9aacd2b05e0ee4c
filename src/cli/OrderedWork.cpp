#include "cli/OrderedWork.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <vector>

#include "cli/BigStackThread.h"

namespace quor::cli {

namespace {

// What the workers share: the next index to take, and which are finished.
struct SharedQueue {
    std::size_t count;
    const std::function<void(std::size_t)>& work;
    std::atomic<std::size_t> next{0};
    std::mutex mutex;
    std::condition_variable finished;
    std::vector<bool> done;

    SharedQueue(std::size_t count, const std::function<void(std::size_t)>& work)
        : count(count), work(work), done(count, false) {}
};

void* workerMain(void* argument) {
    auto& queue = *static_cast<SharedQueue*>(argument);
    for (std::size_t i = queue.next++; i < queue.count; i = queue.next++) {
        queue.work(i);
        std::lock_guard<std::mutex> lock(queue.mutex);
        queue.done[i] = true;
        queue.finished.notify_all();
    }
    return nullptr;
}

std::vector<pthread_t> startWorkers(SharedQueue& queue, unsigned jobs) {
    std::vector<pthread_t> workers;
    std::size_t wanted = std::min<std::size_t>(jobs, queue.count);
    for (std::size_t started = 0; started < wanted; ++started) {
        pthread_t thread;
        if (!startBigStackThread(thread, workerMain, &queue)) break;
        workers.push_back(thread);
    }
    return workers;
}

}  // namespace

void runOrdered(std::size_t count, unsigned jobs, const std::function<void(std::size_t)>& work,
                const std::function<void(std::size_t)>& deliver) {
    SharedQueue queue(count, work);
    std::vector<pthread_t> workers = startWorkers(queue, std::max(jobs, 1u));
    if (workers.empty()) {
        workerMain(&queue);
    }
    for (std::size_t i = 0; i < count; ++i) {
        {
            std::unique_lock<std::mutex> lock(queue.mutex);
            queue.finished.wait(lock, [&] { return queue.done[i]; });
        }
        deliver(i);
    }
    for (pthread_t worker : workers) pthread_join(worker, nullptr);
}

}  // namespace quor::cli
