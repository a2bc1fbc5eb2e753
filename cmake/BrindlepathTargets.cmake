# What every target of this house has in common, and the two functions that declare a folder's
# library and a test in one statement each.

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(brindlepath_options INTERFACE)
target_compile_features(brindlepath_options INTERFACE cxx_std_20)
target_compile_definitions(
  brindlepath_options
  INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
            QT_NO_FOREACH QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(
  brindlepath_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
target_include_directories(brindlepath_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(BRINDLEPATH_SANITIZE)
  target_compile_options(brindlepath_options INTERFACE -fsanitize=address,undefined
                                                       -fno-sanitize-recover=all)
  target_link_options(brindlepath_options INTERFACE -fsanitize=address,undefined)
endif()

# Qt's headers are most of the work of compiling a file here, so they are read once: one set for
# code that knows no widgets, one for code that does.
set(core_headers <QtCore/QtCore> <QtSql/QtSql>)
set(widget_headers ${core_headers} <QtWidgets/QtWidgets>)

# brindlepath_library(name SOURCES ... KNOWS ... [WIDGETS])
#
# A folder of src/ as a static library. KNOWS lists the folders whose headers it may include.
function(brindlepath_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WIDGETS" "" "SOURCES;KNOWS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC brindlepath_options Qt6::Core Qt6::Sql ${arg_KNOWS})
  if(arg_WIDGETS)
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    brindlepath_shared_headers(${name} widgets_pch "${widget_headers}")
  else()
    brindlepath_shared_headers(${name} core_pch "${core_headers}")
  endif()
endfunction()

# The first target of each kind compiles the headers, and the others take them from it.
function(brindlepath_shared_headers name kind headers)
  get_property(owner GLOBAL PROPERTY ${kind})
  if(owner)
    target_precompile_headers(${name} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${name} PRIVATE ${headers})
    set_property(GLOBAL PROPERTY ${kind} ${name})
  endif()
endfunction()

# brindlepath_test(ClassName KNOWS ...)
#
# The test of one class, tst_ClassName.cpp. It links its folder's library and what that may know.
function(brindlepath_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "KNOWS")
  set(target tst_${name})
  add_executable(${target} ${target}.cpp)
  target_link_libraries(${target} PRIVATE test_support ${arg_KNOWS})
  brindlepath_shared_headers(${target} test_pch "${widget_headers};<QtTest/QtTest>")
  add_test(NAME ${name} COMMAND ${target})
  set_tests_properties(
    ${name}
    PROPERTIES
      TIMEOUT 120
      ENVIRONMENT
      "QT_QPA_PLATFORM=offscreen;TZ=America/Chicago;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
  )
endfunction()
