include(CMakeFindDependencyMacro)
find_dependency(Qt6 COMPONENTS Core)
find_dependency(KvqCallSetupEngine)
include(${CMAKE_CURRENT_LIST_DIR}/KvqCallSetupWorkerTargets.cmake)
