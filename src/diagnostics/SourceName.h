#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace quor::diagnostics {

// The name of a source (a document URI, a file path) as every location of
// that source holds it. A scanner hands the same name to every token and the
// parser to every node, so the text is stored once and shared by reference
// count: copying a name costs no allocation, however long a client's URI is.
// Reads like a const std::string; the text never changes once made.
class SourceName {
public:
    SourceName() = default;
    SourceName(std::string text) : shared(text.empty() ? nullptr : new Shared{{1}, std::move(text)}) {}
    SourceName(const char* text) : SourceName(std::string(text ? text : "")) {}
    SourceName(std::string_view text) : SourceName(std::string(text)) {}
    // A name that is never counted nor freed, so that any thread may copy
    // it: for the few locations made once for the whole process.
    static SourceName permanent(std::string text) {
        SourceName name;
        name.shared = new Shared{0, std::move(text), true};
        return name;
    }
    SourceName(const SourceName& other) noexcept : shared(other.shared) { retain(); }
    SourceName(SourceName&& other) noexcept : shared(std::exchange(other.shared, nullptr)) {}
    SourceName& operator=(SourceName other) noexcept {
        std::swap(shared, other.shared);
        return *this;
    }
    ~SourceName() { release(); }

    const std::string& str() const { return shared ? shared->text : emptyText(); }
    operator const std::string&() const { return str(); }
    operator std::string_view() const { return str(); }
    bool empty() const { return shared == nullptr; }
    std::size_t size() const { return str().size(); }
    const char* c_str() const { return str().c_str(); }

    friend bool operator==(const SourceName& a, const SourceName& b) {
        return a.shared == b.shared || a.str() == b.str();
    }
    friend bool operator==(const SourceName& a, const std::string& b) { return a.str() == b; }
    friend bool operator==(const SourceName& a, std::string_view b) { return a.str() == b; }
    friend bool operator==(const SourceName& a, const char* b) { return a.str() == b; }
    friend std::string operator+(const SourceName& a, const std::string& b) { return a.str() + b; }
    friend std::string operator+(const std::string& a, const SourceName& b) { return a + b.str(); }
    friend std::string operator+(const SourceName& a, const char* b) { return a.str() + b; }
    friend std::string operator+(const char* a, const SourceName& b) { return a + b.str(); }
    friend std::ostream& operator<<(std::ostream& out, const SourceName& name) { return out << name.str(); }

private:
    // The count is a plain integer: one name and its copies are made and
    // dropped on one thread at a time. `quor check` hands a file's reports
    // from the worker that made them to the main thread only after the
    // worker has done with that file, through the lock that orders the
    // reports; no name is shared by two threads at once, except permanent
    // ones, which are never written. (An atomic count cost an interlocked
    // instruction for every token and node made.)
    struct Shared {
        std::uint64_t count;
        std::string text;
        bool permanent = false;
    };

    void retain() const {
        if (shared && !shared->permanent) ++shared->count;
    }
    void release() {
        if (shared && !shared->permanent && --shared->count == 0) delete shared;
    }
    static const std::string& emptyText() {
        static const std::string none;
        return none;
    }

    Shared* shared = nullptr;
};

}  // namespace quor::diagnostics
