# What `cmake --install` puts in place, and the packages CPack makes of it.
# Linux: the library with its SONAME, the header, the command, the Spanish
# man page, a pkg-config file and a CMake package (quelcnv::quelcnv); a
# Debian package of all of it. Windows: the DLL, the command, the header, the
# module-definition file and a short Spanish README, in a zip.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

if(WIN32)
  install(TARGETS quelcnv RUNTIME DESTINATION . LIBRARY DESTINATION . ARCHIVE DESTINATION lib)
  install(TARGETS quelcnv_cli RUNTIME DESTINATION .)
  install(FILES ${PROJECT_SOURCE_DIR}/include/quelcnv.h ${PROJECT_SOURCE_DIR}/include/quelcnv_api.h
                ${PROJECT_BINARY_DIR}/generated/quelcnv.def
                ${PROJECT_SOURCE_DIR}/doc/LEEME-windows.txt
          DESTINATION .)
  set(CPACK_GENERATOR ZIP)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(CPACK_SYSTEM_NAME win32)
  else()
    set(CPACK_SYSTEM_NAME win64)
  endif()
else()
  set_target_properties(quelcnv PROPERTIES VERSION ${PROJECT_VERSION}
                                           SOVERSION ${PROJECT_VERSION_MAJOR})
  install(TARGETS quelcnv EXPORT quelcnvTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(TARGETS quelcnv_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/include/quelcnv.h ${PROJECT_SOURCE_DIR}/include/quelcnv_api.h
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/doc/quelcnv.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${PROJECT_SOURCE_DIR}/completions/quelcnv.bash
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME quelcnv)

  set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/quelcnv)
  install(EXPORT quelcnvTargets NAMESPACE quelcnv:: DESTINATION ${config_dir})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/quelcnvConfig.cmake.in
                                ${PROJECT_BINARY_DIR}/generated/quelcnvConfig.cmake
                                INSTALL_DESTINATION ${config_dir})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/generated/quelcnvConfigVersion.cmake
                                   COMPATIBILITY SameMajorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/generated/quelcnvConfig.cmake
                ${PROJECT_BINARY_DIR}/generated/quelcnvConfigVersion.cmake
          DESTINATION ${config_dir})

  # The pkg-config file finds the prefix from its own place, so that the
  # tree works wherever it is installed.
  file(RELATIVE_PATH QUELCNV_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/quelcnv.pc.in
                 ${PROJECT_BINARY_DIR}/generated/quelcnv.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/generated/quelcnv.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION science)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6 (>= 2.34), libexpat1 (>= 2.1), libgcc-s1, libstdc++6 (>= 12)")
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
endif()

set(CPACK_PACKAGE_NAME quelcnv)
set(CPACK_PACKAGE_VENDOR quelcnv)
set(CPACK_PACKAGE_CONTACT "Equipo de quelcnv <quelcnv@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Conversion de ficheros de diseno de carreteras y de topografia")
set(CPACK_PACKAGE_DESCRIPTION
    "Biblioteca y orden que convierten ejes, rasantes, transversales, peraltes, LandXML y datos de campo entre los formatos de los programas de diseno de carreteras y de los colectores de datos.")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/packages)
include(CPack)
