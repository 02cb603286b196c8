# Read by CPack for each kind of package: which files are its own, and where they go.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_COMPONENTS_ALL installed)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
else()
  set(CPACK_COMPONENTS_ALL portable)
  set(CPACK_PACKAGING_INSTALL_PREFIX /)
endif()
