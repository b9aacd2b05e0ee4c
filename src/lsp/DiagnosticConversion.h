#pragma once

#include "diagnostics/Diagnostic.h"
#include "lsp/Protocol.h"

namespace quor::lsp {

// The engine's record as the client is shown it: a zero-based range one
// column wide at the reported place, the hint folded into the message.
Diagnostic toProtocolDiagnostic(const diagnostics::Diagnostic& reported);

}  // namespace quor::lsp
