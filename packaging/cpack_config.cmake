# What differs between the Debian package and the portable archive.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_INSTALL_CMAKE_PROJECTS "${CPACK_BUILD_FOLDER};VeyraCalendar;system;/")
  set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
  # The symbols go into a package of their own, for which they must not be stripped before.
  set(CPACK_STRIP_FILES OFF)
else()
  set(CPACK_INSTALL_CMAKE_PROJECTS "${CPACK_BUILD_FOLDER};VeyraCalendar;portable;/")
  set(CPACK_PACKAGING_INSTALL_PREFIX "/")
endif()
