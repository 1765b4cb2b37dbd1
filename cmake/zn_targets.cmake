# Compile options of all our own code; third-party code (GoogleTest) does not link this.
add_library(zn_options INTERFACE)
target_compile_options(zn_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                            -Wno-sign-conversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports it, wrongly, for a text in front of a std::string.
  target_compile_options(zn_options INTERFACE -Wno-restrict)
endif()
target_include_directories(zn_options INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR})
if(ZN_TRACE)
  target_compile_definitions(zn_options INTERFACE ZN_TRACE=1)
endif()
if(WIN32)
  # ANSI calls throughout: the texts of this system are in the ANSI code page.
  target_compile_definitions(zn_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX STRICT
                                                  _WIN32_WINNT=0x0601)
  # Format checking knows the msvcrt formats only with this; casts of GetProcAddress are wanted.
  target_compile_options(zn_options INTERFACE -Wno-cast-function-type -ffunction-sections
                                              -fdata-sections)
  if(NOT ZN_SHIPPED_DIR)
    # What ships: checked frames, and no guards of local statics, which would need a thread runtime;
    # those statics belong to the user-interface thread.
    target_compile_options(zn_options INTERFACE -fstack-protector-strong -fno-threadsafe-statics)
    # Lines and functions for the symbols beside the DLL. Neither they nor the modules tell where
    # or when they were built: the same sources give the same bytes. The relative name is the one
    # that a compiler cache hands over.
    file(RELATIVE_PATH up ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
    string(REGEX REPLACE "/$" "" up "${up}")
    target_compile_options(zn_options INTERFACE -g1 -ffile-prefix-map=${CMAKE_SOURCE_DIR}=/Zn55psu1
                                                -ffile-prefix-map=${up}=/Zn55psu1)
  endif()
  target_link_options(zn_options INTERFACE -static -Wl,--gc-sections -Wl,--dynamicbase
                                           -Wl,--nxcompat -Wl,--high-entropy-va
                                           -Wl,--no-insert-timestamp)
endif()

# zn_split_symbols(MODULE): its symbols stand beside it, where debuggers look for them.
function(zn_split_symbols module)
  set(objcopy ${CMAKE_OBJCOPY} --preserve-dates)  # the time stamp inside, too
  set(symbols $<TARGET_FILE:${module}>.debug)
  add_custom_command(
    TARGET ${module} POST_BUILD
    COMMAND ${objcopy} --only-keep-debug $<TARGET_FILE:${module}> ${symbols}
    COMMAND ${objcopy} --strip-all --add-gnu-debuglink=${symbols} $<TARGET_FILE:${module}>
    VERBATIM)
endfunction()

# zn_test(NAME SOURCES... [LIBS libs...]): one GoogleTest program, run as one ctest entry.
# Most of the time of ./test is compiling tests: their headers are compiled once for all programs,
# and they are not optimised.
function(zn_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE zn_options ${ARG_LIBS} zn_test_headers)
  target_precompile_headers(${name} REUSE_FROM zn_test_headers)
  add_test(NAME ${name} COMMAND ${name})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT})
  if(WIN32)
    # They share one desktop, registry and spooler.
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK wine)
  endif()
endfunction()

# The JSON library is headers only, and a cross build must not see the others beside them.
find_path(ZN_JSON_HEADERS nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/json)
file(CREATE_LINK ${ZN_JSON_HEADERS}/nlohmann ${CMAKE_BINARY_DIR}/json/nlohmann SYMBOLIC)
add_library(zn_json INTERFACE)
target_include_directories(zn_json SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/json)
