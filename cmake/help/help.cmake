# Velmora.chm, the compiled HTML help, built beside velmora.exe from the docs
# and the controls' help table (cmake/help/build_help.pl tells how).
option(VELMORA_HELP "Build the help file Velmora.chm (needs perl, cmark-gfm and chmcmd)" ON)
if(NOT VELMORA_HELP)
  return()
endif()

find_program(VELMORA_PERL perl)
find_program(VELMORA_CMARK_GFM cmark-gfm)
find_program(VELMORA_CHMCMD chmcmd)
if(NOT VELMORA_PERL OR NOT VELMORA_CMARK_GFM OR NOT VELMORA_CHMCMD)
  message(FATAL_ERROR "The help file needs perl, cmark-gfm and chmcmd (tools/setup.sh installs them); "
                      "configure with -DVELMORA_HELP=OFF to build without it.")
endif()

file(GLOB velmora_help_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md ${PROJECT_SOURCE_DIR}/docs/*.png
     ${PROJECT_SOURCE_DIR}/docs/help/* ${PROJECT_SOURCE_DIR}/README.md)
set(velmora_chm ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Velmora.chm)
add_custom_command(
  OUTPUT ${velmora_chm}
  COMMAND ${VELMORA_PERL} ${PROJECT_SOURCE_DIR}/cmake/help/build_help.pl ${PROJECT_SOURCE_DIR}
          ${CMAKE_BINARY_DIR}/help ${velmora_chm} ${VELMORA_CMARK_GFM} ${VELMORA_CHMCMD}
  DEPENDS ${PROJECT_SOURCE_DIR}/cmake/help/build_help.pl ${velmora_help_pages}
          ${PROJECT_SOURCE_DIR}/src/editor/control_help_table.inc ${PROJECT_SOURCE_DIR}/src/editor/form_controls.h
          ${PROJECT_SOURCE_DIR}/src/editor/editor_layout.cpp ${PROJECT_SOURCE_DIR}/src/batchvars/batch_help_table.inc
          ${PROJECT_SOURCE_DIR}/src/batchvars/envvar_setup_layout.h
          ${PROJECT_SOURCE_DIR}/src/batchvars/envvar_setup_layout.cpp
          ${PROJECT_SOURCE_DIR}/src/language/parser.cpp
  COMMENT "Building Velmora.chm"
  VERBATIM)
add_custom_target(velmora_help ALL DEPENDS ${velmora_chm})
