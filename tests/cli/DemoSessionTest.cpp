#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

// The demo client is built beside quor, in the build tree's tools folder.
std::string demoBinary() {
    return (std::filesystem::path(QUOR_CLI_BINARY).parent_path() / "tools" / "quor_demo").string();
}

struct Session {
    std::string out;
    int status = -1;
};

Session playDemo(const std::string& source) {
    std::string command = demoBinary() + " " + QUORLS_BINARY + " " + source + " 2>&1";
    Session session;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return session;
    char buffer[4096];
    std::size_t count = 0;
    while ((count = fread(buffer, 1, sizeof buffer, pipe)) > 0) session.out.append(buffer, count);
    int raw = pclose(pipe);
    session.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return session;
}

}  // namespace

TEST(DemoSession, PlaysTheWholeEditorSessionOnTheShapesExample) {
    Session session = playDemo(std::string(QUOR_EXAMPLES_DIR) + "/shapes.quor");
    EXPECT_EQ(session.status, 0) << session.out;
    for (const char* shown : {
             "Connected to quorls 1.0.0",
             "> Open shapes.quor",
             "43:16  error[E1002]  Undefined variable or symbol 'total' (Ensure the variable is declared before use)",
             "> Undo the change\n    Problems: none\n",
             "      | fn add(a: int, b: int): int\n",
             "      | Circle    class Circle implements Shape\n",
             "Jumps to line 42:\n      | fn add(a: int, b: int): int {\n",
             "    42 | fn plus(a: int, b: int): int {\n    54 |     assert(plus(1, 2) == 3);\n",
             "      | fn twice(x: int): int {\n      |     return x * 2;\n      | }\n",
             "it exited with status 0",
         }) {
        EXPECT_NE(session.out.find(shown), std::string::npos) << shown << "\n--- in ---\n" << session.out;
    }
}

TEST(DemoSession, RefusesASourceThatIsNotTheExpectedExample) {
    Session session = playDemo("/nonexistent/none.quor");
    EXPECT_EQ(session.status, 2);
    EXPECT_NE(session.out.find("is not the example this session expects"), std::string::npos);
}
