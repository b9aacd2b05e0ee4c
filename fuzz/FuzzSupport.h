#pragma once

// Shared pieces of the libFuzzer targets: running one input on a thread with
// a large stack (as the server does), and telling the few ways the process
// is allowed to end from every other escaping exception.
//
// Allowed ends, each an exception nothing in the program catches:
// - "stod": the JSON reader's number conversion rejects the text;
// - "stoll": an enum variant's value does not fit in 64 bits;
// - std::length_error / std::bad_alloc: a message length with its top bit
//   set, or one too large for memory.
// Everything else that escapes is a finding and aborts, so that libFuzzer
// records the input.

#include <pthread.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <condition_variable>
#include <cstring>
#include <exception>
#include <functional>
#include <mutex>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quor::fuzz {

enum Allowed : unsigned {
    ALLOW_NOTHING = 0,
    ALLOW_NUMBER_CONVERSION = 1,  // std::stod in the JSON reader
    ALLOW_ENUM_OVERFLOW = 2,      // std::stoll of an enum variant's value
    ALLOW_LENGTH = 4,             // a message length the string cannot hold
};

namespace detail {

struct Work {
    const std::function<void()>* body;
    unsigned allowed;
};

[[noreturn]] inline void fail(const char* what) {
    std::fprintf(stderr, "quor fuzz: unexpected exception: %s\n", what);
    std::fflush(stderr);
    std::abort();
}

inline void* runWork(void* argument) {
    const Work& work = *static_cast<const Work*>(argument);
    try {
        (*work.body)();
    } catch (const std::length_error& error) {
        if ((work.allowed & ALLOW_LENGTH) == 0) fail(error.what());
    } catch (const std::bad_alloc& error) {
        if ((work.allowed & ALLOW_LENGTH) == 0) fail(error.what());
    } catch (const std::invalid_argument& error) {
        if (!((work.allowed & ALLOW_NUMBER_CONVERSION) != 0 && std::strcmp(error.what(), "stod") == 0)) {
            fail(error.what());
        }
    } catch (const std::out_of_range& error) {
        bool number = (work.allowed & ALLOW_NUMBER_CONVERSION) != 0 && std::strcmp(error.what(), "stod") == 0;
        bool enumValue = (work.allowed & ALLOW_ENUM_OVERFLOW) != 0 && std::strcmp(error.what(), "stoll") == 0;
        if (!number && !enumValue) fail(error.what());
    } catch (const std::exception& error) {
        fail(error.what());
    } catch (...) {
        fail("(not a std::exception)");
    }
    return nullptr;
}

}  // namespace detail

// Runs `body` on a worker thread with a 512 MiB stack (virtual memory only),
// made once and kept for every input, and waits for it. Exceptions are sorted
// as told above. One long-lived thread rather than a thread per input, as the
// sanitizers keep bookkeeping for every thread that ever ran.
inline void runGuarded(unsigned allowed, const std::function<void()>& body) {
    // Never destroyed: the worker waits on them until the process ends.
    static std::mutex& mutex = *new std::mutex;
    static std::condition_variable& changed = *new std::condition_variable;
    static detail::Work* pending = nullptr;
    static bool done = false;
    static const bool started = [] {
        pthread_attr_t attributes;
        pthread_t thread;
        bool ok = pthread_attr_init(&attributes) == 0 &&
                  pthread_attr_setstacksize(&attributes, std::size_t{512} << 20) == 0 &&
                  pthread_create(
                      &thread, &attributes,
                      [](void*) -> void* {
                          while (true) {
                              std::unique_lock<std::mutex> lock(mutex);
                              changed.wait(lock, [] { return pending != nullptr; });
                              detail::Work* work = pending;
                              lock.unlock();
                              detail::runWork(work);
                              lock.lock();
                              pending = nullptr;
                              done = true;
                              changed.notify_all();
                          }
                          return nullptr;
                      },
                      nullptr) == 0;
        pthread_attr_destroy(&attributes);
        if (ok) pthread_detach(thread);
        return ok;
    }();

    detail::Work work{&body, allowed};
    if (!started) {
        detail::runWork(&work);
        return;
    }
    std::unique_lock<std::mutex> lock(mutex);
    done = false;
    pending = &work;
    changed.notify_all();
    changed.wait(lock, [] { return done; });
}

// A property of the code under test does not hold: report and abort.
[[noreturn]] inline void propertyFailed(const char* what) {
    std::fprintf(stderr, "quor fuzz: property violated: %s\n", what);
    std::fflush(stderr);
    std::abort();
}

// Reads small numbers off the front of the input; the rest is text.
class ByteReader {
public:
    ByteReader(const std::uint8_t* data, std::size_t size) : data(data), size(size) {}

    std::uint8_t byte() { return position < size ? data[position++] : 0; }
    std::uint32_t number(std::uint32_t limit) {  // in [0, limit)
        if (limit == 0) return 0;
        std::uint32_t value = byte();
        if (limit > 256) value = (value << 8) | byte();
        return value % limit;
    }
    bool empty() const { return position >= size; }
    std::string rest() {
        std::string text(reinterpret_cast<const char*>(data) + position, size - position);
        position = size;
        return text;
    }

private:
    const std::uint8_t* data;
    std::size_t size;
    std::size_t position = 0;
};

}  // namespace quor::fuzz
