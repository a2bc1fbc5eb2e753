#include "support/TestProgram.h"

#include <cstdio>
#include <map>
#include <string>

namespace {

// In a function, because the classes register themselves before main, in any order.
std::map<std::string, TestProgram::Run> &testClasses()
{
    static std::map<std::string, TestProgram::Run> classes;
    return classes;
}

} // namespace

TestProgram::Registration::Registration(const char *className, Run run)
{
    testClasses().emplace(className, run);
}

int main(int argc, char *argv[])
{
    const auto found = argc > 1 ? testClasses().find(argv[1]) : testClasses().end();
    if (found == testClasses().end()) {
        std::fprintf(stderr, "Name one of these classes first:\n");
        for (const auto &[name, run] : testClasses())
            std::fprintf(stderr, "  %s\n", name.c_str());
        return 2;
    }
    argv[1] = argv[0];
    return found->second(argc - 1, argv + 1);
}
