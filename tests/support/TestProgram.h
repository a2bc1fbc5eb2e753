#pragma once

#include <QObject>

#include <memory>

/// The one main of a folder's test program. It runs the class that its first argument names, as
/// `QTEST_MAIN` would, in a process that no other class shares:
///
///     trips_tests tst_TripsPage [function[:data]] [options of Qt Test]
///
/// Without the name of a class it tells which there are.
namespace TestProgram {

enum class Application { WithWindows, WithoutWindows };

/// Makes a class known to the program; see TEST_CLASS.
class Registration
{
public:
    using Maker = std::unique_ptr<QObject> (*)();

    Registration(const char *className, Application application, Maker maker);
};

} // namespace TestProgram

#define REGISTER_TEST_CLASS(Class, application)                                                    \
    static const TestProgram::Registration registrationOf##Class(                                  \
        #Class, TestProgram::Application::application,                                             \
        []() -> std::unique_ptr<QObject> { return std::make_unique<Class>(); });

/// Stands in a test file in place of QTEST_MAIN.
#define TEST_CLASS(Class) REGISTER_TEST_CLASS(Class, WithWindows)

/// Stands in a test file in place of QTEST_GUILESS_MAIN.
#define TEST_CLASS_WITHOUT_WINDOWS(Class) REGISTER_TEST_CLASS(Class, WithoutWindows)
