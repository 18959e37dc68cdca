# Installing the project as a CMake package: headers, static libraries, the resource module and
# a package configuration that gives namespaced imported targets (TxAL::TxAttributeList,
# TxAL::HostKit and one target per host library, TxAL::Qt when asked for).
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(TXAL_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/TxAttributeList")
set(TXAL_INSTALL_RESOURCEDIR "${CMAKE_INSTALL_DATADIR}/TxAttributeList/resources")

# Installs a library of this project with its exported headers (the folder "include" next to
# the calling CMakeLists.txt) into an export set: TxALTargets unless EXPORT names another.
function(txal_install_library target)
  cmake_parse_arguments(ARG "" "EXPORT;EXPORT_NAME" "" ${ARGN})
  if(NOT ARG_EXPORT)
    set(ARG_EXPORT TxALTargets)
  endif()
  if(ARG_EXPORT_NAME)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${ARG_EXPORT_NAME})
  endif()
  install(TARGETS ${target} EXPORT ${ARG_EXPORT}
          ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
          INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/include")
    install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/include/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
  endif()
endfunction()

# Gives target the include folder next to the calling CMakeLists.txt as its public headers, in
# the build tree and once installed.
macro(txal_public_include target)
  target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>"
                                              "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
endmacro()

# Called once from the top-level CMakeLists.txt after every target exists.
function(txal_install_package)
  install(EXPORT TxALTargets NAMESPACE TxAL:: FILE TxAttributeListTargets.cmake DESTINATION "${TXAL_INSTALL_CMAKEDIR}")
  if(TARGET TxalQt)
    install(EXPORT TxALQtTargets NAMESPACE TxAL:: FILE TxAttributeListQtTargets.cmake DESTINATION "${TXAL_INSTALL_CMAKEDIR}")
  endif()
  configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/TxAttributeListConfig.cmake.in"
                                "${PROJECT_BINARY_DIR}/TxAttributeListConfig.cmake"
                                INSTALL_DESTINATION "${TXAL_INSTALL_CMAKEDIR}"
                                PATH_VARS TXAL_INSTALL_RESOURCEDIR)
  # 0.x releases keep their interface within a minor version only.
  write_basic_package_version_file("${PROJECT_BINARY_DIR}/TxAttributeListConfigVersion.cmake"
                                   COMPATIBILITY SameMinorVersion)
  install(FILES "${PROJECT_BINARY_DIR}/TxAttributeListConfig.cmake" "${PROJECT_BINARY_DIR}/TxAttributeListConfigVersion.cmake"
          DESTINATION "${TXAL_INSTALL_CMAKEDIR}")
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/resources/" DESTINATION "${TXAL_INSTALL_RESOURCEDIR}")
endfunction()
