// Hover: placeholder until the feature lands.
#include "lsp/LspServer.h"

namespace quor::lsp {

JsonValue LspServer::handleHover(const JsonValue&, const JsonValue&) { return JsonValue(); }

std::string LspServer::extractWordAtPosition(const std::string&, std::int32_t, std::int32_t) { return ""; }

}  // namespace quor::lsp
