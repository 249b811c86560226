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

# kvq_warn_in(SOURCES...): for these alone, in a target where tools write sources that do not keep to the warnings. The
# headers that all of them share were read without -Wpedantic, which changes what the compiler predefines.
function(kvq_warn_in)
    get_target_property(options kvq_warnings INTERFACE_COMPILE_OPTIONS)
    list(REMOVE_ITEM options -Wpedantic)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS "${options}" SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()
