// The example programs as an editor sees them. The realistic programs are
// published with an empty list; each program under mistakes/ is published
// with exactly the diagnostics its mistakes call for, in report order.

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "e2e/PublishedDiagnostics.h"

using quor::e2e::diagnosticAt;
using quor::e2e::expectPublished;
using quor::e2e::Published;

namespace {

std::string readExample(const std::string& name) {
    std::ifstream file(std::string(QUOR_EXAMPLES_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file.good()) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void expectExamplePublished(const std::string& name, const std::vector<Published>& diagnostics) {
    expectPublished(readExample(name), diagnostics, "file:///examples/" + name);
}

std::string mismatch(const std::string& declared, const std::string& value) {
    return "Type mismatch: cannot initialize variable of type '" + declared + "' with value of type '" + value + "'";
}

}  // namespace

TEST(ExamplesWire, LibraryProgramIsClean) { expectExamplePublished("library.quor", {}); }

TEST(ExamplesWire, PipelineProgramIsClean) { expectExamplePublished("pipeline.quor", {}); }

TEST(ExamplesWire, InventoryProgramIsClean) { expectExamplePublished("inventory.quor", {}); }

TEST(ExamplesWire, LibraryMistakesAreEachReportedInOrder) {
    const std::string name = "mistakes/library_mistakes.quor";
    const std::string src = readExample(name);
    expectExamplePublished(
        name,
        {diagnosticAt(src, 66, "new", "E1001", "Cannot instantiate abstract class 'Item'"),
         diagnosticAt(src, 69, "(", "E1008",
                      "Null safety violation: call on nullable type 'string?' requires safe navigation '?.' "
                      "(Use obj?.upper(...))",
                      2),
         diagnosticAt(src, 70, "(", "E1001", "No matching overload for function 'lend' with argument types ()"),
         diagnosticAt(src, 71, ".", "E1006", "Cannot access private field 'pages' of class 'Book'"),
         diagnosticAt(src, 72, "(", "E1006", "Cannot access private method 'shelfMark' of class 'Book'"),
         diagnosticAt(src, 73, ".", "E1002", "Enum 'Status' has no variant named 'Lost'"),
         diagnosticAt(src, 74, "(", "E1001", "No matching overload for function 'checkout' with argument types (Book)"),
         diagnosticAt(src, 75, "(", "E1003", "Undefined function or method 'borrow'"),
         diagnosticAt(src, 76, "who", "E1001", mismatch("string", "string?")),
         diagnosticAt(src, 78, "=", "E1005",
                      "Cannot assign to constant 'limit' (Constants are immutable and cannot be reassigned)"),
         diagnosticAt(src, 80, "=", "E1001", "Cannot assign value of type 'string' to variable of type 'int'"),
         diagnosticAt(src, 82, "[", "E1001", "Type 'string' does not support indexing"),
         diagnosticAt(src, 83, "=", "E1008",
                      "Null safety violation: cannot assign null to non-nullable type 'string' (Change variable type "
                      "to 'string?' to allow null)")});
}

TEST(ExamplesWire, PipelineMistakesAreEachReportedInOrder) {
    const std::string name = "mistakes/pipeline_mistakes.quor";
    const std::string src = readExample(name);
    expectExamplePublished(
        name,
        {// Inside an interpolation a place counts from the start of the piece
         // "reading.kelvin": its dot is the eighth byte of the piece's first line.
         Published{"E1002", 1, 8, "Struct 'Reading' has no field named 'kelvin'"},
         diagnosticAt(src, 50, "picked", "E1001", mismatch("int", "string")),
         diagnosticAt(src, 51, "+", "E1001",
                      "Operator '+' cannot be applied to types 'double?' and 'double' (Operands must be numeric)"),
         diagnosticAt(src, 52, "[", "E1001", "Array index must be an integer, got 'string'"),
         diagnosticAt(src, 53, "[", "E1001", "Map key type mismatch: expected 'string', got 'int'"),
         diagnosticAt(src, 54, "(", "E1003", "Type 'int[]' has no method named 'sum'"),
         diagnosticAt(src, 56, "doubled", "E1001", mismatch("int", "unknown")),
         diagnosticAt(src, 58, "answer", "E1001", mismatch("int", "string")),
         diagnosticAt(src, 59, "(", "E1003", "Undefined function or method 'right'"),
         diagnosticAt(src, 60, "new", "E1001", "Cannot instantiate non-class type 'Reading' with 'new'"),
         diagnosticAt(src, 61, "new", "E1002", "Undefined class 'Sensor' in 'new' expression"),
         diagnosticAt(src, 62, "labels", "E1001", mismatch("string[]", "int[]")),
         diagnosticAt(src, 63, ".", "E1002", "Type 'Map<string, int>' has no member 'size'")});
}

TEST(ExamplesWire, InventoryMistakesAreEachReportedInOrder) {
    const std::string name = "mistakes/inventory_mistakes.quor";
    const std::string src = readExample(name);
    expectExamplePublished(
        name,
        {diagnosticAt(src, 47, "(", "E1001", "No matching overload for function 'adjust' with argument types (string)"),
         diagnosticAt(src, 48, "(", "E1001", "No matching overload for function 'money' with argument types (bool)"),
         diagnosticAt(src, 49, "=", "E1001", "Cannot assign value of type 'double' to variable of type 'fn() -> double'"),
         diagnosticAt(src, 51, ".", "E1008",
                      "Null safety violation: access on nullable type 'Product?' requires safe navigation '?.' (Use "
                      "obj?.name)"),
         diagnosticAt(src, 52, "=", "E1008",
                      "Null safety violation: cannot assign null to non-nullable type 'Product' (Change variable type "
                      "to 'Product?' to allow null)"),
         diagnosticAt(src, 53, "(", "E1006", "Cannot access private method 'sameAs' of class 'Product'"),
         diagnosticAt(src, 54, ".", "E1006", "Cannot access private field 'unitPrice' of class 'Product'"),
         diagnosticAt(src, 56, "=", "E1001", "Cannot assign value of type 'int' to variable of type 'string'"),
         diagnosticAt(src, 57, ".", "E1002", "Type 'Map<string, Product>' has no member 'size'"),
         diagnosticAt(src, 58, "(", "E1003", "Type 'int' has no method named 'upper'", 2),
         diagnosticAt(src, 59, ".", "E1002", "Enum 'Movement' has no variant named 'Return'"),
         diagnosticAt(src, 60, "(", "E1003", "Undefined function or callable symbol 'undefinedHelper'")});
}

TEST(ExamplesWire, DeclarationOrderMistakeHidesTheTypeErrorsBehindIt) {
    const std::string name = "mistakes/declaration_order.quor";
    const std::string src = readExample(name);
    expectExamplePublished(name, {diagnosticAt(src, 6, "fn", "E1002",
                                               "Undefined type 'Basket' (Check the type name or make sure the "
                                               "class/struct/enum is defined)")});
}
