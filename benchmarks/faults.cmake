# The engine with deliberate faults, for the test of the verdict: two of its sources with a needless allocation and a
# needless copy written in. Loaded before the engine, the library answers for it.
function(kvq_write_fault source text fault)
    file(READ ${PROJECT_SOURCE_DIR}/utility/${source} code)
    string(REPLACE "${text}" "${text}${fault}" faulty "${code}")
    if(faulty STREQUAL code)
        message(FATAL_ERROR "utility/${source} no longer has the place of the fault: ${text}")
    endif()
    string(REPLACE "#include \"../" "#include \"${PROJECT_SOURCE_DIR}/utility/" faulty "${faulty}")
    get_filename_component(name ${source} NAME)
    file(CONFIGURE OUTPUT faulty/${name} CONTENT "${faulty}" @ONLY)
    get_filename_component(folder ${source} DIRECTORY)
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/faulty/${name} PROPERTIES
        INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR}/utility/${folder})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/utility/${source})
endfunction()

kvq_write_fault(PHONE_ENG_WrapTapi/VoiceCalls.cpp
    "_TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(unsigned char mute)\n{\n"
    "    operator delete(operator new(1));\n")
kvq_write_fault(PHONE_ENG_Setup/UsimAccounts.cpp
    "        LOG_MESSAGE(R\"(\\n Label Len = %d )\", application.labelLength);\n"
    "        labelOf(application);\n")
add_library(kvq_engine_with_faults SHARED
    ${CMAKE_CURRENT_BINARY_DIR}/faulty/VoiceCalls.cpp
    ${CMAKE_CURRENT_BINARY_DIR}/faulty/UsimAccounts.cpp)
target_compile_options(kvq_engine_with_faults PRIVATE -Os)
target_link_libraries(kvq_engine_with_faults PRIVATE kvqcallsetupengine kvqplatform kvq_qt kvq_warnings)
