// Declaration grammar. Minimal first version: everything is a statement.
#include "parser/Parser.h"

namespace quor::parser {

std::unique_ptr<ast::StatementNode> Parser::parseDeclaration() { return parseStatement(); }

}  // namespace quor::parser
