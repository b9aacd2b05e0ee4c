#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace quor::cli {

// Every command gets its arguments (behind the command word) and the two
// output streams, and returns the process exit status.
using Arguments = std::vector<std::string>;

int runCheck(const Arguments& args, std::ostream& out, std::ostream& err);
int runDoc(const Arguments& args, std::ostream& out, std::ostream& err);
int runFormat(const Arguments& args, std::ostream& out, std::ostream& err);
int runOutline(const Arguments& args, std::ostream& out, std::ostream& err);
int runTokens(const Arguments& args, std::ostream& out, std::ostream& err);

// Reads a whole file as bytes; false if it can't be opened.
bool readFile(const std::string& path, std::string& text);

}  // namespace quor::cli
