// JSON forms of the protocol records.
#include "lsp/Protocol.h"

namespace quor::lsp {

namespace {

JsonValue markdown(const std::string& text) {
    JsonValue markup(JsonValue::Type::Object);
    markup["kind"] = "markdown";
    markup["value"] = text;
    return markup;
}

}  // namespace

Position Position::fromJson(const JsonValue& value) {
    Position position;
    position.line = value["line"].getInt();
    position.character = value["character"].getInt();
    return position;
}

JsonValue Position::toJson() const {
    JsonValue json(JsonValue::Type::Object);
    json["line"] = line;
    json["character"] = character;
    return json;
}

JsonValue Range::toJson() const {
    JsonValue json(JsonValue::Type::Object);
    json["start"] = start.toJson();
    json["end"] = end.toJson();
    return json;
}

JsonValue Location::toJson() const {
    JsonValue json(JsonValue::Type::Object);
    json["uri"] = uri;
    json["range"] = range.toJson();
    return json;
}

JsonValue TextEdit::toJson() const {
    JsonValue json(JsonValue::Type::Object);
    json["range"] = range.toJson();
    json["newText"] = newText;
    return json;
}

JsonValue Diagnostic::toJson() const {
    JsonValue json(JsonValue::Type::Object);
    json["range"] = range.toJson();
    json["severity"] = severity;
    if (!code.empty()) json["code"] = code;
    json["source"] = source;
    json["message"] = message;
    return json;
}

JsonValue CompletionItem::toJson() const {
    JsonValue json(JsonValue::Type::Object);
    json["label"] = label;
    json["kind"] = kind;
    if (!detail.empty()) json["detail"] = detail;
    if (!documentation.empty()) json["documentation"] = markdown(documentation);
    if (!insertText.empty()) json["insertText"] = insertText;
    return json;
}

JsonValue Hover::toJson() const {
    JsonValue json(JsonValue::Type::Object);
    json["contents"] = markdown(contents);
    if (range.has_value()) json["range"] = range->toJson();
    return json;
}

}  // namespace quor::lsp
