# Two Debian packages by CPack: kestrabel-cli for a server, kestrabel for a desktop. Neither needs the other.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The Kestrabel authors <kestrabel@example.invalid>")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# As Debian has its folders, whatever the mask of who builds.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENTS_ALL tool)

set(about "Kestrabel turns the track files of GPS speed events - speed sailing,
windsurfing, kiting - into ranked results: it derives speed, direction and
validity of every fix with ellipsoidal geodesy, finds each rider's best runs in
every division, and ranks the riders.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME kestrabel-cli)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION science)
set(CPACK_DEBIAN_TOOL_PACKAGE_SUGGESTS kestrabel)
set(CPACK_COMPONENT_TOOL_DESCRIPTION "judge GPS speed events without a window
${about}
.
This package has the tool for the command line, which prints tables, CSV and
JSON, and a small sample event.")

if(KESTRABEL_WINDOW)
  list(APPEND CPACK_COMPONENTS_ALL window)
  set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME kestrabel)
  set(CPACK_DEBIAN_WINDOW_PACKAGE_SECTION science)
  # The window's icons are SVG, drawn by a plugin that is loaded at run time and so not seen in the program.
  set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS libqt6svg6)
  # The sample event comes with the tool.
  set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "kestrabel-cli, shared-mime-info")
  set(CPACK_COMPONENT_WINDOW_DESCRIPTION "judge GPS speed events
${about}
.
This package has the window, in which every figure can be followed back
to the fixes it comes from.")
endif()

include(CPack)
