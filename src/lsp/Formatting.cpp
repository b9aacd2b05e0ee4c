// Document formatting: placeholder until the feature lands.
#include "lsp/LspServer.h"

namespace quor::lsp {

JsonValue LspServer::handleFormatting(const JsonValue&, const JsonValue&) { return JsonValue::makeArray(); }

}  // namespace quor::lsp
