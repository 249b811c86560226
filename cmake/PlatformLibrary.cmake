# The phone's own platform library, in place of the simulated phone. What would only show when the engine is loaded is
# said here.
function(kvq_expect_platform_library library)
    if(NOT EXISTS ${library})
        message(FATAL_ERROR "KVQ_PLATFORM_LIBRARY: there is no file ${library}")
    endif()
    execute_process(COMMAND ${CMAKE_READELF} -d ${library} OUTPUT_VARIABLE entries COMMAND_ERROR_IS_FATAL ANY)
    if(NOT entries MATCHES "SONAME[^\n]*\\[libkvqplatform\\.so\\.${PROJECT_VERSION_MAJOR}\\]")
        message(FATAL_ERROR "KVQ_PLATFORM_LIBRARY: the SONAME of ${library} is not "
            "libkvqplatform.so.${PROJECT_VERSION_MAJOR}, the name that the engine asks the loader for")
    endif()
    if(entries MATCHES "NEEDED[^\n]*libQt([56])Core\\." AND NOT CMAKE_MATCH_1 EQUAL KVQ_QT_MAJOR)
        message(FATAL_ERROR "KVQ_PLATFORM_LIBRARY: ${library} is built with Qt ${CMAKE_MATCH_1}: "
            "set KVQ_QT_MAJOR to ${CMAKE_MATCH_1}")
    endif()
endfunction()

kvq_expect_platform_library(${KVQ_PLATFORM_LIBRARY})
add_library(kvqplatform SHARED IMPORTED)
set_target_properties(kvqplatform PROPERTIES IMPORTED_LOCATION ${KVQ_PLATFORM_LIBRARY})
