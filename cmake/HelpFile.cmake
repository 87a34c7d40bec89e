# The compiled-HTML help files, built with chmcmd (Debian fp-utils) from the
# pages of one language and put in Help/ beside the executable, where the
# program looks for them. The English pages are in help/, each translation's
# in help/<code>/ with the same file names (the help topic messages name
# them); all share help/style.css. The pages are compiled in a copy, so the
# source tree stays clean.
#
#   scrivolt_help_file(EN help)        -> Help/Scrivolt_EN.chm
#   scrivolt_help_file(NL help/nl)     -> Help/Scrivolt_NL.chm
function(scrivolt_help_file language folder)
  find_program(CHMCMD chmcmd REQUIRED)
  set(name Scrivolt_${language})
  file(GLOB pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.html ${CMAKE_SOURCE_DIR}/${folder}/${name}.hh?)
  set(style ${CMAKE_SOURCE_DIR}/help/style.css)
  set(work ${CMAKE_BINARY_DIR}/help-pages/${language})
  set(output ${CMAKE_BINARY_DIR}/Help/${name}.chm)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${work}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${work}
    COMMAND ${CMAKE_COMMAND} -E copy ${pages} ${style} ${work}
    COMMAND ${CMAKE_COMMAND} -E chdir ${work} ${CHMCMD} ${name}.hhp
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/Help
    COMMAND ${CMAKE_COMMAND} -E copy ${work}/${name}.chm ${output}
    DEPENDS ${pages} ${style}
    COMMENT "Compiling the help file Help/${name}.chm"
    VERBATIM)
  add_custom_target(help_file_${language} ALL DEPENDS ${output})
endfunction()
