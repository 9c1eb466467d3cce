# scenara_discover_tests(TARGET PREFIX): the tests of a GoogleTest program as tests of ctest, called
# PREFIX.Suite.Test. Under the sanitizers a whole suite is one test, PREFIX.Suite: there a process
# takes longer to begin and end than most tests do. What failed of it stands in its output.
function(scenara_discover_tests target prefix)
    if(NOT SCENARA_SANITIZE)
        gtest_discover_tests(${target} TEST_PREFIX "${prefix}." DISCOVERY_TIMEOUT 60)
        return()
    endif()
    set(suites ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -D PROGRAM=$<TARGET_FILE:${target}> -D PREFIX=${prefix}
            -D OUTPUT=${suites} -P ${PROJECT_SOURCE_DIR}/cmake/ListSuites.cmake
        BYPRODUCTS ${suites} VERBATIM)
    set(include ${CMAKE_CURRENT_BINARY_DIR}/${target}_include.cmake)
    file(WRITE ${include} "if(EXISTS \"${suites}\")\n  include(\"${suites}\")\n"
                          "else()\n  add_test(${target}_NOT_BUILT ${target}_NOT_BUILT)\nendif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include})
endfunction()
