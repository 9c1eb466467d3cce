# The asan preset: a finding ends the program, so that no test can pass over it.
if(SCENARA_SANITIZE)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "The sanitizer build holds the fuzz targets, which need clang: "
                            "use 'cmake --preset asan'.")
    endif()
    add_compile_options(-fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all
                        -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=address,undefined)
endif()

# The program's own libraries behind these targets, each once.
function(scenara_libraries_behind result)
    set(found)
    set(open ${ARGN})
    while(open)
        list(POP_FRONT open library)
        if(NOT library MATCHES "^scenara_" OR library IN_LIST found OR NOT TARGET ${library})
            continue()
        endif()
        get_target_property(type ${library} TYPE)
        if(type STREQUAL "STATIC_LIBRARY")
            list(APPEND found ${library})
        endif()
        if(type STREQUAL "INTERFACE_LIBRARY")
            get_target_property(more ${library} INTERFACE_LINK_LIBRARIES)
        else()
            get_target_property(more ${library} LINK_LIBRARIES)
        endif()
        if(more)
            list(APPEND open ${more})
        endif()
    endwhile()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# What only tests is compiled quickly: not optimised, and under the sanitizers without the checks
# that take longest to compile. Of inline functions and templates the first copy is linked, so what
# the tests use of the program's, and the standard library's that both use, come from the program's
# libraries: optimised, and with all checks.
function(scenara_compile_quickly target)
    target_compile_options(${target} PRIVATE -O0)
    if(NOT SCENARA_SANITIZE)
        return()
    endif()
    target_compile_options(${target} PRIVATE -fno-sanitize=fuzzer-no-link,undefined)
    scenara_libraries_behind(libraries ${ARGN})
    if(libraries)
        set(files ${libraries})
        list(TRANSFORM files REPLACE "(.+)" "$<TARGET_FILE:\\1>")
        target_link_options(${target} PRIVATE -Wl,--whole-archive ${files} -Wl,--no-whole-archive)
        add_dependencies(${target} ${libraries})
    endif()
endfunction()

# Targets that include RapidJSON, whose headers do what the sanitizer rightly objects to.
function(scenara_ignore_library_findings target)
    if(SCENARA_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizer-ignore.txt)
    endif()
endfunction()
