// Times each step of one front-end pass in this process, best of a number
// of passes: scanning, parsing, analysis (which frees each function's body
// once checked), and then freeing the analyzer, what is left of the tree
// and the tokens, which the pass's owner pays for too.
//   quor_stages LINES [PASSES]   over a generated document of LINES lines
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "diagnostics/DiagnosticEngine.h"
#include "generator/QuorDocuments.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"
#include "sema/SemanticAnalyzer.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::array<const char*, 6> STAGES = {"scan", "parse", "analyze", "free analyzer", "free tree",
                                               "free tokens"};
constexpr const char* URI = "file:///home/user/projects/inventory/src/warehouse/stock_levels.quor";

double millisecondsBetween(Clock::time_point from, Clock::time_point to) {
    return std::chrono::duration<double, std::milli>(to - from).count();
}

std::array<double, STAGES.size()> onePass(const std::string& text) {
    std::array<Clock::time_point, STAGES.size() + 1> at{};
    std::ostream discard(nullptr);
    quor::diagnostics::DiagnosticEngine engine(discard);
    at[0] = Clock::now();
    std::vector<quor::lexer::Token> tokens = quor::lexer::Lexer(text, URI, &engine).tokenizeAll();
    at[1] = Clock::now();
    std::unique_ptr<quor::ast::Program> program = quor::parser::Parser(tokens, URI, &engine).parseProgram();
    at[2] = Clock::now();
    auto analyzer = std::make_unique<quor::sema::SemanticAnalyzer>(engine);
    analyzer->analyzeReleasingBodies(*program);  // as every pass of the server and of quor check
    at[3] = Clock::now();
    analyzer.reset();
    at[4] = Clock::now();
    program.reset();
    at[5] = Clock::now();
    std::vector<quor::lexer::Token>().swap(tokens);
    at[6] = Clock::now();
    std::array<double, STAGES.size()> spent{};
    for (std::size_t i = 0; i < STAGES.size(); ++i) spent[i] = millisecondsBetween(at[i], at[i + 1]);
    return spent;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: quor_stages LINES [PASSES]\n");
        return 2;
    }
    const std::size_t lines = std::strtoul(argv[1], nullptr, 10);
    const int passes = argc > 2 ? std::max(1, std::atoi(argv[2])) : 10;
    const std::string text = quor::bench::realisticDocument(lines);
    std::array<double, STAGES.size()> best{};
    best.fill(1e300);
    for (int pass = 0; pass < passes; ++pass) {
        const auto spent = onePass(text);
        for (std::size_t i = 0; i < STAGES.size(); ++i) best[i] = std::min(best[i], spent[i]);
    }
    double total = 0;
    std::printf("%zu lines, best of %d passes, ms\n", lines, passes);
    for (std::size_t i = 0; i < STAGES.size(); ++i) {
        std::printf("%-14s %8.2f\n", STAGES[i], best[i]);
        total += best[i];
    }
    std::printf("%-14s %8.2f\n", "sum", total);
    return 0;
}
