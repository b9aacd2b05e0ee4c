#pragma once

// Shared fixtures of the semantic tests: parse a Quor source, run the name
// resolver alone or the whole analyzer over it, and read back what the
// engine recorded in report order.
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"
#include "sema/SemanticAnalyzer.h"

namespace quor::sema::testing {

inline const char* const TEST_FILE = "test.quor";

// Where a symbol a test makes by hand stands: in the test's file, or among
// the built-ins.
inline const diagnostics::SourceLocation USER{TEST_FILE, 1, 1};
inline const diagnostics::SourceLocation BUILT_IN{BUILTIN_FILE, 0, 0};

// One record as "CODE|message|hint|line:column", easy to compare whole.
inline std::string describe(const diagnostics::Diagnostic& d) {
    return d.code + "|" + d.message + "|" + d.hint + "|" + std::to_string(d.location.line) + ":" +
           std::to_string(d.location.column);
}

// A parsed program with an analyzer over it. The analyzer is declared after
// the program, so it is destroyed first: its tables point into the tree.
struct Analysis {
    std::ostringstream printed;
    diagnostics::DiagnosticEngine engine{printed};
    std::vector<lexer::Token> tokens;
    std::unique_ptr<ast::Program> program;
    std::unique_ptr<SemanticAnalyzer> analyzer;

    explicit Analysis(const std::string& source) {
        lexer::Lexer scanner(source, TEST_FILE, &engine);
        tokens = scanner.tokenizeAll();
        parser::Parser parser(tokens, TEST_FILE, &engine);
        program = parser.parseProgram();
        // The semantic tests are about well-formed programs: a syntax error
        // in a test's source is a mistake in the test.
        EXPECT_EQ(engine.getErrorCount(), 0u) << "source does not scan and parse cleanly:\n"
                                              << source << "\n" << describeAll();
        analyzer = std::make_unique<SemanticAnalyzer>(engine);
    }

    // The whole analysis: resolver, then the checker if the resolver was quiet.
    Analysis& analyze() {
        analyzer->analyze(*program);
        return *this;
    }

    // The same, freeing each function's body once checked, as the server's pass does.
    Analysis& analyzeReleasingBodies() {
        analyzer->analyzeReleasingBodies(*program);
        return *this;
    }

    // Name resolution alone.
    Analysis& resolve() {
        analyzer->resolver.resolve(*program);
        return *this;
    }

    std::vector<std::string> records() const {
        std::vector<std::string> out;
        for (const auto& d : engine.getDiagnostics()) out.push_back(describe(d));
        return out;
    }

    // Only the messages, in report order.
    std::vector<std::string> messages() const {
        std::vector<std::string> out;
        for (const auto& d : engine.getDiagnostics()) out.push_back(d.message);
        return out;
    }

    std::string describeAll() const {
        std::string all;
        for (const auto& d : engine.getDiagnostics()) all += describe(d) + "\n";
        return all;
    }

    TypeContext& types() { return analyzer->types; }
    SymbolTable& symbols() { return analyzer->symbols; }
    TypeChecker& checker() { return analyzer->checker; }
};

// Analyses a whole program and returns its records. Every program is also
// analysed the way the server's pass does it, freeing each function's body
// once checked, and must be reported the same way.
inline std::vector<std::string> analyzeSource(const std::string& source) {
    Analysis analysis(source);
    analysis.analyze();
    EXPECT_EQ(Analysis(source).analyzeReleasingBodies().records(), analysis.records())
        << "freeing bodies changed the reports of:\n" << source;
    return analysis.records();
}

}  // namespace quor::sema::testing
