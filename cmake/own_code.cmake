# How our own code is compiled, and how a folder's sources become a target.

add_library(own_code INTERFACE)
target_include_directories(own_code INTERFACE ${CMAKE_SOURCE_DIR})
# Pixel and time arithmetic is exact: no contraction into fused operations, on any compiler.
target_compile_options(own_code INTERFACE -Wall -Wextra -Wshadow $<$<BOOL:${QUILMO_DEVELOP}>:-Werror> -ffp-contract=off)
if(WIN32)
    # What is built does not tell where: neither the module nor its debug file.
    target_compile_options(own_code INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=quilmo>)
endif()
if(QUILMO_SANITIZE)
    # float-cast-overflow is asked for by name: a double that does not fit its integer is a fault here.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    # Behind the instrumentation GCC no longer sees which values can occur, and these two warn of what the others show
    # to be fine.
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(own_code INTERFACE -Wno-maybe-uninitialized -Wno-format-truncation)
    endif()
endif()

# Gives `out` the .cpp files of the named folders, below the source tree's root. New files are noticed at the next build.
function(sources_of out)
    set(all)
    foreach(folder IN LISTS ARGN)
        file(GLOB found CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
        list(APPEND all ${found})
    endforeach()
    set(${out} ${all} PARENT_SCOPE)
endfunction()
