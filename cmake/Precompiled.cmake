# Headers of the toolkit and of the test library take longer to read than most sources to compile, so they are read once
# and shared by all targets of a kind. Sources include what they need all the same: the fuzzer's build does without.
set(KVQ_PRECOMPILED <algorithm> <array> <functional> <memory> <optional> <string> <string_view> <vector> <QObject> <QString>)
set(KVQ_PRECOMPILED_common ${KVQ_PRECOMPILED})
set(KVQ_PRECOMPILED_exporting ${KVQ_PRECOMPILED}) # where declarations are exported unless they say otherwise
set(KVQ_PRECOMPILED_quick ${KVQ_PRECOMPILED} <QQmlEngine> <QQuickItem> <QQuickWindow>)
set(KVQ_PRECOMPILED_tests ${KVQ_PRECOMPILED} <QTemporaryDir> <gmock/gmock.h> <gtest/gtest.h>)

# kvq_precompile(TARGET KIND LIBRARIES...): the libraries are those that the headers of the kind belong to.
function(kvq_precompile target kind)
    set(owner kvq_headers_${kind})
    if(NOT TARGET ${owner})
        set(source ${CMAKE_CURRENT_BINARY_DIR}/${owner}.cpp)
        file(CONFIGURE OUTPUT ${source} CONTENT "// Compiled for the headers that are read before it.\n")
        add_library(${owner} OBJECT EXCLUDE_FROM_ALL ${source})
        target_link_libraries(${owner} PRIVATE ${ARGN})
        target_precompile_headers(${owner} PRIVATE ${KVQ_PRECOMPILED_${kind}})
        set_target_properties(${owner} PROPERTIES AUTOMOC OFF)
        if(kind STREQUAL "exporting")
            set_target_properties(${owner} PROPERTIES CXX_VISIBILITY_PRESET default)
        endif()
    endif()
    target_precompile_headers(${target} REUSE_FROM ${owner})
    target_compile_options(${target} PRIVATE -fPIC) # programs too: headers are read for one or for the other
endfunction()
