// The speed table: drives the built `quorls` over its standard input and
// output, as an editor would, and times whole messages on generated
// documents of 1,000, 10,000 and 100,000 lines; runs every adversarial
// document through a fresh server; and times `quor check` against
// `clang -fsyntax-only` on a C file of the same shape and line count.
//
//   quor_speed [--quorls PATH] [--quor PATH] [--clang PATH] [--quick] [--only SECTION]
//
// SECTION is one of "requests", "adversarial", "check". --quick runs fewer
// rounds, for a smoke test of the tool itself.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "ServerSession.h"
#include "generator/QuorDocuments.h"

namespace {

using quor::bench::jsonEscape;
using quor::bench::nowSeconds;
using quor::bench::ServerSession;

// A document URI as an editor sends it: long enough that no string keeps it
// inline.
const std::string DOCUMENT_URI = "file:///home/user/projects/inventory/src/warehouse/stock_levels.quor";

struct Options {
    std::string quorls = QUORLS_BINARY;
    std::string quor = QUOR_CLI_BINARY;
    std::string clang = "clang";
    bool quick = false;
    std::string only;
};

struct Summary {
    double median = 0;
    double low = 0;
    double high = 0;
    std::size_t failures = 0;
};

Summary summarize(std::vector<double> samples, std::size_t failures) {
    Summary summary;
    summary.failures = failures;
    if (samples.empty()) return summary;
    std::sort(samples.begin(), samples.end());
    const std::size_t n = samples.size();
    summary.median = n % 2 == 1 ? samples[n / 2] : (samples[n / 2 - 1] + samples[n / 2]) / 2;
    // Spread: the 10th and 90th percentiles (the extremes for few samples).
    summary.low = samples[n / 10];
    summary.high = samples[n - 1 - n / 10];
    return summary;
}

std::string milliseconds(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", seconds * 1000);
    return text;
}

std::string cell(const Summary& summary) {
    if (summary.failures != 0 && summary.median == 0) return "FAILED";
    std::string text = milliseconds(summary.median) + " (" + milliseconds(summary.low) + "-" +
                       milliseconds(summary.high) + ")";
    if (summary.failures != 0) text += " [" + std::to_string(summary.failures) + " failed]";
    return text;
}

std::string textDocumentParams(const std::string& extra = "") {
    return R"({"textDocument":{"uri":")" + jsonEscape(DOCUMENT_URI) + "\"}" + extra + "}";
}

std::string positionParams(quor::bench::TextPosition position, const std::string& extra = "") {
    return textDocumentParams(R"(,"position":{"line":)" + std::to_string(position.line) + R"(,"character":)" +
                              std::to_string(position.character) + "}" + extra);
}

std::string openParams(const std::string& text) {
    return R"({"textDocument":{"uri":")" + jsonEscape(DOCUMENT_URI) +
           R"(","languageId":"quor","version":1,"text":")" + jsonEscape(text) + "\"}}";
}

std::string changeParams(const std::string& text, int version) {
    return R"({"textDocument":{"uri":")" + jsonEscape(DOCUMENT_URI) + R"(","version":)" + std::to_string(version) +
           R"(},"contentChanges":[{"text":")" + jsonEscape(text) + "\"}]}";
}

bool initialize(ServerSession& server) {
    std::string body;
    if (server.request("initialize", R"({"processId":null,"rootUri":null,"capabilities":{}})", body, 10) < 0) {
        return false;
    }
    return server.send(R"({"jsonrpc":"2.0","method":"initialized","params":{}})");
}

struct SizeRow {
    std::size_t lines = 0;
    Summary change, completion, hover, definition, rename, formatting;
    std::uint64_t peakKiB = 0;
    bool cleanExit = false;
};

// One keystroke: the text with one blank more or less at the end of its
// first line, so that every change really changes the document.
std::string keystroke(const std::string& text, int round) {
    if (round % 2 == 0) return text;
    std::string changed = text;
    changed.insert(changed.find('\n'), " ");
    return changed;
}

SizeRow measureSize(const Options& options, std::size_t lines, int rounds) {
    SizeRow row;
    row.lines = lines;
    const std::string text = quor::bench::realisticDocument(lines);
    // The word under the cursor: a call of a function of the middle copy,
    // inside a body, so that hover and definition search half the document.
    const std::size_t copies = lines / quor::bench::realisticUnitLines();
    const std::string name = "totalAmount" + std::to_string(copies / 2);
    const quor::bench::TextPosition declaration = quor::bench::findWord(text, "fn " + name);
    quor::bench::TextPosition use = quor::bench::findWord(text, name + "(records)", declaration.line + 1);
    if (use.line < 0) use = quor::bench::findWord(text, "filler0");

    ServerSession server(options.quorls);
    std::string body;
    if (!initialize(server)) return row;
    if (server.notifyAndAwaitPublication("textDocument/didOpen", openParams(text), body) < 0) return row;

    std::vector<double> samples;
    std::size_t failures = 0;
    auto collect = [&](double seconds) {
        if (seconds < 0) {
            ++failures;
        } else {
            samples.push_back(seconds);
        }
    };
    auto finishSeries = [&]() {
        Summary summary = summarize(samples, failures);
        samples.clear();
        failures = 0;
        return summary;
    };

    for (int round = 1; round <= rounds; ++round) {
        collect(server.notifyAndAwaitPublication("textDocument/didChange",
                                                 changeParams(keystroke(text, round), round + 1), body));
    }
    row.change = finishSeries();
    // The document is back to `text`: the last round above was even.
    if (rounds % 2 == 1) server.notifyAndAwaitPublication("textDocument/didChange", changeParams(text, 0), body);

    const std::string completion = positionParams(use, R"(,"context":{"triggerKind":1})");
    for (int round = 0; round < rounds; ++round) collect(server.request("textDocument/completion", completion, body));
    row.completion = finishSeries();
    const std::string hover = positionParams({use.line, use.character + 2});
    for (int round = 0; round < rounds; ++round) collect(server.request("textDocument/hover", hover, body));
    row.hover = finishSeries();
    if (body.find(name) == std::string::npos) ++row.hover.failures;  // the hover must find the declaration
    for (int round = 0; round < rounds; ++round) collect(server.request("textDocument/definition", hover, body));
    row.definition = finishSeries();
    const std::string rename = positionParams({use.line, use.character + 2}, R"(,"newName":"sumOfAmounts")");
    for (int round = 0; round < rounds; ++round) collect(server.request("textDocument/rename", rename, body));
    row.rename = finishSeries();
    const std::string formatting =
        textDocumentParams(R"(,"options":{"tabSize":4,"insertSpaces":true})");
    for (int round = 0; round < rounds; ++round) collect(server.request("textDocument/formatting", formatting, body));
    row.formatting = finishSeries();

    row.peakKiB = server.peakResidentKiB();
    row.cleanExit = server.finish();
    return row;
}

struct AdversarialRow {
    std::string name;
    std::size_t bytes = 0;
    double publish = -1;
    double requests = -1;  // completion, hover, definition, rename and formatting together
    std::size_t published = 0;
    std::uint64_t peakKiB = 0;
    bool cleanExit = false;
};

std::size_t countOccurrences(const std::string& text, std::string_view what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size())) ++count;
    return count;
}

AdversarialRow measureAdversarial(const Options& options, const quor::bench::AdversarialDocument& document) {
    AdversarialRow row;
    row.name = document.name;
    row.bytes = document.text.size();
    ServerSession server(options.quorls);
    std::string body;
    if (!initialize(server)) return row;
    row.publish = server.notifyAndAwaitPublication("textDocument/didOpen", openParams(document.text), body);
    row.published = countOccurrences(body, "\"source\":\"quorls\"");
    const quor::bench::TextPosition start{0, 3};
    double total = 0;
    bool failed = row.publish < 0;
    for (const char* method : {"textDocument/completion", "textDocument/hover", "textDocument/definition"}) {
        double seconds = server.request(method, positionParams(start), body);
        failed = failed || seconds < 0;
        total += seconds;
    }
    double seconds = server.request("textDocument/rename", positionParams(start, R"(,"newName":"renamed")"), body);
    failed = failed || seconds < 0;
    total += seconds;
    seconds = server.request("textDocument/formatting", textDocumentParams(), body);
    failed = failed || seconds < 0;
    total += seconds;
    row.requests = failed ? -1 : total;
    row.peakKiB = server.peakResidentKiB();
    row.cleanExit = server.finish();
    return row;
}

// Runs a command with its output thrown away; the wall-clock seconds, or a
// negative number when it could not run. The exit status is not judged:
// `quor check` exits with 1 on a source with errors.
double timeCommand(const std::vector<std::string>& command) {
    const double start = nowSeconds();
    pid_t pid = fork();
    if (pid == 0) {
        int devNull = open("/dev/null", O_WRONLY);
        dup2(devNull, STDOUT_FILENO);
        dup2(devNull, STDERR_FILENO);
        std::vector<char*> argv;
        for (const std::string& part : command) argv.push_back(const_cast<char*>(part.c_str()));
        argv.push_back(nullptr);
        execvp(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    const double seconds = nowSeconds() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 127) return -1;
    return seconds;
}

struct CheckRow {
    std::size_t lines = 0;
    Summary quor, clang;
};

CheckRow measureCheck(const Options& options, const std::string& directory, std::size_t lines, int rounds) {
    CheckRow row;
    row.lines = lines;
    const std::string quorFile = directory + "/stock_levels_" + std::to_string(lines) + ".quor";
    const std::string cFile = directory + "/stock_levels_" + std::to_string(lines) + ".c";
    std::ofstream(quorFile, std::ios::binary) << quor::bench::realisticDocument(lines);
    std::ofstream(cFile, std::ios::binary) << quor::bench::realisticCDocument(lines);
    std::vector<double> quorSamples;
    std::vector<double> clangSamples;
    std::size_t quorFailures = 0;
    std::size_t clangFailures = 0;
    // Interleaved, so that a burst of load elsewhere on the machine hits both.
    for (int round = 0; round < rounds; ++round) {
        double seconds = timeCommand({options.quor, "check", quorFile});
        if (seconds < 0) ++quorFailures; else quorSamples.push_back(seconds);
        seconds = timeCommand({options.clang, "-fsyntax-only", cFile});
        if (seconds < 0) ++clangFailures; else clangSamples.push_back(seconds);
    }
    row.quor = summarize(quorSamples, quorFailures);
    row.clang = summarize(clangSamples, clangFailures);
    std::remove(quorFile.c_str());
    std::remove(cFile.c_str());
    return row;
}

Options parseOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--quorls" && hasValue) {
            options.quorls = argv[++i];
        } else if (arg == "--quor" && hasValue) {
            options.quor = argv[++i];
        } else if (arg == "--clang" && hasValue) {
            options.clang = argv[++i];
        } else if (arg == "--only" && hasValue) {
            options.only = argv[++i];
        } else if (arg == "--quick") {
            options.quick = true;
        } else {
            std::fprintf(stderr,
                         "usage: quor_speed [--quorls PATH] [--quor PATH] [--clang PATH] [--quick] "
                         "[--only requests|adversarial|check]\n");
            std::exit(2);
        }
    }
    return options;
}

std::string mebibytes(std::uint64_t kib) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f MiB", static_cast<double>(kib) / 1024);
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    const Options options = parseOptions(argc, argv);
    const bool all = options.only.empty();
    std::printf("quorls: %s\nquor:   %s\nclang:  %s\n\n", options.quorls.c_str(), options.quor.c_str(),
                options.clang.c_str());

    if (all || options.only == "requests") {
        std::printf("Latency per message over stdio, ms: median (10th-90th percentile)\n");
        std::printf("URI %s\n\n", DOCUMENT_URI.c_str());
        std::printf("| lines | change to publish | completion | hover | definition | rename | formatting | peak RSS |\n");
        std::printf("|---|---|---|---|---|---|---|---|\n");
        // Enough rounds that one slow message (the machine is shared) moves
        // no median, and the growth ratio with it.
        const std::pair<std::size_t, int> sizes[] = {{1000, options.quick ? 5 : 200},
                                                     {10000, options.quick ? 3 : 100},
                                                     {100000, options.quick ? 2 : 21}};
        double change10k = 0;
        double change100k = 0;
        for (const auto& [lines, rounds] : sizes) {
            SizeRow row = measureSize(options, lines, rounds);
            std::printf("| %zu | %s | %s | %s | %s | %s | %s | %s%s |\n", lines, cell(row.change).c_str(),
                        cell(row.completion).c_str(), cell(row.hover).c_str(), cell(row.definition).c_str(),
                        cell(row.rename).c_str(), cell(row.formatting).c_str(), mebibytes(row.peakKiB).c_str(),
                        row.cleanExit ? "" : " (no clean exit)");
            std::fflush(stdout);
            if (lines == 10000) change10k = row.change.median;
            if (lines == 100000) change100k = row.change.median;
        }
        if (change10k > 0) std::printf("\nchange to publish, 100k / 10k: %.1f\n", change100k / change10k);
        std::printf("\n");
    }

    if (all || options.only == "adversarial") {
        std::printf("Adversarial documents, each in a fresh server: open to publication, then one completion,\n"
                    "hover, definition, rename and formatting together (ms)\n\n");
        std::printf("| document | bytes | open to publish | diagnostics | five requests | peak RSS | exit |\n");
        std::printf("|---|---|---|---|---|---|---|\n");
        for (const quor::bench::AdversarialDocument& document : quor::bench::adversarialDocuments()) {
            AdversarialRow row = measureAdversarial(options, document);
            std::printf("| %s | %zu | %s | %zu | %s | %s | %s |\n", row.name.c_str(), row.bytes,
                        row.publish < 0 ? "FAILED" : milliseconds(row.publish).c_str(), row.published,
                        row.requests < 0 ? "FAILED" : milliseconds(row.requests).c_str(),
                        mebibytes(row.peakKiB).c_str(), row.cleanExit ? "clean" : "CRASH or hang");
            std::fflush(stdout);
        }
        std::printf("\n");
    }

    if (all || options.only == "check") {
        char directory[] = "/tmp/quor_speed_XXXXXX";
        if (mkdtemp(directory) == nullptr) return 1;
        std::printf("quor check against clang -fsyntax-only on a C file of the same shape, ms: median (spread)\n\n");
        std::printf("| lines | quor check | clang -fsyntax-only | ratio |\n|---|---|---|---|\n");
        for (std::size_t lines : {1000U, 10000U, 100000U}) {
            CheckRow row = measureCheck(options, directory, lines, options.quick ? 3 : (lines == 100000 ? 11 : 21));
            std::printf("| %zu | %s | %s | %.2f |\n", lines, cell(row.quor).c_str(), cell(row.clang).c_str(),
                        row.clang.median > 0 ? row.quor.median / row.clang.median : 0.0);
            std::fflush(stdout);
        }
        rmdir(directory);
    }
    return 0;
}
