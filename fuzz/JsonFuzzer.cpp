// JSON reader and writer: any bytes parse to some value without reading past
// the end, and whatever was read serializes, as does a reading of that text.
#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "lsp/JsonValue.h"

using quor::lsp::JsonValue;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_NUMBER_CONVERSION, [&] {
        std::size_t pos = 0;
        JsonValue value = JsonValue::parseValue(text, pos);
        if (pos > text.size()) quor::fuzz::propertyFailed("parseValue moved past the end of its text");
        std::string written = value.serialize();

        // Copies and moves keep the value as it was.
        JsonValue copy = value;
        JsonValue moved = std::move(copy);
        if (moved.serialize() != written) quor::fuzz::propertyFailed("a copied value serializes differently");

        std::size_t again = 0;
        JsonValue reread = JsonValue::parseValue(written, again);
        if (again > written.size()) quor::fuzz::propertyFailed("parseValue moved past the end of its own output");
        (void)reread.serialize();

        // Every string form reads back from its opening quote.
        if (!text.empty() && text[0] == '"') {
            std::size_t at = 0;
            (void)JsonValue::parseString(text, at);
            if (at > text.size()) quor::fuzz::propertyFailed("parseString moved past the end");
        }
    });
    return 0;
}
