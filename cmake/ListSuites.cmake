# Asks the GoogleTest program PROGRAM for its suites and writes them to OUTPUT, for ctest to read.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests
    OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY TIMEOUT 60)

# Suites begin a line and end with a dot, perhaps with a comment behind it; tests are indented.
string(REPLACE ";" "," listed "${listed}")
string(REPLACE "\n" ";" lines "${listed}")
set(script)
foreach(line IN LISTS lines)
    if(line MATCHES "^([A-Za-z0-9_/]+)\\.( |$)")
        set(suite ${CMAKE_MATCH_1})
        # It counts as skipped if tests of it were, none failed, and nothing was said after that.
        string(APPEND script
            "add_test([=[${PREFIX}.${suite}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${suite}.*]=])\n"
            "set_tests_properties([=[${PREFIX}.${suite}]=] PROPERTIES "
            "SKIP_REGULAR_EXPRESSION [=[SKIPPED . [0-9]+ tests?, listed below:\n"
            "(.  SKIPPED . [^\n]*\n)+$]=])\n")
    endif()
endforeach()
file(WRITE ${OUTPUT} "${script}")
