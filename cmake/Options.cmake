# The one interface target that every target of the project links: language, warnings, strict Qt.
add_library(vorlina_options INTERFACE)
target_compile_features(vorlina_options INTERFACE cxx_std_20)
target_compile_options(vorlina_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
  -Wcast-qual -Wimplicit-fallthrough $<$<BOOL:${VORLINA_WERROR}>:-Werror>)
target_compile_definitions(vorlina_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER QT_DISABLE_DEPRECATED_BEFORE=0x060400)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

if(VORLINA_SANITIZE)
  target_compile_options(vorlina_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(vorlina_options INTERFACE -fsanitize=address,undefined)
endif()

if(VORLINA_PACKAGE)
  # What distributions ask of programs, and no path of the machine that built it. The run path serves the portable
  # archive, whose libraries lie in "lib"; it has to hold for the libraries' own needs too, as the old kind alone does.
  target_compile_options(vorlina_options INTERFACE -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
    -ffile-prefix-map=${PROJECT_BINARY_DIR}=. -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
  target_link_options(vorlina_options INTERFACE LINKER:-z,relro,-z,now LINKER:--disable-new-dtags LINKER:--strip-all)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  # The two sloppiness settings let precompiled headers be cached.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
  add_compile_options(-fpch-preprocess)
endif()
