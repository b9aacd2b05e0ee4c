// Completion: placeholder until the feature lands.
#include "lsp/LspServer.h"

namespace quor::lsp {

JsonValue LspServer::handleCompletion(const JsonValue&, const JsonValue&) { return JsonValue::makeArray(); }

}  // namespace quor::lsp
