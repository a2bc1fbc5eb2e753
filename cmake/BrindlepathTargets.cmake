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

set(core_qt Qt6::Core Qt6::Sql)
set(widgets_qt ${core_qt} Qt6::Widgets)

# Reading Qt's headers is half of the work of compiling a file here, so the large ones that several
# files need are read once for each kind of code, by the lowest library of its kind. All of Qt's
# take longer to load than they save.
set(core_headers
    <QDateTime>
    <QDir>
    <QFileInfo>
    <QHash>
    <QMap>
    <QRegularExpression>
    <QSqlDatabase>
    <QSqlQuery>
    <QStringList>
    <algorithm>
    <array>
    <cmath>
    <functional>
    <optional>)
set(widgets_headers
    ${core_headers}
    <QApplication>
    <QBoxLayout>
    <QComboBox>
    <QHeaderView>
    <QLabel>
    <QLineEdit>
    <QMessageBox>
    <QPushButton>
    <QSignalBlocker>
    <QTableWidget>
    <QTextEdit>)
set(test_headers ${widgets_headers} <QTemporaryDir> <QTest> <memory>)

# brindlepath_automoc(target)
#
# Lets moc write what Qt's signals and slots need. Without the folders of headers, because for each
# class moc would read all of Qt's, a minute for all of the tests.
function(brindlepath_automoc target)
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  if(EXISTS "${moc_alone}")
    set_target_properties(${target} PROPERTIES AUTOMOC_EXECUTABLE "${moc_alone}")
  endif()
endfunction()
get_target_property(moc Qt6::moc IMPORTED_LOCATION)
if(CMAKE_HOST_UNIX AND moc)
  set(moc_alone "${PROJECT_BINARY_DIR}/moc-alone")
  configure_file("${CMAKE_CURRENT_LIST_DIR}/moc-alone.in" "${moc_alone}" @ONLY
                 USE_SOURCE_PERMISSIONS)
endif()

# brindlepath_shared_headers(target owner headers...)
function(brindlepath_shared_headers target owner)
  if(target STREQUAL owner)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()

# brindlepath_library(name SOURCES ... KNOWS ... [WIDGETS])
#
# A static library of a folder: its core (folder_core), which has neither widgets nor signals, or its
# widgets. KNOWS lists the libraries whose headers it may include.
function(brindlepath_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WIDGETS" "" "SOURCES;KNOWS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC brindlepath_options ${core_qt} ${arg_KNOWS})
  if(arg_WIDGETS)
    target_link_libraries(${name} PUBLIC ${widgets_qt})
    brindlepath_shared_headers(${name} ui ${widgets_headers})
    brindlepath_automoc(${name})
  else()
    brindlepath_shared_headers(${name} data ${core_headers})
  endif()
  if(name MATCHES "^data$|_core$")
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
  brindlepath_shared_headers(${program} test_support)
  brindlepath_automoc(${program})
  # Test files include what moc makes of them, which leaves this one empty.
  set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${program}_autogen/mocs_compilation.cpp"
                              PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
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
