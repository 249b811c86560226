# Who links an application needs the symbols of the platform, and not the platform: it may not be there, stand in a
# folder of its own, or be another one tomorrow. A library of its name, with what the engine asks of it, stands in.
set(stub_source ${PROJECT_BINARY_DIR}/platform_stub.cpp)
add_custom_command(OUTPUT ${stub_source}
    COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DENGINE=$<TARGET_FILE:kvqcallsetupengine>
        -DPLATFORM=$<TARGET_FILE:kvqplatform> -DSOURCE=${stub_source}
        -P ${PROJECT_SOURCE_DIR}/cmake/WritePlatformStub.cmake
    DEPENDS kvqcallsetupengine $<TARGET_FILE:kvqplatform> ${PROJECT_SOURCE_DIR}/cmake/WritePlatformStub.cmake
    VERBATIM)

add_library(kvqplatform_stub SHARED ${stub_source})
set_target_properties(kvqplatform_stub PROPERTIES
    OUTPUT_NAME kvqplatform
    SOVERSION ${PROJECT_VERSION_MAJOR}
    CXX_VISIBILITY_PRESET default
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/platform-stub)
target_link_options(kvqplatform_stub PRIVATE -Wl,--as-needed)
