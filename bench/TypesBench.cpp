// The fixed cost that every analysis pays before it reads a line: a fresh
// type context (primitives and the ten built-in classes) and a symbol table
// filled with the built-in globals, then both torn down again.
#include <benchmark/benchmark.h>

#include "sema/Symbol.h"
#include "sema/TypeContext.h"

namespace {

void BM_TypeContextWithBuiltinGlobals(benchmark::State& state) {
    for (auto _ : state) {
        quor::sema::TypeContext types;
        quor::sema::SymbolTable symbols;
        symbols.initBuiltins(types);
        benchmark::DoNotOptimize(symbols.globalScope.get());
    }
}
BENCHMARK(BM_TypeContextWithBuiltinGlobals)->Unit(benchmark::kMicrosecond);

void BM_ResolveTypeText(benchmark::State& state) {
    quor::sema::TypeContext types;
    for (auto _ : state) {
        benchmark::DoNotOptimize(types.resolveType("Map<string, List<int[]>?>"));
    }
}
BENCHMARK(BM_ResolveTypeText);

}  // namespace
