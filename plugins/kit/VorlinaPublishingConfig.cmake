# find_package(VorlinaPublishing 2 REQUIRED HINTS path/to/PluginKit) gives
#
#   Vorlina::Plugin      the plug-in headers
#   Vorlina::Publishing  the library of all publishing plug-ins, with that of files, and the plug-in headers
#   vorlina_plugin(TARGET IDENTIFIER file.cpp...)  the library of a plug-in, with the name that Vorlina knows it by
include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core Gui)
find_dependency(Threads)
# For skins and other archives: who reads none needs it not.
find_package(LibArchive QUIET)

get_filename_component(VORLINA_KIT "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
if(NOT TARGET Vorlina::Plugin)
  add_library(Vorlina::Plugin INTERFACE IMPORTED)
  set_target_properties(Vorlina::Plugin PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${VORLINA_KIT}/include"
    INTERFACE_COMPILE_FEATURES cxx_std_20 INTERFACE_LINK_LIBRARIES "Qt6::Core;Qt6::Gui")
  add_library(Vorlina::Files STATIC IMPORTED)
  set_target_properties(Vorlina::Files PROPERTIES IMPORTED_LOCATION "${VORLINA_KIT}/lib/libvorlina_files.a"
    INTERFACE_LINK_LIBRARIES "Vorlina::Plugin")
  if(LibArchive_FOUND)
    set_property(TARGET Vorlina::Files APPEND PROPERTY INTERFACE_LINK_LIBRARIES LibArchive::LibArchive)
  endif()
  add_library(Vorlina::Publishing STATIC IMPORTED)
  set_target_properties(Vorlina::Publishing PROPERTIES IMPORTED_LOCATION "${VORLINA_KIT}/lib/libvorlina_publishing.a"
    INTERFACE_LINK_LIBRARIES "Vorlina::Files;Threads::Threads")
endif()

# Symbols are kept inside, since plug-ins with different versions of the libraries are loaded into one program.
function(vorlina_plugin TARGET IDENTIFIER)
  add_library(${TARGET} MODULE ${ARGN})
  target_link_libraries(${TARGET} PRIVATE Vorlina::Publishing)
  set_target_properties(${TARGET} PROPERTIES PREFIX "" OUTPUT_NAME ${IDENTIFIER} AUTOMOC ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()
