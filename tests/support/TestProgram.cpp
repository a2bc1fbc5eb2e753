#include "support/TestProgram.h"

#include <QApplication>
#include <QTest>

#include <cstdio>
#include <map>
#include <string>

namespace {

struct TestClass
{
    TestProgram::Application application;
    TestProgram::Registration::Maker make;
};

// In a function, because the classes register themselves before main, in any order.
std::map<std::string, TestClass> &testClasses()
{
    static std::map<std::string, TestClass> classes;
    return classes;
}

template <typename Application>
int runIn(const TestClass &testClass, int argc, char *argv[])
{
    Application application(argc, argv);
    application.setAttribute(Qt::AA_Use96Dpi, true); // as QTEST_MAIN does
    return QTest::qExec(testClass.make().get(), argc, argv);
}

} // namespace

TestProgram::Registration::Registration(const char *className, Application application, Maker maker)
{
    testClasses().emplace(className, TestClass{application, maker});
}

int main(int argc, char *argv[])
{
    const auto found = argc > 1 ? testClasses().find(argv[1]) : testClasses().end();
    if (found == testClasses().end()) {
        std::fprintf(stderr, "Name one of these classes first:\n");
        for (const auto &[name, testClass] : testClasses())
            std::fprintf(stderr, "  %s\n", name.c_str());
        return 2;
    }
    argv[1] = argv[0];
    const TestClass &testClass = found->second;
    return testClass.application == TestProgram::Application::WithWindows
               ? runIn<QApplication>(testClass, argc - 1, argv + 1)
               : runIn<QCoreApplication>(testClass, argc - 1, argv + 1);
}
