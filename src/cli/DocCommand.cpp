// quor doc: the documentation run over a file or a directory of sources.
#include "cli/Commands.h"
#include "doc/DocGenerator.h"

namespace quor::cli {

int runDoc(const Arguments& args, std::ostream& out, std::ostream& err) {
    if (args.empty() || args.size() > 2) {
        err << "quor: expected an input path and at most one output directory\n";
        return 2;
    }
    // The server's own settings; an empty output directory means theirs, "docs".
    const doc::DocGenerator generator(doc::defaultDocOptions());
    const std::string outputDir = args.size() == 2 ? args[1] : std::string();
    return generator.generate(args[0], outputDir, out, err) ? 0 : 1;
}

}  // namespace quor::cli
