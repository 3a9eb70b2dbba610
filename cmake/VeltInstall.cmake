# cmake --install and the packages: libraries, headers, the CMake package, pkg-config files, documentation, examples.

install(TARGETS VELTRuntime EXPORT VELTRuntimeTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(TARGET VELTRuntimeUI)
  install(TARGETS VELTRuntimeUI EXPORT VELTRuntimeTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(DIRECTORY Runtime/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
install(EXPORT VELTRuntimeTargets NAMESPACE VELTRuntime:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VELTRuntime)

configure_package_config_file(cmake/VELTRuntimeConfig.cmake.in ${PROJECT_BINARY_DIR}/VELTRuntimeConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VELTRuntime)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VELTRuntimeConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VELTRuntimeConfig.cmake ${PROJECT_BINARY_DIR}/VELTRuntimeConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/VELTRuntime)

configure_file(cmake/VELTRuntime.pc.in ${PROJECT_BINARY_DIR}/VELTRuntime.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/VELTRuntime.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES README.md LICENSE CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY Documentation/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/Documentation)
install(DIRECTORY Examples DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libveltruntime-dev)
set(CPACK_PACKAGE_CONTACT "VELTRuntime developers <developers@veltruntime.invalid>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcurl4 | libcurl3-gnutls")  # loaded at the first URL
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
include(CPack)
