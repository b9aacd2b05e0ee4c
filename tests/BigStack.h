#pragma once

// Runs a piece of a test on a thread with a stack as large as the server's
// own, for inputs whose syntax trees are deep enough that parsing them, or
// freeing them (the tree's destructors recurse), needs more than a test
// thread's default stack, above all in the sanitizer build.
#include <pthread.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <stdexcept>

namespace quor::testing {

inline void runOnBigStack(const std::function<void()>& work, std::size_t bytes = std::size_t{1} << 30) {
    struct Call {
        const std::function<void()>* work;
        std::exception_ptr failure;
    } call{&work, nullptr};
    auto body = [](void* argument) -> void* {
        auto* run = static_cast<Call*>(argument);
        try {
            (*run->work)();
        } catch (...) {
            run->failure = std::current_exception();
        }
        return nullptr;
    };
    pthread_attr_t attributes;
    pthread_t thread;
    bool started = pthread_attr_init(&attributes) == 0 && pthread_attr_setstacksize(&attributes, bytes) == 0 &&
                   pthread_create(&thread, &attributes, body, &call) == 0;
    pthread_attr_destroy(&attributes);
    if (!started) throw std::runtime_error("no thread with a large stack could be started");
    pthread_join(thread, nullptr);
    if (call.failure) std::rethrow_exception(call.failure);
}

}  // namespace quor::testing
