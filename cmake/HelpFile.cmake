# The compiled-HTML help file, built from the pages in help/ with chmcmd
# (Debian fp-utils) and put in Help/ beside the executable, where the program
# looks for it. The pages are compiled in a copy, so the source tree stays
# clean.
function(scrivolt_help_file)
  find_program(CHMCMD chmcmd REQUIRED)
  file(GLOB pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/help/*)
  set(work ${CMAKE_BINARY_DIR}/help-pages)
  set(output ${CMAKE_BINARY_DIR}/Help/Scrivolt_EN.chm)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${work}
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/help ${work}
    COMMAND ${CMAKE_COMMAND} -E chdir ${work} ${CHMCMD} Scrivolt_EN.hhp
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/Help
    COMMAND ${CMAKE_COMMAND} -E copy ${work}/Scrivolt_EN.chm ${output}
    DEPENDS ${pages}
    COMMENT "Compiling the help file Help/Scrivolt_EN.chm"
    VERBATIM)
  add_custom_target(help_file ALL DEPENDS ${output})
endfunction()
