# vorlina_room([CORE a.cpp b.cpp] [WINDOWS frmC.cpp ...]): adds a room's files to the two libraries. CORE knows no
# widget: vorlina_core links Qt Core and Gui alone, so an include of a widget there does not compile.
function(vorlina_room)
  cmake_parse_arguments(ROOM "" "" "CORE;WINDOWS" ${ARGN})
  target_sources(vorlina_core PRIVATE ${ROOM_CORE})
  target_sources(vorlina_windows PRIVATE ${ROOM_WINDOWS})
endfunction()

# vorlina_tests(NAME [WINDOWS] SOURCES a.cpp ...): one test runner. WINDOWS links the windows and runs a QApplication on
# the offscreen platform; without it the runner has the core alone.
function(vorlina_tests NAME)
  cmake_parse_arguments(T "WINDOWS" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${NAME} ${T_SOURCES})
  if(T_WINDOWS)
    target_link_libraries(${NAME} PRIVATE vorlina_test_windows ${T_LIBRARIES})
    target_precompile_headers(${NAME} REUSE_FROM vorlina_test_windows)
  else()
    target_link_libraries(${NAME} PRIVATE vorlina_test_core ${T_LIBRARIES})
    target_precompile_headers(${NAME} REUSE_FROM vorlina_test_core)
  endif()
  add_test(NAME ${NAME} COMMAND ${NAME})
  set_tests_properties(${NAME} PROPERTIES ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp" TIMEOUT 600)
endfunction()
