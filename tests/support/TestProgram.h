#pragma once

#include <QApplication>
#include <QTest>

/// The one main of a folder's test program. It runs the class that its first argument names, as
/// `QTEST_MAIN` would, in a process that no other class shares:
///
///     trips_tests tst_TripsPage [function[:data]] [options of Qt Test]
///
/// Without the name of a class it tells which there are.
namespace TestProgram {

using Run = int (*)(int argc, char *argv[]);

/// Makes a class known to the program; see TEST_CLASS.
struct Registration
{
    Registration(const char *className, Run run);
};

template <typename TestClass, typename Application>
int run(int argc, char *argv[])
{
    Application application(argc, argv);
    application.setAttribute(Qt::AA_Use96Dpi, true); // as QTEST_MAIN does
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace TestProgram

#define REGISTER_TEST_CLASS(Class, Application)                                                    \
    static const TestProgram::Registration registrationOf##Class(                                  \
        #Class, &TestProgram::run<Class, Application>);

/// Stands in a test file in place of QTEST_MAIN.
#define TEST_CLASS(Class) REGISTER_TEST_CLASS(Class, QApplication)

/// Stands in a test file in place of QTEST_GUILESS_MAIN.
#define TEST_CLASS_WITHOUT_WINDOWS(Class) REGISTER_TEST_CLASS(Class, QCoreApplication)
