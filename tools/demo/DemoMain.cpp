// quor_demo: a short editor session against quorls, printed as an editor
// would show it. Usage: quor_demo QUORLS_BINARY SOURCE_FILE
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "demo/EditorView.h"
#include "demo/LspClient.h"

namespace {

using quor::lsp::JsonValue;

// A place in the document: zero-based line and byte column.
struct Place {
    int line = -1;
    int character = -1;
};

// Where `needle` first stands in a line that also holds `lineMarker`.
Place find(const std::vector<std::string>& lines, const std::string& lineMarker, const std::string& needle) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::size_t at = lines[i].find(needle);
        if (lines[i].find(lineMarker) != std::string::npos && at != std::string::npos) {
            return {static_cast<int>(i), static_cast<int>(at)};
        }
    }
    return {};
}

JsonValue documentParams(const std::string& uri) {
    JsonValue params;
    params["textDocument"]["uri"] = uri;
    return params;
}

JsonValue placeParams(const std::string& uri, Place place) {
    JsonValue params = documentParams(uri);
    params["position"]["line"] = place.line;
    params["position"]["character"] = place.character;
    return params;
}

JsonValue changeParams(const std::string& uri, int version, const std::string& text) {
    JsonValue params = documentParams(uri);
    params["textDocument"]["version"] = version;
    JsonValue change;
    change["text"] = text;
    params["contentChanges"].push(std::move(change));
    return params;
}

std::string withLineReplaced(const std::vector<std::string>& lines, int index, const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        result += static_cast<int>(i) == index ? text : lines[i];
        result += "\n";
    }
    return result;
}

std::string describe(Place place) {
    return "line " + std::to_string(place.line + 1) + ", column " + std::to_string(place.character + 1);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: quor_demo QUORLS_BINARY SOURCE_FILE\n";
        return 2;
    }
    std::ifstream file(argv[2], std::ios::binary);
    std::ostringstream read;
    read << file.rdbuf();
    const std::string text = read.str();
    const std::vector<std::string> lines = quor::demo::splitLines(text);
    const std::string name = std::filesystem::path(argv[2]).filename().string();
    const std::string uri = "file://" + std::filesystem::absolute(argv[2]).string();
    const Place call = find(lines, "assert(", "add(");
    const Place body = find(lines, "return a + b;", "return a + b;");
    if (!file || call.line < 0 || body.line < 0) {
        std::cerr << "quor_demo: " << argv[2] << " is not the example this session expects\n";
        return 2;
    }

    quor::demo::LspClient server(argv[1]);
    JsonValue init = server.request("initialize", JsonValue::makeObject());
    if (!init.isObject()) {
        std::cerr << "quor_demo: " << argv[1] << " did not answer\n";
        return 1;
    }
    std::cout << "Connected to " << init["serverInfo"]["name"].getString() << " "
              << init["serverInfo"]["version"].getString() << ", as an editor would be.\n";
    server.notify("initialized", JsonValue::makeObject());

    quor::demo::printStep("Open " + name + " (" + std::to_string(lines.size()) + " lines)");
    JsonValue open = documentParams(uri);
    open["textDocument"]["languageId"] = "quor";
    open["textDocument"]["version"] = 1;
    open["textDocument"]["text"] = text;
    server.notify("textDocument/didOpen", std::move(open));
    quor::demo::printProblems(server.waitForNotification("textDocument/publishDiagnostics"));

    const std::string typo = "    return a + total;";
    quor::demo::printStep("Type on line " + std::to_string(body.line + 1) + ": \"" + typo.substr(4) +
                          "\" (no such variable)");
    server.notify("textDocument/didChange", changeParams(uri, 2, withLineReplaced(lines, body.line, typo)));
    quor::demo::printProblems(server.waitForNotification("textDocument/publishDiagnostics"));

    quor::demo::printStep("Undo the change");
    server.notify("textDocument/didChange", changeParams(uri, 3, text));
    quor::demo::printProblems(server.waitForNotification("textDocument/publishDiagnostics"));

    quor::demo::printStep("Hover over 'add' at " + describe(call));
    quor::demo::printHover(server.request("textDocument/hover", placeParams(uri, call)));

    quor::demo::printStep("Ask for completion after typing 'C' at " + describe(call));
    quor::demo::printCompletion(server.request("textDocument/completion", placeParams(uri, call)), "C", 6);

    quor::demo::printStep("Go to the definition of 'add'");
    quor::demo::printDefinition(server.request("textDocument/definition", placeParams(uri, call)), lines);

    quor::demo::printStep("Rename 'add' to 'plus'");
    JsonValue rename = placeParams(uri, call);
    rename["newName"] = "plus";
    quor::demo::printRename(server.request("textDocument/rename", std::move(rename)), lines);

    const std::string messy = "fn twice(x:int):int{return x*2;}\nclass Point{int x;int y;}\n";
    quor::demo::printStep("Replace the text with a messy snippet and format the document");
    server.notify("textDocument/didChange", changeParams(uri, 4, messy));
    quor::demo::printProblems(server.waitForNotification("textDocument/publishDiagnostics"));
    JsonValue format = documentParams(uri);
    format["options"]["tabSize"] = 4;
    format["options"]["insertSpaces"] = true;
    quor::demo::printFormatting(server.request("textDocument/formatting", std::move(format)));

    int status = server.finish();
    std::cout << "\nShut the server down; it exited with status " << status << ".\n";
    return status == 0 ? 0 : 1;
}
