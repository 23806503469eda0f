# The settings that every target of the project shares: language, warnings, sanitizers.

add_library(sonavo_options INTERFACE)
target_compile_features(sonavo_options INTERFACE cxx_std_20)
target_compile_definitions(
    sonavo_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
                             QT_DISABLE_DEPRECATED_BEFORE=0x060400
                             $<$<OR:$<BOOL:${BUILD_TESTING}>,$<BOOL:${SONAVO_BUILD_SOAK}>>:QT_FORCE_ASSERTS>)
target_compile_options(
    sonavo_options
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wshadow
              -Wconversion
              -Wsign-conversion
              -Wnon-virtual-dtor
              -Woverloaded-virtual
              -Wold-style-cast
              -Wcast-qual
              -Wnull-dereference
              -Wformat=2)

# Each compiler version has warnings of its own. The project is kept free of those of Debian 12.
if(SONAVO_WARNINGS_AS_ERRORS)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        set(checked_version 12)
    elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        set(checked_version 14)
    endif()
    if(CMAKE_CXX_COMPILER_VERSION MATCHES "^${checked_version}[.]")
        target_compile_options(sonavo_options INTERFACE -Werror)
    else()
        message(STATUS "Warnings are no errors with ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
    endif()
endif()

# Targets share precompiled headers only if their flags are equal: some libraries ask for -pthread, others do not, and Qt
# asks for -fPIE in executables and -fPIC in libraries.
target_compile_options(sonavo_options INTERFACE -pthread -fPIC)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC reports null dereferences in library headers that cannot happen. Before version 14 it also reports overflows for
    # concatenated strings.
    target_compile_options(sonavo_options INTERFACE -Wno-null-dereference)
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 14)
        target_compile_options(sonavo_options INTERFACE -Wno-array-bounds -Wno-restrict)
    endif()
endif()

if(SONAVO_SANITIZE)
    target_compile_options(sonavo_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
    target_link_options(sonavo_options INTERFACE -fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # Clang 14 does not support this check in coroutines.
        target_compile_options(
            sonavo_options INTERFACE -fno-sanitize=function
                                     -fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizers.ignore)
    endif()
endif()

# sonavo_precompile(NAME HEADERS...) adds a target NAME whose precompiled headers others reuse. They halve the time of a
# build. Every file still includes what it uses: the release build has no precompiled headers.
function(sonavo_precompile name)
    set(source ${PROJECT_BINARY_DIR}/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${source})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
    target_link_libraries(${name} PRIVATE sonavo_options Qt6::Core QCoro6::Core)
    target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

set(SONAVO_COMMON_HEADERS
    <QCoroTask>
    <QDateTime>
    <QDir>
    <QFile>
    <QFuture>
    <QHash>
    <QList>
    <QObject>
    <QPointer>
    <QSet>
    <QString>
    <QUrl>
    <QUuid>
    <QVariant>
    <algorithm>
    <array>
    <filesystem>
    <functional>
    <memory>
    <optional>
    <span>
    <stop_token>
    <string>
    <variant>
    <vector>)
sonavo_precompile(sonavo_precompiled ${SONAVO_COMMON_HEADERS})

# sonavo_add_module(NAME SOURCES...) adds the static library of one module under src/.
function(sonavo_add_module name)
    add_library(sonavo_${name} STATIC ${ARGN})
    target_include_directories(sonavo_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(sonavo_${name} PRIVATE sonavo_options)
    target_precompile_headers(sonavo_${name} REUSE_FROM sonavo_precompiled)
    # For the views that use the module's types.
    qt_extract_metatypes(sonavo_${name})
endfunction()

# Test code is not optimised, only the code under test: it compiles in half the time.
add_library(sonavo_test_options INTERFACE)
target_link_libraries(sonavo_test_options INTERFACE sonavo_options)
target_compile_options(sonavo_test_options INTERFACE $<$<CONFIG:RelWithDebInfo>:-O0>)

# sonavo_add_test(NAME SOURCES...) adds the test executable of one module. Link its libraries afterwards.
function(sonavo_add_test name)
    add_executable(test_${name} ${ARGN})
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE sonavo_test_options GTest::gmock)
    target_precompile_headers(test_${name} REUSE_FROM sonavo_test_precompiled)
    gtest_discover_tests(test_${name} PROPERTIES TIMEOUT 120 DISCOVERY_TIMEOUT 60)
endfunction()
