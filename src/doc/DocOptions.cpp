// The generator's standard settings.
#include "doc/DocModel.h"

namespace quor::doc {

DocOptions defaultDocOptions() {
    DocOptions options;
    options.outputDir = "docs";
    options.generateHtml = true;
    options.generateMarkdown = true;
    options.title = "Quor Documentation";
    return options;
}

}  // namespace quor::doc
