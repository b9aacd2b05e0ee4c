// Message dispatch: requests get a response, notifications act silently.
#include <string_view>
#include <utility>

#include "lsp/LspServer.h"

namespace quor::lsp {

namespace {

using RequestHandler = JsonValue (LspServer::*)(const JsonValue& id, const JsonValue& params);
using NotificationHandler = void (LspServer::*)(const JsonValue& params);

struct RequestRoute {
    std::string_view method;
    RequestHandler handler;
};

struct NotificationRoute {
    std::string_view method;
    NotificationHandler handler;
};

const RequestRoute REQUEST_ROUTES[] = {
    {"initialize", &LspServer::handleInitialize},
    {"textDocument/completion", &LspServer::handleCompletion},
    {"textDocument/hover", &LspServer::handleHover},
    {"textDocument/definition", &LspServer::handleDefinition},
    {"textDocument/formatting", &LspServer::handleFormatting},
    {"textDocument/rename", &LspServer::handleRename},
};

const NotificationRoute NOTIFICATION_ROUTES[] = {
    {"textDocument/didOpen", &LspServer::handleDidOpen},
    {"textDocument/didChange", &LspServer::handleDidChange},
    {"textDocument/didClose", &LspServer::handleDidClose},
};

constexpr std::string_view SERVER_VERSION = "1.0.0";

// Moves a member out of an object, leaving Null behind; a missing member is Null.
JsonValue takeMember(JsonValue& object, const std::string& key) {
    auto found = object.objectValue.find(key);
    if (found == object.objectValue.end()) return JsonValue();
    return std::move(found->second);
}

}  // namespace

std::string LspServer::handleMessage(const std::string& body) {
    std::size_t pos = 0;
    JsonValue message = JsonValue::parseValue(body, pos);
    if (!message.isObject()) return "";

    const std::string method = std::as_const(message)["method"].getString();
    // The id and params are taken over from the message rather than copied:
    // the params carry whole document texts, and an id may be nested deeply.
    JsonValue id = takeMember(message, "id");
    const JsonValue params = takeMember(message, "params");

    if (id.isNull()) {
        if (method == "exit") {
            running = false;
        } else if (method == "initialized") {
            initialized = true;
        } else {
            for (const NotificationRoute& route : NOTIFICATION_ROUTES) {
                if (route.method == method) {
                    (this->*route.handler)(params);
                    break;
                }
            }
        }
        return "";
    }

    JsonValue result;  // unknown requests are answered with null
    if (method == "shutdown") {
        running = false;
    } else {
        for (const RequestRoute& route : REQUEST_ROUTES) {
            if (route.method == method) {
                result = (this->*route.handler)(id, params);
                break;
            }
        }
    }
    JsonValue response(JsonValue::Type::Object);
    response["id"] = std::move(id);
    response["jsonrpc"] = "2.0";
    response["result"] = std::move(result);
    return response.serialize();
}

JsonValue LspServer::handleInitialize(const JsonValue&, const JsonValue&) {
    JsonValue triggerCharacters(JsonValue::Type::Array);
    for (const char* trigger : {".", ":", ">"}) triggerCharacters.push(trigger);

    JsonValue completionProvider(JsonValue::Type::Object);
    completionProvider["resolveProvider"] = false;
    completionProvider["triggerCharacters"] = std::move(triggerCharacters);

    JsonValue capabilities(JsonValue::Type::Object);
    capabilities["textDocumentSync"] = 1;  // full-document synchronisation
    capabilities["completionProvider"] = std::move(completionProvider);
    capabilities["hoverProvider"] = true;
    capabilities["definitionProvider"] = true;
    capabilities["documentFormattingProvider"] = true;
    capabilities["renameProvider"] = true;

    JsonValue serverInfo(JsonValue::Type::Object);
    serverInfo["name"] = "quorls";
    serverInfo["version"] = std::string(SERVER_VERSION);

    JsonValue result(JsonValue::Type::Object);
    result["capabilities"] = std::move(capabilities);
    result["serverInfo"] = std::move(serverInfo);
    return result;
}

JsonValue LspServer::handleShutdown(const JsonValue&) {
    running = false;
    return JsonValue();
}

}  // namespace quor::lsp
