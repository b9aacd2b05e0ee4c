#pragma once

#include <string>

namespace quor::cli {

// Replaces the contents of the file at `path` with `text` so that a reader
// never sees half a file: the text goes to a new file in the same directory,
// which is flushed to disk, given the old file's permissions and then renamed
// over it. A link is followed, so the file it names is replaced and the link
// stays. On failure the old file is left as it was, the new one removed, and
// `error` says what went wrong.
bool replaceFileContents(const std::string& path, const std::string& text, std::string& error);

}  // namespace quor::cli
