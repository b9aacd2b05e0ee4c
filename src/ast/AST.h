#pragma once

// The whole syntax tree: node bases, every node class and the visitor.
#include "ast/ASTNode.h"
#include "ast/ASTVisitor.h"
#include "ast/Declarations.h"
#include "ast/Expressions.h"
#include "ast/NodeKind.h"
#include "ast/Program.h"
#include "ast/Statements.h"
