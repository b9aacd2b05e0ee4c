#pragma once

#include <pthread.h>

namespace quor::cli {

// Starts a joinable thread on a stack as large as the one the server parses
// on (1 GiB of address space, reserved but not touched). Where that much
// can't be had it tries smaller stacks, down to 64 MiB; false when none
// could be started.
bool startBigStackThread(pthread_t& thread, void* (*body)(void*), void* argument);

}  // namespace quor::cli
