# Every target of ours links scenara_warnings: all warnings that help, each an error.
add_library(scenara_warnings INTERFACE)
target_compile_options(scenara_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-align -Wformat=2
    -Wnon-virtual-dtor -Woverloaded-virtual -Wdouble-promotion -Wundef
    # GCC 12 takes ordinary string sums for overlapping copies.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# Where a build is only for checking, several sources of a library are compiled as one: that takes
# half the time. The release build compiles each by itself, so that none lacks an include.
option(SCENARA_UNITY "Several sources of a library as one" OFF)
function(scenara_unity target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${SCENARA_UNITY} UNITY_BUILD_BATCH_SIZE 6)
endfunction()

# scenara_library(NAME SOURCES... [LINKS ...]): one folder, one library, exactly the libraries it
# may use, so that an arrow the wrong way does not link. Includes are written from src/ down.
function(scenara_library name)
    cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE scenara_warnings)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    scenara_unity(${name})
endfunction()
