#include "cli/BigStackThread.h"

#include <array>
#include <cstddef>

namespace quor::cli {

namespace {

constexpr std::size_t MIB = std::size_t{1} << 20;

// Tried in order; the first is the server's own stack size.
constexpr std::array<std::size_t, 5> STACK_SIZES = {1024 * MIB, 512 * MIB, 256 * MIB, 128 * MIB, 64 * MIB};

bool startWithStack(pthread_t& thread, std::size_t size, void* (*body)(void*), void* argument) {
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0) return false;
    bool started = pthread_attr_setstacksize(&attributes, size) == 0 &&
                   pthread_create(&thread, &attributes, body, argument) == 0;
    pthread_attr_destroy(&attributes);
    return started;
}

}  // namespace

bool startBigStackThread(pthread_t& thread, void* (*body)(void*), void* argument) {
    for (std::size_t size : STACK_SIZES) {
        if (startWithStack(thread, size, body, argument)) return true;
    }
    return false;
}

}  // namespace quor::cli
