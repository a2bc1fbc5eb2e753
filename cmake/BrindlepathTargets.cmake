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

# Qt's headers are most of the work of compiling a file here, so they are read once for each kind
# of target: code that knows no widgets, and code that does.
function(brindlepath_shared_headers kind)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "QT;HEADERS")
  add_library(${kind} STATIC "${PROJECT_SOURCE_DIR}/cmake/shared_headers.cpp")
  target_link_libraries(${kind} PUBLIC brindlepath_options ${arg_QT})
  target_precompile_headers(${kind} PRIVATE ${arg_HEADERS})
endfunction()

set(core_qt Qt6::Core Qt6::Sql)
set(core_headers <QtCore/QtCore> <QtSql/QtSql>)
set(widgets_qt ${core_qt} Qt6::Widgets)
set(widgets_headers ${core_headers} <QtWidgets/QtWidgets>)
brindlepath_shared_headers(core_pch QT ${core_qt} HEADERS ${core_headers})
brindlepath_shared_headers(widgets_pch QT ${widgets_qt} HEADERS ${widgets_headers})

# brindlepath_library(name SOURCES ... KNOWS ... [WIDGETS])
#
# A folder of src/ as a static library. KNOWS lists the folders whose headers it may include.
function(brindlepath_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WIDGETS" "" "SOURCES;KNOWS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC brindlepath_options ${core_qt} ${arg_KNOWS})
  if(arg_WIDGETS)
    target_link_libraries(${name} PUBLIC ${widgets_qt})
    target_precompile_headers(${name} REUSE_FROM widgets_pch)
  else()
    target_precompile_headers(${name} REUSE_FROM core_pch)
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
  target_precompile_headers(${target} REUSE_FROM widgets_pch)
  add_test(NAME ${name} COMMAND ${target})
  set_tests_properties(
    ${name}
    PROPERTIES
      TIMEOUT 120
      ENVIRONMENT
      "QT_QPA_PLATFORM=offscreen;TZ=America/Chicago;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
  )
endfunction()
