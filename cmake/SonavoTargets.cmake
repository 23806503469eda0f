# The settings that every target of the project shares: language, warnings, sanitizers.

add_library(sonavo_options INTERFACE)
target_compile_features(sonavo_options INTERFACE cxx_std_20)
target_compile_definitions(
    sonavo_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
                             QT_DISABLE_DEPRECATED_BEFORE=0x060400
                             $<$<BOOL:${SONAVO_BUILD_TESTS}>:QT_FORCE_ASSERTS>)
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
              -Wformat=2
              $<$<BOOL:${SONAVO_WARNINGS_AS_ERRORS}>:-Werror>)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 14)
    # Coroutine frames make older GCC report null dereferences inside library headers.
    target_compile_options(sonavo_options INTERFACE -Wno-null-dereference)
endif()

if(SONAVO_SANITIZE)
    target_compile_options(sonavo_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
    target_link_options(sonavo_options INTERFACE -fsanitize=address,undefined)
endif()

# sonavo_add_room(NAME SOURCES... ) adds the static library of one room under src/.
function(sonavo_add_room name)
    add_library(sonavo_${name} STATIC ${ARGN})
    target_include_directories(sonavo_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(sonavo_${name} PRIVATE sonavo_options)
    # What the views can know of the room's types.
    qt_extract_metatypes(sonavo_${name})
endfunction()

# sonavo_add_test(NAME SOURCES... ) adds the test executable of one room; link its libraries afterwards.
function(sonavo_add_test name)
    add_executable(test_${name} ${ARGN})
    target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE sonavo_options GTest::gmock)
    gtest_discover_tests(test_${name} PROPERTIES TIMEOUT 120 DISCOVERY_TIMEOUT 60)
endfunction()
