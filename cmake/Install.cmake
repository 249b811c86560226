# What is installed: the library, its headers with the platform headers they need, and how others find it.
include(CMakePackageConfigHelpers)

set(KVQ_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/kvqcallsetupengine)
set(KVQ_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KvqCallSetupEngine)

install(TARGETS kvqcallsetupengine EXPORT KvqCallSetupEngineTargets
    LIBRARY COMPONENT library NAMELINK_COMPONENT development
    INCLUDES DESTINATION ${KVQ_INCLUDE_DIR})
install(DIRECTORY include/ DESTINATION ${KVQ_INCLUDE_DIR} COMPONENT development FILES_MATCHING PATTERN "*.h")
foreach(family ACCE CALL CS NETWORK RESULT SECURITY USSD VOICE)
    install(FILES platform/TAPI_${family}.h DESTINATION ${KVQ_INCLUDE_DIR} COMPONENT development)
endforeach()

install(EXPORT KvqCallSetupEngineTargets NAMESPACE Kvq:: DESTINATION ${KVQ_CMAKE_DIR} COMPONENT development)
configure_package_config_file(cmake/KvqCallSetupEngineConfig.cmake.in
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfig.cmake INSTALL_DESTINATION ${KVQ_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfig.cmake
    ${PROJECT_BINARY_DIR}/KvqCallSetupEngineConfigVersion.cmake
    DESTINATION ${KVQ_CMAKE_DIR} COMPONENT development)

# The package can be moved: the prefix is where the file stands.
file(RELATIVE_PATH KVQ_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/kvqcallsetupengine.pc.in ${PROJECT_BINARY_DIR}/kvqcallsetupengine.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kvqcallsetupengine.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(NOT KVQ_PLATFORM_LIBRARY)
    install(TARGETS kvqplatform LIBRARY COMPONENT simulator NAMELINK_SKIP)
endif()
if(TARGET kvq-console)
    install(TARGETS kvq-console RUNTIME COMPONENT simulator)
    install(FILES docs/kvq-console.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT simulator)
endif()

# Debian packages: the library, what its users build with, and the phone on the desk.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The call setup engine developers <engine@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL library development simulator)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${PROJECT_BINARY_DIR}/simulator ${PROJECT_BINARY_DIR}/utility)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libkvqcallsetupengine1)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "Call setup engine of a Linux phone
 Call settings, SIM services, network selection and call control for the phone's own applications.")
# A phone brings a platform library of its own; on a desk the simulated phone does.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "libkvqplatform1")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkvqcallsetupengine-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libkvqcallsetupengine1 (= ${PROJECT_VERSION}), qt6-base-dev")
if(KVQ_QT_MAJOR EQUAL 5)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
        "libkvqcallsetupengine1 (= ${PROJECT_VERSION}), qtbase5-dev")
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Development files of the call setup engine
 Headers, pkg-config file and CMake package.")

set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME kvq-simulator)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS "libkvqcallsetupengine1 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_SIMULATOR_PACKAGE_PROVIDES "libkvqplatform1")
set(CPACK_COMPONENT_SIMULATOR_DESCRIPTION "Simulated phone and console for the call setup engine
 A platform library that behaves like a phone, and a console that reaches every operation.")
include(CPack)
