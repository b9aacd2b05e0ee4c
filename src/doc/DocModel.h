#pragma once

// Records that describe one source file's declarations for documentation
// and for the editor features that look declarations up by name.

#include <cstdint>
#include <string>
#include <vector>

namespace quor::doc {

enum class DocKind : std::uint32_t {
    Module = 0,
    Function = 1,
    Class = 2,
    Interface = 3,
    Struct = 4,
    Enum = 5,
    Variable = 6,
    Method = 7,
    Field = 8,
};

struct DocParam {
    std::string name;
    std::string type;          // as written, may be empty
    std::string defaultValue;  // never filled by the extractor
    std::string description;   // from "@param"
};

struct DocEntry {
    std::string name;
    DocKind kind = DocKind::Function;
    std::string signature;
    std::string description;
    std::string brief;
    std::string returnType;  // for a field or variable: its type
    std::string returnDescription;
    std::vector<DocParam> params;
    std::vector<DocEntry> members;  // one level deep
    std::string visibility = "public";
    bool isStatic = false;
    bool isAsync = false;
    bool isOverride = false;
    std::int32_t line = 0;  // one-based
};

struct DocModule {
    std::string name;
    std::string path;
    std::string description;
    std::string brief;
    std::vector<DocEntry> entries;  // source order
};

struct DocOptions {
    std::string outputDir;
    bool generateHtml = false;
    bool generateMarkdown = false;
    std::string title;
};

// The settings the language server and the documentation run use:
// "docs", both outputs on, the title "Quor Documentation".
DocOptions defaultDocOptions();

}  // namespace quor::doc
