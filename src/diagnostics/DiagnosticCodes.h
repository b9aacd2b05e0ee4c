#pragma once

#include <array>
#include <string_view>

namespace quor::diagnostics {

// The codes that front-end stages attach to their diagnostics. Each stage
// keeps its own messages; the codes are shared and live here only.
inline constexpr std::string_view CODE_SYNTAX = "E1000";              // lexical and syntax faults
inline constexpr std::string_view CODE_TYPE = "E1001";                // wrong types and misplaced usage
inline constexpr std::string_view CODE_UNDEFINED_NAME = "E1002";      // unknown variable, type, member, variant
inline constexpr std::string_view CODE_UNDEFINED_FUNCTION = "E1003";  // unknown function or method
inline constexpr std::string_view CODE_DUPLICATE = "E1004";           // duplicate declarations, circular bases
inline constexpr std::string_view CODE_CONSTANT_OR_RETURN = "E1005";  // constant assignment, return faults
inline constexpr std::string_view CODE_ACCESS = "E1006";              // private member used from outside
inline constexpr std::string_view CODE_NULL_SAFETY = "E1008";         // nullable used without safe navigation
inline constexpr std::string_view CODE_IMPORT = "E1009";              // empty import path

// Every code in use. "E1007" is deliberately absent: nothing reports it.
inline constexpr std::array<std::string_view, 9> ALL_DIAGNOSTIC_CODES = {
    CODE_SYNTAX,    CODE_TYPE,   CODE_UNDEFINED_NAME, CODE_UNDEFINED_FUNCTION, CODE_DUPLICATE,
    CODE_CONSTANT_OR_RETURN, CODE_ACCESS, CODE_NULL_SAFETY, CODE_IMPORT,
};

}  // namespace quor::diagnostics
