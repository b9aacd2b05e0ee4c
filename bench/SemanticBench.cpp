// The analysis stage on a realistic document: building the analyzer (types,
// built-in classes and globals), name resolution, type checking, and the
// whole stage. Each case parses its tree outside the timed region, since the
// checker writes inferred return types back into the tree it checks.
#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>
#include <vector>

#include "diagnostics/DiagnosticEngine.h"
#include "generator/QuorDocuments.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"
#include "sema/SemanticAnalyzer.h"

namespace {

using quor::diagnostics::DiagnosticEngine;

std::unique_ptr<quor::ast::Program> parseDocument(const std::string& text, DiagnosticEngine& engine) {
    quor::lexer::Lexer scanner(text, "bench.quor", &engine);
    std::vector<quor::lexer::Token> tokens = scanner.tokenizeAll();
    quor::parser::Parser parser(tokens, "bench.quor", &engine);
    return parser.parseProgram();
}

void BM_AnalyzerSetup(benchmark::State& state) {
    std::ostringstream sink;
    DiagnosticEngine engine(sink);
    for (auto _ : state) {
        quor::sema::SemanticAnalyzer analyzer(engine);
        benchmark::DoNotOptimize(&analyzer);
    }
}
BENCHMARK(BM_AnalyzerSetup)->Unit(benchmark::kMicrosecond);

void BM_Resolver(benchmark::State& state) {
    const std::string text = quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0)));
    std::ostringstream sink;
    DiagnosticEngine engine(sink);
    auto program = parseDocument(text, engine);
    for (auto _ : state) {
        state.PauseTiming();
        auto analyzer = std::make_unique<quor::sema::SemanticAnalyzer>(engine);
        state.ResumeTiming();
        analyzer->resolver.resolve(*program);
        state.PauseTiming();
        analyzer.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Resolver)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_Checker(benchmark::State& state) {
    const std::string text = quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0)));
    std::ostringstream sink;
    DiagnosticEngine engine(sink);
    for (auto _ : state) {
        state.PauseTiming();
        auto program = parseDocument(text, engine);
        auto analyzer = std::make_unique<quor::sema::SemanticAnalyzer>(engine);
        analyzer->resolver.resolve(*program);
        state.ResumeTiming();
        analyzer->checker.check(*program);
        state.PauseTiming();
        analyzer.reset();
        program.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Checker)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_Analyzer(benchmark::State& state) {
    const std::string text = quor::bench::realisticDocument(static_cast<std::size_t>(state.range(0)));
    std::ostringstream sink;
    DiagnosticEngine engine(sink);
    for (auto _ : state) {
        state.PauseTiming();
        auto program = parseDocument(text, engine);
        state.ResumeTiming();
        {
            quor::sema::SemanticAnalyzer analyzer(engine);
            benchmark::DoNotOptimize(analyzer.analyze(*program));
        }
        state.PauseTiming();
        program.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Analyzer)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
