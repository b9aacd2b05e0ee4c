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
#include <cstring>
#include <exception>
#include <functional>
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

// Runs `body` on a fresh thread with a 512 MiB stack (virtual memory only)
// and waits for it. Exceptions are sorted as told above.
inline void runGuarded(unsigned allowed, const std::function<void()>& body) {
    detail::Work work{&body, allowed};
    pthread_attr_t attributes;
    pthread_t thread;
    bool started = pthread_attr_init(&attributes) == 0 &&
                   pthread_attr_setstacksize(&attributes, std::size_t{512} << 20) == 0 &&
                   pthread_create(&thread, &attributes, detail::runWork, &work) == 0;
    pthread_attr_destroy(&attributes);
    if (started) {
        pthread_join(thread, nullptr);
    } else {
        detail::runWork(&work);
    }
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
