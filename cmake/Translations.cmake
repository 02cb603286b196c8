# vorlina_translations(TARGET FOLDER): compiles each LANGUAGE.ts of the folder, and gives the target all of them as the
# resource "translations", from :/translations/LANGUAGE.qm.
find_program(LRELEASE lrelease HINTS /usr/lib/qt6/bin REQUIRED)

function(vorlina_translations TARGET FOLDER)
  file(GLOB texts CONFIGURE_DEPENDS ${FOLDER}/*.ts)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/translations)
  set(list ${folder}/translations.qrc)
  set(entries "")
  foreach(text ${texts})
    cmake_path(GET text STEM language)
    add_custom_command(OUTPUT ${folder}/${language}.qm DEPENDS ${text}
      COMMAND ${LRELEASE} -silent ${text} -qm ${folder}/${language}.qm VERBATIM)
    list(APPEND compiled ${folder}/${language}.qm)
    string(APPEND entries "<file>${language}.qm</file>")
  endforeach()
  file(MAKE_DIRECTORY ${folder})
  file(CONFIGURE OUTPUT ${list} CONTENT "<RCC><qresource prefix=\"/translations\">${entries}</qresource></RCC>\n")
  add_custom_command(OUTPUT ${folder}/translations.cpp DEPENDS ${list} ${compiled}
    COMMAND Qt6::rcc --name translations -o ${folder}/translations.cpp ${list} VERBATIM)
  set_source_files_properties(${folder}/translations.cpp PROPERTIES SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON)
  target_sources(${TARGET} PRIVATE ${folder}/translations.cpp)
endfunction()
