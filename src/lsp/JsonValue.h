#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

namespace quor::lsp {

// The server's JSON document type. All members live side by side and `type`
// says which of them carries the meaning. The parser is forgiving and never
// reports an error; the serializer writes compact text with sorted keys.
class JsonValue {
public:
    enum class Type : std::int32_t {
        Null = 0,
        Bool = 1,
        Number = 2,
        String = 3,
        Array = 4,
        Object = 5,
    };

    Type type = Type::Null;
    bool boolValue = false;
    double numberValue = 0.0;
    std::string stringValue;
    std::vector<JsonValue> arrayValue;
    std::map<std::string, JsonValue> objectValue;

    JsonValue() = default;
    JsonValue(const JsonValue&) = default;
    JsonValue(JsonValue&&) noexcept = default;
    JsonValue& operator=(const JsonValue&) = default;
    JsonValue& operator=(JsonValue&&) noexcept = default;
    ~JsonValue() = default;

    JsonValue(const char* text);  // NOLINT(google-explicit-constructor)
    JsonValue(std::string text);  // NOLINT(google-explicit-constructor)
    JsonValue(bool value);        // NOLINT(google-explicit-constructor)
    JsonValue(int value);         // NOLINT(google-explicit-constructor)
    JsonValue(double value);      // NOLINT(google-explicit-constructor)

    // Any other integer type also makes a Number, so that sizes and 64-bit
    // counts need no cast at the call site.
    template <typename Integer>
        requires(std::is_integral_v<Integer> && !std::is_same_v<Integer, bool> && !std::is_same_v<Integer, int> &&
                 !std::is_same_v<Integer, char>)
    JsonValue(Integer value)  // NOLINT(google-explicit-constructor)
        : type(Type::Number), numberValue(static_cast<double>(value)) {}

    // An empty value of the given kind, e.g. JsonValue(JsonValue::Type::Array).
    explicit JsonValue(Type kind);

    static JsonValue makeArray() { return JsonValue(Type::Array); }
    static JsonValue makeObject() { return JsonValue(Type::Object); }

    bool isNull() const { return type == Type::Null; }
    bool isBool() const { return type == Type::Bool; }
    bool isNumber() const { return type == Type::Number; }
    bool isString() const { return type == Type::String; }
    bool isArray() const { return type == Type::Array; }
    bool isObject() const { return type == Type::Object; }

    // Turns this value into an Object if it is not one, then returns the
    // member of that name, created as Null when missing.
    JsonValue& operator[](const std::string& key);
    // The member of that name, or a shared Null. Never creates anything.
    const JsonValue& operator[](const std::string& key) const;
    // The element at that index, or a shared Null.
    const JsonValue& operator[](std::size_t index) const;

    // Turns this value into an Array if it is not one, then appends.
    void push(JsonValue element);

    // `stringValue` for a String, otherwise the fallback.
    std::string getString(const std::string& fallback = "") const;
    // The number truncated toward zero for a Number, otherwise 0. A value
    // that does not fit in 32 bits (or NaN) reads as INT32_MIN.
    std::int32_t getInt() const;

    std::string serialize() const;

    static JsonValue parseValue(const std::string& text, std::size_t& pos);
    static std::string parseString(const std::string& text, std::size_t& pos);
};

}  // namespace quor::lsp
