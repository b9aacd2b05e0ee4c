// Writes one generated document to standard output:
//   quor_gendoc quor LINES       a realistic Quor document of that many lines
//   quor_gendoc c LINES          the C file of the same shape
//   quor_gendoc adversarial N    the N-th adversarial document (0-based)
//   quor_gendoc list             the names of the adversarial documents
#include <cstdlib>
#include <iostream>
#include <string>

#include "generator/QuorDocuments.h"

int main(int argc, char** argv) {
    const std::string kind = argc > 1 ? argv[1] : "";
    const std::size_t count = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    if (kind == "quor") {
        std::cout << quor::bench::realisticDocument(count);
    } else if (kind == "c") {
        std::cout << quor::bench::realisticCDocument(count);
    } else if (kind == "list") {
        for (const auto& document : quor::bench::adversarialDocuments()) std::cout << document.name << '\n';
    } else if (kind == "adversarial") {
        auto documents = quor::bench::adversarialDocuments();
        if (count >= documents.size()) return 2;
        std::cout << documents[count].text;
    } else {
        std::cerr << "usage: quor_gendoc quor|c LINES | adversarial N | list\n";
        return 2;
    }
    return 0;
}
