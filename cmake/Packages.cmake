# Debian packages: `cpack` in a build directory makes one for each component. What is installed without a component
# belongs to the first. A further package is an entry of `packages`, the description below it, and
# COMPONENT <its name> where its files are installed.
set(packages corvane corvane-dev)

set(CPACK_COMPONENT_CORVANE_DESCRIPTION
"formatter for C and C++ source code
Corvane C++ formats C and C++ source code and changes nothing but white
space. What the text looks like is decided by a scheme of some 130
properties. This package has the console programs and the schemes.")
set(CPACK_DEBIAN_CORVANE_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_CORVANE_PACKAGE_SUGGESTS git)

set(CPACK_COMPONENT_CORVANE-DEV_DESCRIPTION
"formatter for C and C++ source code, for other programs
Corvane C++ formats C and C++ source code and changes nothing but white
space. This package has the headers and the library with which other
programs do so.")
set(CPACK_DEBIAN_CORVANE-DEV_PACKAGE_SECTION libdevel)

if(TARGET corvane_desktop)
  list(APPEND packages corvane-desktop)
  set(CPACK_COMPONENT_CORVANE-DESKTOP_DESCRIPTION
"formatter for C and C++ source code, desktop program
Corvane C++ formats C and C++ source code and changes nothing but white
space. This package has the desktop program, in which schemes are edited
with a preview.")
  set(CPACK_DEBIAN_CORVANE-DESKTOP_PACKAGE_SECTION devel)
  # The schemes, and what reads the icon: nothing in the program itself names that.
  set(CPACK_DEBIAN_CORVANE-DESKTOP_PACKAGE_DEPENDS "corvane (= ${PROJECT_VERSION}), libqt6svg6")
endif()

# Every Debian package has these two.
foreach(package IN LISTS packages)
  install(FILES ${CMAKE_SOURCE_DIR}/cmake/packages/copyright ${CMAKE_SOURCE_DIR}/cmake/packages/changelog
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${package})
  string(TOUPPER ${package} component)
  set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${package})
endforeach()
install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/corvane COMPONENT corvane)

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL ${packages})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VENDOR "Vellum Software")
set(CPACK_PACKAGE_CONTACT "Vellum Software <${CORVANE_SUPPORT_ADDRESS}>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
    WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/CompressPages.cmake)
include(CPack)
