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
            out.push_back(duplicateType("class", decl.name, at(decl.line, 1)));
            continue;
        }
        classes[decl.name].name = decl.name;
    }
    for (const auto& decl : decls) {
        ModelClass& cls = classes.at(decl.name);
        if (!decl.base.empty()) {
            auto base = classes.find(decl.base);
            if (base == classes.end()) {
                out.push_back(undefinedBase(decl.base, at(decl.line, 1)));
            } else {
                bool cycle = false;
                for (const ModelClass* current = &base->second; current != nullptr; current = current->superclass) {
                    if (current->name == cls.name) {
                        cycle = true;
                        break;
                    }
                }
                if (cycle) {
                    out.push_back(circular(cls.name, decl.base, at(decl.line, 1)));
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
                    out.push_back(duplicateClassField(member.name, decl.name, at(decl.line, member.column)));
                } else {
                    cls.fields.insert(member.name);
                }
                continue;
            }
            if (cls.methods.count(member.name) != 0) {
                out.push_back(duplicateMethod(member.name, decl.name, at(decl.line, member.column)));
                continue;
            }
            if (member.isOverride) {
                bool found = false;
                for (const ModelClass* current = cls.superclass; current != nullptr; current = current->superclass) {
                    if (current->methods.count(member.name) != 0) found = true;
                }
                if (!found) {
                    out.push_back(overridesNothing(member.name, at(decl.line, member.column)));
                }
            }
            cls.methods.insert(member.name);
        }
    }
    return out;
}

// The name and base of each declaration of a random program; the members
// are drawn the same way for every shape.
struct Heading {
    std::string name;
    std::string base;  // empty for none
};

using Shape = Heading (*)(std::mt19937& random, std::size_t index, const std::vector<ModelDecl>& before);

std::size_t pickBelow(std::mt19937& random, std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

// A handful of names, so that bases are often declared twice or circular.
Heading smallForest(std::mt19937& random, std::size_t, const std::vector<ModelDecl>&) {
    const char* const classNames[] = {"A", "B", "C", "D", "F", "G"};
    Heading heading{classNames[pickBelow(random, std::size(classNames))], ""};
    const std::size_t baseChoice = pickBelow(random, 10);
    if (baseChoice < 7) {
        heading.base = classNames[pickBelow(random, std::size(classNames))];
    } else if (baseChoice == 7) {
        heading.base = "Nowhere";
    }
    return heading;
}

// Each class mostly extends the one declared just before it, so chains run
// twenty to forty classes long, past what the resolver walks without its
// counts; now and then a name is declared again (its members and base go to
// the first class of that name) or a base is drawn from the whole program,
// which may close a circle.
Heading longChains(std::mt19937& random, std::size_t index, const std::vector<ModelDecl>& before) {
    Heading heading{"K" + std::to_string(index), ""};
    if (index > 0 && pickBelow(random, 12) == 0) heading.name = before[pickBelow(random, index)].name;
    const std::size_t baseChoice = pickBelow(random, 20);
    if (index > 0 && baseChoice < 16) {
        heading.base = before.back().name;
    } else if (baseChoice < 19) {
        heading.base = "K" + std::to_string(pickBelow(random, 40));
    }
    return heading;
}

// Member names: a few shared by most classes, or a wider choice of which
// each class holds only some, so that a name may be owned by no class yet.
struct MemberNames {
    std::vector<std::string> fields;
    std::vector<std::string> methods;
};

const MemberNames FEW_NAMES{{"x", "y", "z"}, {"m", "n"}};
const MemberNames MANY_NAMES{{"f0", "f1", "f2", "f3", "f4", "f5", "f6", "f7", "f8", "f9", "f10", "f11"},
                             {"m0", "m1", "m2", "m3", "m4", "m5", "m6", "m7"}};

std::vector<ModelDecl> randomProgram(std::mt19937& random, std::string& source, Shape shape, std::size_t least,
                                     std::size_t most, const MemberNames& names) {
    const std::vector<std::string>& fieldNames = names.fields;
    const std::vector<std::string>& methodNames = names.methods;
    auto pick = [&random](std::size_t count) { return pickBelow(random, count); };
    std::vector<ModelDecl> decls;
    const std::size_t count = least + pick(most - least + 1);
    for (std::size_t i = 0; i < count; ++i) {
        ModelDecl decl;
        decl.line = static_cast<unsigned>(i + 1);
        Heading heading = shape(random, i, decls);
        decl.name = heading.name;
        decl.base = heading.base;
        std::string line = "class " + decl.name;
        if (!decl.base.empty()) line += " extends " + decl.base;
        line += " {";
        const std::size_t members = pick(5);
        for (std::size_t j = 0; j < members; ++j) {
            ModelMember member{};
            member.isField = pick(2) == 0;
            line += " ";
            if (member.isField) {
                member.name = fieldNames[pick(fieldNames.size())];
                line += "int ";
                member.column = static_cast<unsigned>(line.size() + 1);
                line += member.name + ";";
            } else {
                member.name = methodNames[pick(methodNames.size())];
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

// Resolves `rounds` random programs of the shape and compares every report
// with the model's.
void expectReportsOfTheModel(unsigned seed, int rounds, Shape shape, std::size_t least, std::size_t most,
                             const MemberNames& names) {
    std::mt19937 random(seed);
    for (int round = 0; round < rounds; ++round) {
        std::string source;
        const auto decls = randomProgram(random, source, shape, least, most, names);
        auto a = resolved(source);
        ASSERT_EQ(a->records(), modelReports(decls)) << "program " << round << ":\n" << source;
    }
}

TEST(RandomClassForest, ReportsMatchAPlainWalkOfEveryChain) {
    expectReportsOfTheModel(20261124, 400, smallForest, 2, 15, FEW_NAMES);
}

TEST(RandomClassForest, ReportsOnChainsLongerThanTheResolverWalksUncountedMatchAPlainWalk) {
    expectReportsOfTheModel(20261125, 150, longChains, 20, 40, MANY_NAMES);
}

}  // namespace
}  // namespace quor::sema::testing
