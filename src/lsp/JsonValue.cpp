// Construction and member access of JsonValue.
#include "lsp/JsonValue.h"

#include <cstdint>
#include <utility>

namespace quor::lsp {

JsonValue::JsonValue(const char* text) : type(Type::String), stringValue(text != nullptr ? text : "") {}

JsonValue::JsonValue(std::string text) : type(Type::String), stringValue(std::move(text)) {}

JsonValue::JsonValue(bool value) : type(Type::Bool), boolValue(value) {}

JsonValue::JsonValue(int value) : type(Type::Number), numberValue(value) {}

JsonValue::JsonValue(double value) : type(Type::Number), numberValue(value) {}

JsonValue::JsonValue(Type kind) : type(kind) {}

JsonValue& JsonValue::operator[](const std::string& key) {
    if (type != Type::Object) {
        type = Type::Object;
        objectValue.clear();
    }
    return objectValue[key];
}

const JsonValue& JsonValue::operator[](const std::string& key) const {
    static const JsonValue missingMember;
    if (type != Type::Object) return missingMember;
    auto found = objectValue.find(key);
    return found != objectValue.end() ? found->second : missingMember;
}

const JsonValue& JsonValue::operator[](std::size_t index) const {
    static const JsonValue missingElement;
    if (type != Type::Array || index >= arrayValue.size()) return missingElement;
    return arrayValue[index];
}

void JsonValue::push(JsonValue element) {
    if (type != Type::Array) {
        type = Type::Array;
        arrayValue.clear();
    }
    arrayValue.push_back(std::move(element));
}

std::string JsonValue::getString(const std::string& fallback) const {
    return type == Type::String ? stringValue : fallback;
}

std::int32_t JsonValue::getInt() const {
    if (type != Type::Number) return 0;
    // Truncation toward zero; what does not fit (NaN included) reads as the
    // most negative value, as the processor's own conversion gives it.
    constexpr double lowest = -2147483648.0;
    constexpr double beyondHighest = 2147483648.0;
    if (!(numberValue > lowest - 1.0 && numberValue < beyondHighest)) return INT32_MIN;
    return static_cast<std::int32_t>(numberValue);
}

}  // namespace quor::lsp
