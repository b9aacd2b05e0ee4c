#pragma once

// Shared helpers of the documentation tests.

#include <string>

#include "doc/DocGenerator.h"

namespace quor::doc::testing {

// The path the tests extract from when the file name does not matter.
inline const std::string DEMO_PATH = "file:///work/demo.quor";

// Extracts one module from `source` with the default options, as the
// generator does for a file at `path`.
inline DocModule extract(const std::string& source, const std::string& path = DEMO_PATH) {
    return DocGenerator(defaultDocOptions()).extractModule(source, path);
}

}  // namespace quor::doc::testing
