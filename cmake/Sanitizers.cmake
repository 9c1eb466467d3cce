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

# What only tests is compiled quickly: not optimised, and without the coverage that guides the fuzz
# targets through what is tested.
function(scenara_compile_quickly target)
    target_compile_options(${target} PRIVATE -O0)
    if(SCENARA_SANITIZE)
        target_compile_options(${target} PRIVATE -fno-sanitize=fuzzer-no-link)
    endif()
endfunction()

# Targets that include RapidJSON, whose headers do what the sanitizer rightly objects to.
function(scenara_ignore_library_findings target)
    if(SCENARA_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizer-ignore.txt)
    endif()
endfunction()
