// Rename: placeholder until the feature lands.
#include "lsp/LspServer.h"

namespace quor::lsp {

JsonValue LspServer::handleRename(const JsonValue&, const JsonValue&) { return JsonValue(); }

}  // namespace quor::lsp
