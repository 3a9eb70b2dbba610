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

# The folders are found from where the file lies, whatever the place that everything is installed to.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
           OUTPUT_VARIABLE VELT_PREFIX_FROM_PKGCONFIG)
foreach(library IN ITEMS VELTRuntime VELTRuntimeUI)
  if(TARGET ${library})
    configure_file(cmake/${library}.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  endif()
endforeach()

install(FILES README.md LICENSE CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES Benchmarks/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/Benchmarks)
install(DIRECTORY Documentation/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/Documentation)
install(DIRECTORY Examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
        PATTERN build EXCLUDE  # what the builder built
        PATTERN .gitignore EXCLUDE)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libveltruntime-dev)
set(CPACK_PACKAGE_CONTACT "VELTRuntime developers <developers@veltruntime.invalid>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcurl4 | libcurl3-gnutls")  # loaded at the first URL
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "g++, cmake, pkg-config, qt6-base-dev")  # the last for the examples with windows
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
include(CPack)
