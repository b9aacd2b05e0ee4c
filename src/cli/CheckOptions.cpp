#include "cli/CheckOptions.h"

#include <array>
#include <charconv>
#include <optional>
#include <string_view>

namespace quor::cli {

namespace {

template <typename Value>
struct Choice {
    std::string_view name;
    Value value;
};

constexpr std::array<Choice<ReportFormat>, 3> FORMAT_CHOICES = {{
    {"text", ReportFormat::Text},
    {"json", ReportFormat::Json},
    {"github", ReportFormat::Github},
}};

constexpr std::array<Choice<ColourChoice>, 3> COLOUR_CHOICES = {{
    {"auto", ColourChoice::Auto},
    {"always", ColourChoice::Always},
    {"never", ColourChoice::Never},
}};

template <typename Value, std::size_t N>
std::optional<Value> lookUp(const std::array<Choice<Value>, N>& choices, std::string_view name) {
    for (const Choice<Value>& choice : choices) {
        if (choice.name == name) return choice.value;
    }
    return std::nullopt;
}

bool setFormat(std::string_view value, CheckOptions& options) {
    std::optional<ReportFormat> format = lookUp(FORMAT_CHOICES, value);
    if (format) options.format = *format;
    return format.has_value();
}

bool setColour(std::string_view value, CheckOptions& options) {
    std::optional<ColourChoice> colour = lookUp(COLOUR_CHOICES, value);
    if (colour) options.colour = *colour;
    return colour.has_value();
}

bool setJobs(std::string_view value, CheckOptions& options) {
    unsigned jobs = 0;
    auto [end, failure] = std::from_chars(value.data(), value.data() + value.size(), jobs);
    if (failure != std::errc() || end != value.data() + value.size() || jobs == 0 || jobs > MAX_JOBS) {
        return false;
    }
    options.jobs = jobs;
    return true;
}

struct OptionRow {
    std::string_view name;
    std::string_view expected;  // what the value must be, for the usage error
    bool (*apply)(std::string_view value, CheckOptions& options);
};

constexpr std::array<OptionRow, 4> OPTION_ROWS = {{
    {"--format", "text, json or github", setFormat},
    {"--color", "auto, always or never", setColour},
    {"--jobs", "a number from 1 to 1024", setJobs},
    {"-j", "a number from 1 to 1024", setJobs},
}};

// The value glued to the option's name ("--format=json", "-j4"), if any.
// Long names take it behind "=", the short one right behind the name.
std::optional<std::string_view> gluedValue(std::string_view argument, std::string_view name) {
    if (argument.substr(0, name.size()) != name || argument.size() == name.size()) return std::nullopt;
    std::string_view rest = argument.substr(name.size());
    if (name.size() == 2) return rest;
    if (rest.front() == '=') return rest.substr(1);
    return std::nullopt;
}

}  // namespace

bool parseCheckOptions(const Arguments& args, CheckOptions& options, std::string& error) {
    bool optionsEnded = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string_view argument = args[i];
        if (optionsEnded || argument.size() < 2 || argument.front() != '-') {
            options.paths.push_back(args[i]);
            continue;
        }
        if (argument == "--") {
            optionsEnded = true;
            continue;
        }
        const OptionRow* matched = nullptr;
        std::optional<std::string_view> value;
        for (const OptionRow& row : OPTION_ROWS) {
            if (argument == row.name) {
                matched = &row;
                if (i + 1 < args.size()) value = args[++i];
                break;
            }
            if ((value = gluedValue(argument, row.name))) {
                matched = &row;
                break;
            }
        }
        if (matched == nullptr) {
            error = "unknown option '" + std::string(argument) + "'";
            return false;
        }
        if (!value || !matched->apply(*value, options)) {
            error = std::string(matched->name) + " expects " + std::string(matched->expected);
            return false;
        }
    }
    if (options.paths.empty()) {
        error = "expected at least one file or directory";
        return false;
    }
    return true;
}

}  // namespace quor::cli
