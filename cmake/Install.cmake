# What is installed, a component for each Debian package (debian/control describes them): a library or program of
# another folder installs itself there, with the name of its package as the component.
include(CMakePackageConfigHelpers)
include(cmake/PlatformStub.cmake)

set(KVQ_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/kvqcallsetupengine)
set(KVQ_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KvqCallSetupEngine)
set(KVQ_STUB_DIR ${CMAKE_INSTALL_LIBDIR}/kvqcallsetupengine)

# The engine, and what applications build with.
install(TARGETS kvqcallsetupengine EXPORT KvqCallSetupEngineTargets
    LIBRARY COMPONENT libkvqcallsetupengine1 NAMELINK_COMPONENT libkvqcallsetupengine-dev
    INCLUDES DESTINATION ${KVQ_INCLUDE_DIR})
install(DIRECTORY include/ DESTINATION ${KVQ_INCLUDE_DIR}
    COMPONENT libkvqcallsetupengine-dev FILES_MATCHING PATTERN "*.h")
foreach(header LogModule TAPI_ACCE TAPI_CALL TAPI_CS TAPI_NETWORK TAPI_RESULT TAPI_SECURITY TAPI_USSD TAPI_VOICE)
    install(FILES platform/${header}.h DESTINATION ${KVQ_INCLUDE_DIR} COMPONENT libkvqcallsetupengine-dev)
endforeach()

# The platform's stand-in for the linker. An application that names nothing of the platform does not depend on it.
install(TARGETS kvqplatform_stub
    LIBRARY DESTINATION ${KVQ_STUB_DIR} COMPONENT libkvqcallsetupengine-dev)
set(KVQ_STUB_LIBS -Wl,--push-state,--as-needed,-lkvqplatform,--pop-state)
# Its folder is an option: link directories end up in the run path of what is built, and nobody may load it.
target_link_options(kvqcallsetupengine INTERFACE
    $<INSTALL_INTERFACE:-L$<INSTALL_PREFIX>/${KVQ_STUB_DIR}>
    $<INSTALL_INTERFACE:LINKER:-rpath-link,$<INSTALL_PREFIX>/${KVQ_STUB_DIR}>)
target_link_libraries(kvqcallsetupengine INTERFACE $<INSTALL_INTERFACE:${KVQ_STUB_LIBS}>)

install(EXPORT KvqCallSetupEngineTargets NAMESPACE Kvq:: DESTINATION ${KVQ_CMAKE_DIR}
    COMPONENT libkvqcallsetupengine-dev)
configure_package_config_file(cmake/KvqCallSetupEngineConfig.cmake.in
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfig.cmake INSTALL_DESTINATION ${KVQ_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfig.cmake
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfigVersion.cmake
    DESTINATION ${KVQ_CMAKE_DIR} COMPONENT libkvqcallsetupengine-dev)

# The package can be moved: the prefix is where the file stands.
file(RELATIVE_PATH KVQ_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/kvqcallsetupengine.pc.in ${PROJECT_BINARY_DIR}/kvqcallsetupengine.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kvqcallsetupengine.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT libkvqcallsetupengine-dev)

# Platform libraries have one name and one place: the phone on the desk is the one that a plain install puts there. Nobody
# links one by name, so none brings a name for the linker.
if(NOT KVQ_PLATFORM_LIBRARY)
    install(TARGETS kvqplatform
        LIBRARY COMPONENT libkvqplatform1-simulator NAMELINK_SKIP)
endif()
if(TARGET kvqplatform_ofono)
    install(TARGETS kvqplatform_ofono
        LIBRARY COMPONENT libkvqplatform1-ofono NAMELINK_SKIP EXCLUDE_FROM_ALL)
endif()

# Programs.
foreach(program kvq-console kvq-modem)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME COMPONENT ${program})
        install(FILES docs/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${program})
    endif()
endforeach()

# The packages that this build holds.
get_cmake_property(packages COMPONENTS)
list(JOIN packages "\n" packages)
file(WRITE ${PROJECT_BINARY_DIR}/packages.txt "${packages}\n")

install(SCRIPT cmake/SystemRunPath.cmake ALL_COMPONENTS) # last, when all is in its place
