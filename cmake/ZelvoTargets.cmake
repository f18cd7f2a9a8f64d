# Functions that make the targets: one static library for each folder of src/, one test program for each of tests/.

add_library(zelvo_options INTERFACE)
# Otherwise Qt defines a macro `signals`, which would replace our function of that name.
target_compile_definitions(zelvo_options INTERFACE QT_NO_KEYWORDS)
target_compile_options(zelvo_options INTERFACE -Wall -Wextra -Wshadow -Wconversion -Werror
                       "-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=")

# These options cost almost nothing, and make it harder to attack the program through a memory error.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
check_cxx_compiler_flag(-fstack-protector-strong ZELVO_HAS_STACK_PROTECTOR)
check_cxx_compiler_flag(-fcf-protection ZELVO_HAS_CF_PROTECTION)
check_linker_flag(CXX -Wl,-z,relro,-z,now ZELVO_HAS_FULL_RELRO)
target_compile_options(zelvo_options INTERFACE
                       "$<$<BOOL:${ZELVO_HAS_STACK_PROTECTOR}>:-fstack-protector-strong>"
                       "$<$<BOOL:${ZELVO_HAS_CF_PROTECTION}>:-fcf-protection>")
target_link_options(zelvo_options INTERFACE "$<$<BOOL:${ZELVO_HAS_FULL_RELRO}>:-Wl,-z,relro,-z,now>")
# Only in release, because fortified calls need optimisation.
target_compile_options(zelvo_options INTERFACE "$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")

if(ZELVO_SANITIZE)
    target_compile_options(zelvo_options INTERFACE -fsanitize=${ZELVO_SANITIZE} -fno-omit-frame-pointer
                           -fno-sanitize-recover=all)
    target_link_options(zelvo_options INTERFACE -fsanitize=${ZELVO_SANITIZE})
endif()
if(ZELVO_FUZZ)
    # libFuzzer needs to know which code each input has reached, in the libraries too.
    target_compile_options(zelvo_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# zelvo_library(name SOURCES a.cpp … [PUBLIC libs…] [PRIVATE libs…])
# A static library. PUBLIC: libraries that its headers need; PRIVATE: libraries that only its sources need.
function(zelvo_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE zelvo_options ${ARG_PRIVATE})
endfunction()

# zelvo_qml_module(name URI Zelvo.X [DEPENDENCIES uris…] [QML_FILES …] [RESOURCES …])
# Makes a QML module of a zelvo_library: views can import its classes that have QML_ELEMENT, and qmllint knows them.
# The prefix is needed because an engine before Qt 6.5 looks for modules only below qt-project.org/imports.
function(zelvo_qml_module name)
    cmake_parse_arguments(ARG "" "URI" "DEPENDENCIES;QML_FILES;RESOURCES" ${ARGN})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PUBLIC Qt6::Qml)
    # The generated source that registers the classes includes their headers without a folder.
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    qt_add_qml_module(${name}
        URI ${ARG_URI}
        VERSION 1.0
        RESOURCE_PREFIX /qt-project.org/imports
        DEPENDENCIES ${ARG_DEPENDENCIES}
        QML_FILES ${ARG_QML_FILES}
        RESOURCES ${ARG_RESOURCES}
        NO_PLUGIN NO_CACHEGEN NO_LINT)
endfunction()

# zelvo_test(name SOURCES a.cpp … LINK libs… [TIMEOUT seconds]): a GoogleTest program. CTest runs each test on its own.
function(zelvo_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    if(ZELVO_SANITIZE)
        math(EXPR ARG_TIMEOUT "10 * ${ARG_TIMEOUT}") # instrumented code is that much slower on a busy machine
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE ZELVO_TEST_SOURCE_DIR="${CMAKE_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE zelvo_options ${ARG_LINK} GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT ${ARG_TIMEOUT})
endfunction()

# zelvo_benchmark(name SOURCES a.cpp … LINK libs…): a Google Benchmark program.
function(zelvo_benchmark name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE zelvo_options ${ARG_LINK} benchmark::benchmark_main)
endfunction()

# zelvo_fuzz(name SOURCE a.cpp CORPUS dir [MUTATOR b.cpp] LINK libs…): a fuzz target (LLVMFuzzerTestOneInput). With
# ZELVO_FUZZ it is a libFuzzer program, with LLVMFuzzerCustomMutator if there is a MUTATOR; otherwise it is a test that
# runs once over the corpus.
function(zelvo_fuzz name)
    cmake_parse_arguments(ARG "" "SOURCE;CORPUS;MUTATOR" "LINK" ${ARGN})
    if(ZELVO_FUZZ)
        add_executable(${name} ${ARG_SOURCE} ${ARG_MUTATOR})
        target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    else()
        add_executable(${name} ${ARG_SOURCE} "${CMAKE_SOURCE_DIR}/fuzz/CorpusMain.cpp")
        add_test(NAME ${name} COMMAND ${name} "${CMAKE_CURRENT_SOURCE_DIR}/${ARG_CORPUS}")
    endif()
    target_link_libraries(${name} PRIVATE zelvo_options ${ARG_LINK})
endfunction()

# zelvo_made(name COMMENT text INPUTS files… COMMAND program arguments…)
# A target that runs one of our programs in each build. @KEY@ among its arguments stands for a text that changes with
# the inputs: the program does nothing if it has done its work for this text before.
function(zelvo_made name)
    cmake_parse_arguments(ARG "" "COMMENT" "INPUTS;COMMAND" ${ARGN})
    list(POP_FRONT ARG_COMMAND program)
    list(JOIN ARG_INPUTS "\n" inputs)
    file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/${name}.inputs" "${inputs}\n")
    add_custom_target(${name} ALL
                      COMMAND ${CMAKE_COMMAND} "-DINPUTS=${CMAKE_CURRENT_BINARY_DIR}/${name}.inputs"
                              -P "${CMAKE_SOURCE_DIR}/cmake/WithKey.cmake" -- $<TARGET_FILE:${program}> ${ARG_COMMAND}
                      COMMENT "${ARG_COMMENT}" VERBATIM)
endfunction()

# zelvo_sources(result target): the sources of one of our programs or libraries and of all our libraries that it links,
# with the headers and shaders beside them.
function(zelvo_sources result target)
    set(open ${target})
    set(seen "")
    set(files "")
    while(open)
        list(POP_FRONT open next)
        list(APPEND seen ${next})
        get_target_property(folder ${next} SOURCE_DIR)
        get_target_property(sources ${next} SOURCES)
        list(FILTER sources INCLUDE REGEX "^[^/]+[.]cpp$")
        list(TRANSFORM sources PREPEND "${folder}/")
        file(GLOB beside CONFIGURE_DEPENDS "${folder}/*.h" "${folder}/shaders/*")
        list(APPEND files ${sources} ${beside})
        get_target_property(links ${next} LINK_LIBRARIES)
        list(FILTER links INCLUDE REGEX "^zelvo_")
        list(REMOVE_ITEM links zelvo_options ${seen})
        list(APPEND open ${links})
        list(REMOVE_DUPLICATES open)
    endwhile()
    list(REMOVE_DUPLICATES files)
    list(SORT files)
    set(${result} ${files} PARENT_SCOPE)
endfunction()
