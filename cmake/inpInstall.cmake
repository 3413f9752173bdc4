# Install rules: the library, the driver, the public headers under include/inp/, the
# CMake package (find_package(inp)) and inp.pc for pkg-config.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(INP_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/inp)

target_include_directories(inp INTERFACE
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/inp>)
install(TARGETS inp EXPORT inpTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
list(TRANSFORM INP_PUBLIC_HEADERS PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE INP_PUBLIC_HEADER_FILES)
install(FILES ${INP_PUBLIC_HEADER_FILES} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/inp)

if(TARGET inpdeck)
  # The installed driver finds the installed library wherever the prefix is moved to.
  file(RELATIVE_PATH INP_BIN_TO_LIB ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(inpdeck PROPERTIES INSTALL_RPATH "$ORIGIN/${INP_BIN_TO_LIB}")
  install(TARGETS inpdeck RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

install(EXPORT inpTargets NAMESPACE inp:: DESTINATION ${INP_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/inpConfig.cmake.in
  ${PROJECT_BINARY_DIR}/inpConfig.cmake INSTALL_DESTINATION ${INP_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/inpConfigVersion.cmake
  COMPATIBILITY ${INP_VERSION_COMPATIBILITY})
install(FILES ${PROJECT_BINARY_DIR}/inpConfig.cmake ${PROJECT_BINARY_DIR}/inpConfigVersion.cmake
  DESTINATION ${INP_CMAKE_DIR})

# inp.pc names the prefix the files really go to, which `cmake --install --prefix`
# may change after configuring; so it is written when installing.
install(CODE "
  set(INP_PC_PREFIX \"\${CMAKE_INSTALL_PREFIX}\")
  set(CMAKE_INSTALL_LIBDIR \"${CMAKE_INSTALL_LIBDIR}\")
  set(CMAKE_INSTALL_INCLUDEDIR \"${CMAKE_INSTALL_INCLUDEDIR}\")
  set(PROJECT_VERSION \"${PROJECT_VERSION}\")
  configure_file(\"${PROJECT_SOURCE_DIR}/cmake/inp.pc.in\" \"${PROJECT_BINARY_DIR}/inp.pc\" @ONLY)")
install(FILES ${PROJECT_BINARY_DIR}/inp.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
