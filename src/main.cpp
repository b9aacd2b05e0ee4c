// Process entry: the version and help switches, otherwise the language
// server over standard input and output.
#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <string_view>

#include "lsp/LspServer.h"

#ifdef _WIN32
#include <io.h>
#endif

namespace {

constexpr std::string_view VERSION_TEXT =
    "quorls (Quor Language Server) version 1.0.0\n"
    "Copyright (c) 2026 The quorls developers\n";

constexpr std::string_view HELP_PIECES[] = {
    "Usage: quorls [options]\n\n",
    "Options:\n",
    "  -v, --version  Display language server version\n",
    "  -h, --help     Display this help message\n\n",
    "quorls operates as a Language Server Protocol (LSP) daemon communicating over stdio.\n",
};

// A whole document arrives with every change. Through a pipe of the usual
// 64 KiB the editor can only write that much before it waits for the server
// to read; a larger pipe lets it hand over a large document in a few writes,
// and start while the server is still tidying up after the last message.
// Where standard input is no pipe, or the system refuses, nothing changes.
void widenInputPipe() {
#ifdef F_SETPIPE_SZ
    constexpr int PIPE_BYTES = 1 << 20;
    (void)fcntl(0, F_SETPIPE_SZ, PIPE_BYTES);
#endif
}

bool isSwitch(std::string_view argument, std::string_view shortForm, std::string_view longForm) {
    return argument == shortForm || argument == longForm;
}

void serveStandardStreams() {
    quor::lsp::LspServer server(std::cin, std::cout);
    server.run();
}

// Deeply nested input is read by plain recursion, so the server wants a
// generous stack: 1 GiB of address space, reserved but not touched.
constexpr rlim_t STACK_SIZE = rlim_t{1} << 30;

bool mainStackIsLarge() {
    rlimit limit{};
    return getrlimit(RLIMIT_STACK, &limit) == 0 && (limit.rlim_cur == RLIM_INFINITY || limit.rlim_cur >= STACK_SIZE);
}

// The main thread's stack may grow as far as the limit in force when the
// program was started. Raises that limit and starts the program again, in
// the same process and before anything was read; returns only where the
// limit may not be raised or the restart fails.
void restartWithLargeStack(char** argv) {
    rlimit limit{};
    if (getrlimit(RLIMIT_STACK, &limit) != 0) return;
    if (limit.rlim_max != RLIM_INFINITY && limit.rlim_max < STACK_SIZE) return;
    const rlimit before = limit;
    limit.rlim_cur = STACK_SIZE;
    if (setrlimit(RLIMIT_STACK, &limit) != 0) return;
    // The program's own path, so that it keeps its name among the processes;
    // the kernel's link to it where the path can't be read.
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    if (length > 0) {
        path[length] = '\0';
        execv(path, argv);
    }
    execv("/proc/self/exe", argv);
    (void)setrlimit(RLIMIT_STACK, &before);
}

void* serverThreadMain(void*) {
    serveStandardStreams();
    return nullptr;
}

// The server runs on the main thread, so that the process has one thread:
// the standard library then counts shared pointers (types and symbols)
// without atomic instructions, which cost a fifth of a 10,000-line pass.
// Where the main thread's stack can't be made large, the server runs on a
// thread of its own with that stack instead.
void runWithLargeStack(char** argv) {
    if (!mainStackIsLarge()) restartWithLargeStack(argv);
    if (mainStackIsLarge()) {
        serveStandardStreams();
        return;
    }
    pthread_attr_t attributes;
    pthread_t thread;
    bool started = pthread_attr_init(&attributes) == 0 &&
                   pthread_attr_setstacksize(&attributes, STACK_SIZE) == 0 &&
                   pthread_create(&thread, &attributes, serverThreadMain, nullptr) == 0;
    pthread_attr_destroy(&attributes);
    if (started) {
        pthread_join(thread, nullptr);
    } else {
        serveStandardStreams();  // no big stack to be had: serve on this one
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc >= 2) {
        std::string_view first(argv[1], std::strlen(argv[1]));
        if (isSwitch(first, "-v", "--version")) {
            std::cout << VERSION_TEXT;
            return 0;
        }
        if (isSwitch(first, "-h", "--help")) {
            for (std::string_view piece : HELP_PIECES) std::cout << piece;
            return 0;
        }
    }
#ifdef _WIN32
    _setmode(_fileno(stdin), 0x8000);
    _setmode(_fileno(stdout), 0x8000);
#endif
    // An exception nobody catches ends the process quietly: nothing is ever
    // written to standard error.
    std::set_terminate([] { std::abort(); });
    std::ios::sync_with_stdio(false);
    widenInputPipe();
    runWithLargeStack(argv);
    return 0;
}
