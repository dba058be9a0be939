include(CMakePackageConfigHelpers)

set(ORV_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/OrvEngine)
set(ORV_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/OrvEngine)
set(ORV_INSTALL_MEDIADIR ${CMAKE_INSTALL_DATADIR}/OrvEngine/media)

# Two components, the two packages a distribution ships: Runtime (the library
# and its media) and Development (headers, CMake package, pkg-config, tools).
install(TARGETS OrvEngine EXPORT OrvEngineTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${ORV_PUBLIC_HEADERS} ${ORV_TEMPLATE_HEADERS} DESTINATION ${ORV_INSTALL_INCLUDEDIR}
  COMPONENT Development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/media/ DESTINATION ${ORV_INSTALL_MEDIADIR} COMPONENT Runtime)
install(EXPORT OrvEngineTargets NAMESPACE OrvEngine:: DESTINATION ${ORV_INSTALL_CMAKEDIR}
  COMPONENT Development)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/OrvEngineConfig.cmake.in
  ${PROJECT_BINARY_DIR}/install-package/OrvEngineConfig.cmake
  INSTALL_DESTINATION ${ORV_INSTALL_CMAKEDIR}
  PATH_VARS ORV_INSTALL_MEDIADIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvEngineConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/install-package/OrvEngineConfig.cmake
  ${PROJECT_BINARY_DIR}/OrvEngineConfigVersion.cmake ${PROJECT_SOURCE_DIR}/cmake/OrvFindFont.cmake
  DESTINATION ${ORV_INSTALL_CMAKEDIR} COMPONENT Development)

# The same package straight from the build tree: a game finds it with
# -DOrvEngine_DIR=<build folder>, the engine's media then read from the sources.
export(EXPORT OrvEngineTargets NAMESPACE OrvEngine:: FILE ${PROJECT_BINARY_DIR}/OrvEngineTargets.cmake)
set(ORV_BUILD_TREE_MEDIA_DIR ${PROJECT_SOURCE_DIR}/media)
set(ORV_BUILD_TREE_CMAKE_DIR ${PROJECT_SOURCE_DIR}/cmake)
configure_file(${PROJECT_SOURCE_DIR}/cmake/OrvEngineBuildTreeConfig.cmake.in
  ${PROJECT_BINARY_DIR}/OrvEngineConfig.cmake @ONLY)

# The pkg-config file finds its prefix from where it lies, so the installed
# tree can move.
file(RELATIVE_PATH ORV_PC_TO_PREFIX /orv/${CMAKE_INSTALL_LIBDIR}/pkgconfig /orv)
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvengine.pc.in ${PROJECT_BINARY_DIR}/orvengine.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvengine.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT Development)

# orv-new-game writes a small game project ready to build against the package.
if(ORV_BUILD_TOOLS)
  install(PROGRAMS ${PROJECT_SOURCE_DIR}/scripts/new-game DESTINATION ${CMAKE_INSTALL_BINDIR}
    RENAME orv-new-game COMPONENT Development)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/tools/new-game/ DESTINATION ${CMAKE_INSTALL_DATADIR}/OrvEngine/new-game
    COMPONENT Development)
endif()
