# What every target of this house has in common, and the functions that declare a folder's library,
# its tests and the program's resources in one statement each.

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

add_library(brindlepath_options INTERFACE)
target_compile_features(brindlepath_options INTERFACE cxx_std_20)
target_compile_definitions(
  brindlepath_options
  INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
            QT_NO_FOREACH QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(brindlepath_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
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
# A static library of a folder: its core, which has neither widgets nor signals, or its widgets.
# KNOWS lists the libraries whose headers it may include.
function(brindlepath_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WIDGETS" "" "SOURCES;KNOWS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC brindlepath_options ${core_qt} ${arg_KNOWS})
  if(arg_WIDGETS)
    target_link_libraries(${name} PUBLIC ${widgets_qt})
    target_precompile_headers(${name} REUSE_FROM widgets_pch)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  else()
    target_precompile_headers(${name} REUSE_FROM core_pch)
    set_property(GLOBAL APPEND PROPERTY brindlepath_cores ${name})
  endif()
endfunction()

# The icon, for a program that shows the window.
function(brindlepath_resources program)
  target_sources(${program} PRIVATE "${PROJECT_SOURCE_DIR}/resources/brindlepath.qrc")
  set_target_properties(${program} PROPERTIES AUTORCC ON)
endfunction()

# The surroundings in which a test program finds itself, on the platform QPA.
function(brindlepath_test_surroundings name qpa)
  set(leaks "${PROJECT_SOURCE_DIR}/tests/support/lsan.supp")
  set_tests_properties(
    ${name}
    PROPERTIES
      TIMEOUT 120
      ENVIRONMENT
      "QT_QPA_PLATFORM=${qpa};TZ=America/Chicago;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${leaks}:print_suppressions=0"
  )
endfunction()

# brindlepath_tests(folder CLASSES ... KNOWS ...)
#
# The tests of a folder as one program, folder_tests, and each class ("room/Name" for the file
# room/tst_Name.cpp) as a CTest entry Name, which runs in a process of its own. The folder is their
# label: ctest -L folder. It links its folder's libraries and what those may know.
function(brindlepath_tests folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "CLASSES;KNOWS")
  set(program ${folder}_tests)
  list(TRANSFORM arg_CLASSES REPLACE "([A-Za-z]+)$" "tst_\\1.cpp" OUTPUT_VARIABLE sources)
  add_executable(${program} ${sources})
  target_link_libraries(${program} PRIVATE test_support ${arg_KNOWS})
  target_precompile_headers(${program} REUSE_FROM widgets_pch)
  set_target_properties(${program} PROPERTIES AUTOMOC ON)
  foreach(class IN LISTS arg_CLASSES)
    cmake_path(GET class FILENAME name)
    add_test(NAME ${name} COMMAND ${program} tst_${name})
    brindlepath_test_surroundings(${name} offscreen)
    set_tests_properties(${name} PROPERTIES LABELS ${folder})
  endforeach()
endfunction()

# brindlepath_test_starts(folder source MACRO program)
#
# Tells the test source of a folder, as MACRO, the path of a program that it starts.
function(brindlepath_test_starts folder source macro program)
  set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS
                                                "${macro}=\"$<TARGET_FILE:${program}>\"")
  add_dependencies(${folder}_tests ${program})
endfunction()
