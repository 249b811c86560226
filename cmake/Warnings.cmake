# The warnings of every target of ours. In the presets they are errors (CMAKE_COMPILE_WARNING_AS_ERROR); who builds from
# source with another compiler is not stopped by one.
add_library(kvq_warnings INTERFACE)
target_compile_options(kvq_warnings INTERFACE
    -Wall
    -Wextra
    -Wpedantic
    -Wconversion
    -Wsign-conversion
    -Wshadow
    -Wnon-virtual-dtor
    -Woverloaded-virtual
    -Wcast-align
    -Wformat=2
    -Wnull-dereference
    -Wimplicit-fallthrough
    -Wundef)
