// Throughput of the stages that run on every keystroke, over a large document.
#include <benchmark/benchmark.h>

#include <sstream>

#include "BenchInput.h"
#include "diagnostics/DiagnosticEngine.h"
#include "doc/DocGenerator.h"
#include "fmt/Formatter.h"
#include "generator/QuorDocuments.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"

namespace {

void BM_Scanner(benchmark::State& state) {
    std::string text = quor::bench::largeDocument(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        quor::lexer::Lexer lexer(text, "bench.quor", nullptr);
        auto tokens = lexer.tokenizeAll();
        benchmark::DoNotOptimize(tokens.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_Scanner)->Arg(10)->Arg(100);

void BM_ScanAndParse(benchmark::State& state) {
    std::string text = quor::bench::largeDocument(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::ostringstream sink;
        quor::diagnostics::DiagnosticEngine engine(sink);
        quor::lexer::Lexer lexer(text, "bench.quor", &engine);
        auto tokens = lexer.tokenizeAll();
        quor::parser::Parser parser(tokens, "bench.quor", &engine);
        benchmark::DoNotOptimize(parser.parseProgram());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_ScanAndParse)->Arg(10)->Arg(100);

void BM_Formatter(benchmark::State& state) {
    std::string text = quor::bench::largeDocument(static_cast<int>(state.range(0)));
    quor::fmt::Formatter formatter(quor::fmt::FormatOptions{});
    for (auto _ : state) {
        benchmark::DoNotOptimize(formatter.format(text));
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_Formatter)->Arg(10)->Arg(100);

void BM_ExtractModule(benchmark::State& state) {
    std::string text = quor::bench::largeDocument(static_cast<int>(state.range(0)));
    quor::doc::DocGenerator generator(quor::doc::defaultDocOptions());
    for (auto _ : state) {
        benchmark::DoNotOptimize(generator.extractModule(text, "file:///bench.quor"));
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_ExtractModule)->Arg(10)->Arg(100);

// The same stages on the generated realistic document, by line count, with
// the long document URI that the server sees.
constexpr const char* DOCUMENT_URI = "file:///home/user/projects/inventory/src/warehouse/stock_levels.quor";

void BM_ScannerLines(benchmark::State& state) {
    const std::string text = quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        quor::lexer::Lexer lexer(text, DOCUMENT_URI, nullptr);
        auto tokens = lexer.tokenizeAll();
        benchmark::DoNotOptimize(tokens.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_ScannerLines)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_ParserLines(benchmark::State& state) {
    const std::string text = quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0)));
    std::ostringstream sink;
    quor::diagnostics::DiagnosticEngine engine(sink);
    quor::lexer::Lexer lexer(text, DOCUMENT_URI, &engine);
    const auto tokens = lexer.tokenizeAll();
    for (auto _ : state) {
        quor::parser::Parser parser(tokens, DOCUMENT_URI, &engine);
        benchmark::DoNotOptimize(parser.parseProgram());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_ParserLines)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_FormatterLines(benchmark::State& state) {
    const std::string text = quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0)));
    quor::fmt::Formatter formatter(quor::fmt::FormatOptions{});
    for (auto _ : state) {
        benchmark::DoNotOptimize(formatter.format(text));
    }
}
BENCHMARK(BM_FormatterLines)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_ExtractModuleLines(benchmark::State& state) {
    const std::string text = quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0)));
    quor::doc::DocGenerator generator(quor::doc::defaultDocOptions());
    for (auto _ : state) {
        benchmark::DoNotOptimize(generator.extractModule(text, DOCUMENT_URI));
    }
}
BENCHMARK(BM_ExtractModuleLines)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
