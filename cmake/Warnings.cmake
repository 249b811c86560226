# Warnings are errors, in every target that links kvq_warnings.
add_library(kvq_warnings INTERFACE)
target_compile_options(kvq_warnings INTERFACE
    -Werror
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
