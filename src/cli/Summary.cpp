#include "cli/Summary.h"

namespace quor::cli {

namespace {

std::string counted(std::size_t count, const char* word) {
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

}  // namespace

std::string summaryLine(const CheckTally& tally) {
    return counted(tally.errors, "error") + " in " + std::to_string(tally.filesWithErrors) + " of " +
           counted(tally.filesChecked, "file");
}

}  // namespace quor::cli
