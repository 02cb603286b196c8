set(CPACK_PACKAGE_NAME vorlina)
set(CPACK_PACKAGE_VENDOR Norsel)
set(CPACK_PACKAGE_CONTACT "Norsel <vorlina@norsel.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://vorlina.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "makes product catalogs and publishes them")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/CPackOptions.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_INSTALLED_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_INSTALLED_PACKAGE_NAME vorlina)
set(CPACK_DEBIAN_INSTALLED_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_INSTALLED_DESCRIPTION
"Vorlina is for small companies that make their product catalogs themselves.
Products stand in a grid that is worked like a spreadsheet, with their prices,
pictures, technical data and filters. Catalogs live in one database file and a
folder of pictures of the user's own.
A finished catalog becomes a web site that can be put on a host as it is;
further plug-ins publish it in other ways. The program speaks Italian and
English, and vorlina-batch does its work without a display.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What Qt loads while it runs, which no library tells: drawings, the help's database, Italian texts of its own boxes.
set(CPACK_DEBIAN_INSTALLED_PACKAGE_DEPENDS "libqt6svg6, libqt6sql6-sqlite, qt6-translations-l10n")
set(CPACK_DEBIAN_INSTALLED_PACKAGE_RECOMMENDS "libsecret-1-0, qt6-gtk-platformtheme, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

string(TOLOWER ${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR} platform)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_PORTABLE_FILE_NAME Vorlina-${PROJECT_VERSION}-${platform})
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
include(CPack)
