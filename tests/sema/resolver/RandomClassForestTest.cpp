// Random programs of classes with bases, fields and override methods, checked
// against a plain model of both walks: every chain is walked link by link in
// the model, so whatever the resolver spares itself must come out the same.
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

struct ModelMember {
    bool isField;
    std::string name;
    bool isOverride;
    unsigned column;
};

struct ModelDecl {
    std::string name;
    std::string base;  // empty for none
    std::vector<ModelMember> members;
    unsigned line;
};

struct ModelClass {
    std::string name;
    ModelClass* superclass = nullptr;
    std::set<std::string> fields;
    std::set<std::string> methods;
};

std::string at(unsigned line, unsigned column) { return std::to_string(line) + ":" + std::to_string(column); }

// The reports of both walks, worked out link by link.
Records modelReports(const std::vector<ModelDecl>& decls) {
    Records out;
    std::map<std::string, ModelClass> classes;
    for (const auto& decl : decls) {
        if (classes.count(decl.name) != 0) {
            out.push_back("E1004|Duplicate declaration of class '" + decl.name + "'|A symbol with name '" + decl.name +
                          "' is already declared in this scope|" + at(decl.line, 1));
            continue;
        }
        classes[decl.name].name = decl.name;
    }
    for (const auto& decl : decls) {
        ModelClass& cls = classes.at(decl.name);
        if (!decl.base.empty()) {
            auto base = classes.find(decl.base);
            if (base == classes.end()) {
                out.push_back("E1002|Undefined base class or interface '" + decl.base + "'||" + at(decl.line, 1));
            } else {
                bool cycle = false;
                for (const ModelClass* current = &base->second; current != nullptr; current = current->superclass) {
                    if (current->name == cls.name) {
                        cycle = true;
                        break;
                    }
                }
                if (cycle) {
                    out.push_back("E1004|Circular inheritance detected: '" + cls.name + "' and '" + decl.base +
                                  "' inherit from each other||" + at(decl.line, 1));
                } else {
                    cls.superclass = &base->second;
                }
            }
        }
        for (const auto& member : decl.members) {
            if (member.isField) {
                bool found = false;
                for (const ModelClass* current = &cls; current != nullptr; current = current->superclass) {
                    if (current->fields.count(member.name) != 0) found = true;
                }
                if (found) {
                    out.push_back("E1004|Duplicate field '" + member.name + "' in class '" + decl.name + "'||" +
                                  at(decl.line, member.column));
                } else {
                    cls.fields.insert(member.name);
                }
                continue;
            }
            if (cls.methods.count(member.name) != 0) {
                out.push_back("E1004|Duplicate method '" + member.name + "' in class '" + decl.name +
                              "' with identical signature||" + at(decl.line, member.column));
                continue;
            }
            if (member.isOverride) {
                bool found = false;
                for (const ModelClass* current = cls.superclass; current != nullptr; current = current->superclass) {
                    if (current->methods.count(member.name) != 0) found = true;
                }
                if (!found) {
                    out.push_back("E1001|Method '" + member.name +
                                  "' marked override does not override any base class method||" +
                                  at(decl.line, member.column));
                }
            }
            cls.methods.insert(member.name);
        }
    }
    return out;
}

std::vector<ModelDecl> randomProgram(std::mt19937& random, std::string& source) {
    const char* const classNames[] = {"A", "B", "C", "D", "F", "G"};
    const char* const fieldNames[] = {"x", "y", "z"};
    const char* const methodNames[] = {"m", "n"};
    auto pick = [&random](std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random); };
    std::vector<ModelDecl> decls;
    const std::size_t count = 2 + pick(14);
    for (std::size_t i = 0; i < count; ++i) {
        ModelDecl decl;
        decl.line = static_cast<unsigned>(i + 1);
        decl.name = classNames[pick(std::size(classNames))];
        std::string line = "class " + decl.name;
        const std::size_t baseChoice = pick(10);
        if (baseChoice < 7) {
            decl.base = classNames[pick(std::size(classNames))];
        } else if (baseChoice == 7) {
            decl.base = "Nowhere";
        }
        if (!decl.base.empty()) line += " extends " + decl.base;
        line += " {";
        const std::size_t members = pick(5);
        for (std::size_t j = 0; j < members; ++j) {
            ModelMember member{};
            member.isField = pick(2) == 0;
            line += " ";
            if (member.isField) {
                member.name = fieldNames[pick(std::size(fieldNames))];
                line += "int ";
                member.column = static_cast<unsigned>(line.size() + 1);
                line += member.name + ";";
            } else {
                member.name = methodNames[pick(std::size(methodNames))];
                member.isOverride = pick(2) == 0;
                if (member.isOverride) line += "override ";
                member.column = static_cast<unsigned>(line.size() + 1);
                line += "fn " + member.name + "() {}";
            }
            decl.members.push_back(member);
        }
        line += " }\n";
        source += line;
        decls.push_back(std::move(decl));
    }
    return decls;
}

TEST(RandomClassForest, ReportsMatchAPlainWalkOfEveryChain) {
    std::mt19937 random(20261124);
    for (int round = 0; round < 400; ++round) {
        std::string source;
        const auto decls = randomProgram(random, source);
        auto a = resolved(source);
        ASSERT_EQ(a->records(), modelReports(decls)) << "program " << round << ":\n" << source;
    }
}

}  // namespace
}  // namespace quor::sema::testing
