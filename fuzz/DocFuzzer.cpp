// The documentation extractor and both page renderers over any bytes.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "doc/DocGenerator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_NOTHING, [&] {
        const quor::doc::DocGenerator generator(quor::doc::defaultDocOptions());
        quor::doc::DocModule module = generator.extractModule(text, "fuzz/input.quor");
        (void)generator.renderMarkdown(module);
        (void)generator.renderHtml(module);
        std::vector<quor::doc::DocModule> modules{module, module};
        (void)generator.renderIndexMarkdown(modules);
        (void)generator.renderIndexHtml(modules);
        (void)quor::doc::DocGenerator::cleanDocComment(text);
        (void)quor::doc::DocGenerator::extractBrief(text);
    });
    return 0;
}
