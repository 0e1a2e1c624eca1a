# SPDX-License-Identifier: GPL-3.0-or-later
# A room is a folder below src/ with one static library. Its tests stand beside the code and end in
#   _test.cpp        label unit: no photographs, no models, a fraction of a second
#   _image_test.cpp  label image: real photographs and models
#   _slow_test.cpp   label slow: soak and kill rounds
#   _fault_test.cpp  label fault: on a disk that fails on demand
#   _window_test.cpp label window: real widgets on a screen that nobody sees
# All tests of one label form one binary; ctest runs it suite by suite.

# morva_room(NAME LINKS rooms... USES libraries...): USES are private unless after PUBLIC_USES.
function(morva_room name)
    cmake_parse_arguments(room "" "" "LINKS;USES;PUBLIC_USES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    set(tests ${sources})
    list(FILTER sources EXCLUDE REGEX "(_test|/main)\\.cpp$")  # main.cpp is a program's, beside its room
    list(FILTER tests INCLUDE REGEX "_test\\.cpp$")
    set_property(GLOBAL APPEND PROPERTY MORVA_ROOMS ${name})
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE folder)
    set_property(GLOBAL PROPERTY MORVA_FOLDER_${name} ${folder})
    list(TRANSFORM room_LINKS PREPEND morva_)
    add_library(morva_${name} STATIC ${sources})
    target_link_libraries(morva_${name} PUBLIC morva_options ${room_LINKS} ${room_PUBLIC_USES} PRIVATE ${room_USES})
    if(MORVA_UNITY AND NOT folder MATCHES "^src/ui")
        set_target_properties(morva_${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
    endif()
    morva_tests(${tests})
endfunction()

# morva_tests(FILES...): hands test files to the binary of their label.
function(morva_tests)
    foreach(test ${ARGN})
        if(test MATCHES "_image_test\\.cpp$")
            set_property(GLOBAL APPEND PROPERTY MORVA_TESTS_image ${test})
        elseif(test MATCHES "_slow_test\\.cpp$")
            set_property(GLOBAL APPEND PROPERTY MORVA_TESTS_slow ${test})
        elseif(test MATCHES "_fault_test\\.cpp$")
            set_property(GLOBAL APPEND PROPERTY MORVA_TESTS_fault ${test})
        elseif(test MATCHES "_window_test\\.cpp$")
            set_property(GLOBAL APPEND PROPERTY MORVA_TESTS_window ${test})
        else()
            set_property(GLOBAL APPEND PROPERTY MORVA_TESTS_unit ${test})
        endif()
    endforeach()
endfunction()

# morva_test_binary(LABEL libraries...): the binary of a label, and one ctest entry for each of its suites. Tests of the
# window have a main of their own, which makes the application, and run on a screen of their own.
function(morva_test_binary label)
    get_property(files GLOBAL PROPERTY MORVA_TESTS_${label})
    if(NOT files)
        return()
    endif()
    set(target morva_${label}_tests)
    add_executable(${target} ${files})
    set(main GTest::gtest_main)
    set(screen "")
    if(label STREQUAL window)
        target_sources(${target} PRIVATE ${CMAKE_SOURCE_DIR}/tests/window_main.cpp)
        set(main Qt6::Widgets Qt6::Test)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
        set(screen ${CMAKE_SOURCE_DIR}/script/with_display)
    endif()
    target_link_libraries(${target} PRIVATE morva_options ${ARGN} GTest::gmock ${main})
    target_precompile_headers(${target} PRIVATE ${CMAKE_SOURCE_DIR}/tests/precompiled.h)
    # The compiler cache sees through it then.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    if(MORVA_SANITIZE)
        target_compile_options(${target} PRIVATE -O0)  # they take longer to compile than to run
    endif()
    set(suites "")
    foreach(file ${files})
        file(STRINGS ${file} lines REGEX "^TEST(_F|_P)?\\([A-Za-z0-9_]+,")
        foreach(line ${lines})
            string(REGEX REPLACE "^TEST(_F|_P)?\\(([A-Za-z0-9_]+),.*" "\\2" suite "${line}")
            list(APPEND suites ${suite})
        endforeach()
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    endforeach()
    list(REMOVE_DUPLICATES suites)
    foreach(suite ${suites})
        add_test(NAME ${label}.${suite} COMMAND ${screen} $<TARGET_FILE:${target}> --gtest_filter=${suite}.*:*/${suite}.*)
        set_tests_properties(${label}.${suite} PROPERTIES LABELS ${label}
            ENVIRONMENT "MORVA_TEST_DATA=${MORVA_TEST_DATA};MORVA_SAMPLE=${MORVA_DEPS}/sample/astronaut.png")
    endforeach()
endfunction()

# morva_write_link_graph(FILE): a line "room|folder|linked rooms" for each room, read from the targets themselves,
# so that a link made behind morva_room's back shows too. The architecture test compares it with the document.
function(morva_write_link_graph graph)
    get_property(rooms GLOBAL PROPERTY MORVA_ROOMS)
    set(lines "")
    foreach(room ${rooms})
        get_property(folder GLOBAL PROPERTY MORVA_FOLDER_${room})
        get_target_property(kind morva_${room} TYPE)
        if(kind STREQUAL INTERFACE_LIBRARY)
            get_target_property(links morva_${room} INTERFACE_LINK_LIBRARIES)
        else()
            get_target_property(links morva_${room} LINK_LIBRARIES)
        endif()
        list(FILTER links INCLUDE REGEX "^morva_")
        list(REMOVE_ITEM links morva_options)
        list(TRANSFORM links REPLACE "^morva_" "")
        list(JOIN links " " links)
        string(APPEND lines "${room}|${folder}|${links}\n")
    endforeach()
    file(CONFIGURE OUTPUT ${graph} CONTENT "${lines}" @ONLY)
endfunction()
