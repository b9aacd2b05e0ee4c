// Cost of whole messages as the server sees them: a keystroke (didChange with
// its diagnostics pass), a completion and a hover on a large document.
#include <benchmark/benchmark.h>

#include <sstream>

#include "BenchInput.h"
#include "generator/QuorDocuments.h"
#include "lsp/JsonValue.h"
#include "lsp/LspServer.h"

namespace {

using quor::lsp::JsonValue;
using quor::lsp::LspServer;

std::string changeMessage(const std::string& text) {
    JsonValue message;
    message["jsonrpc"] = JsonValue("2.0");
    message["method"] = JsonValue("textDocument/didChange");
    message["params"]["textDocument"]["uri"] = JsonValue("file:///bench.quor");
    JsonValue change;
    change["text"] = JsonValue(text);
    message["params"]["contentChanges"].push(std::move(change));
    return message.serialize();
}

std::string positionRequest(const char* method, int line, int character) {
    JsonValue message;
    message["jsonrpc"] = JsonValue("2.0");
    message["id"] = JsonValue(1);
    message["method"] = JsonValue(method);
    message["params"]["textDocument"]["uri"] = JsonValue("file:///bench.quor");
    message["params"]["position"]["line"] = JsonValue(line);
    message["params"]["position"]["character"] = JsonValue(character);
    return message.serialize();
}

void BM_DidChangeWithDiagnostics(benchmark::State& state) {
    std::string body = changeMessage(quor::bench::largeDocument(static_cast<int>(state.range(0))));
    std::istringstream in;
    std::ostringstream out;
    LspServer server(in, out);
    for (auto _ : state) {
        out.str("");
        benchmark::DoNotOptimize(server.handleMessage(body));
    }
}
BENCHMARK(BM_DidChangeWithDiagnostics)->Arg(10)->Arg(100);

void BM_RequestOnLargeDocument(benchmark::State& state, const char* method) {
    std::istringstream in;
    std::ostringstream out;
    LspServer server(in, out);
    server.handleMessage(changeMessage(quor::bench::largeDocument(50)));
    std::string body = positionRequest(method, 40, 5);
    for (auto _ : state) {
        benchmark::DoNotOptimize(server.handleMessage(body));
    }
}
BENCHMARK_CAPTURE(BM_RequestOnLargeDocument, completion, "textDocument/completion");
BENCHMARK_CAPTURE(BM_RequestOnLargeDocument, hover, "textDocument/hover");
BENCHMARK_CAPTURE(BM_RequestOnLargeDocument, rename, "textDocument/rename");
BENCHMARK_CAPTURE(BM_RequestOnLargeDocument, formatting, "textDocument/formatting");

void BM_JsonRoundTrip(benchmark::State& state) {
    std::string body = changeMessage(quor::bench::largeDocument(10));
    for (auto _ : state) {
        std::size_t pos = 0;
        JsonValue value = JsonValue::parseValue(body, pos);
        benchmark::DoNotOptimize(value.serialize());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(body.size()));
}
BENCHMARK(BM_JsonRoundTrip);

void BM_JsonParse(benchmark::State& state) {
    const std::string body = changeMessage(quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state) {
        std::size_t pos = 0;
        benchmark::DoNotOptimize(JsonValue::parseValue(body, pos));
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(body.size()));
}
BENCHMARK(BM_JsonParse)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_JsonSerialize(benchmark::State& state) {
    // A completion answer's shape: many small objects of four strings.
    JsonValue items = JsonValue::makeArray();
    for (int i = 0; i < state.range(0); ++i) {
        JsonValue item = JsonValue::makeObject();
        item["label"] = JsonValue("totalAmount" + std::to_string(i));
        item["kind"] = JsonValue(3);
        item["detail"] = JsonValue("fn totalAmount(records: Record[]): int");
        item["documentation"] = JsonValue("Sums the amounts of a list of records.\n\"quoted\"");
        items.push(std::move(item));
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(items.serialize());
    }
}
BENCHMARK(BM_JsonSerialize)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
