# What `cmake --install` puts where on Linux, the man page built from its
# scdoc source, and the packages that `cpack` makes from the installed tree
# (a .deb and a .tar.gz).
set(CMAKE_INSTALL_DOCDIR share/doc/scrivolt CACHE PATH "Documentation folder")
include(GNUInstallDirs)

install(TARGETS scrivolt RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

find_program(SCDOC scdoc)
if(SCDOC)
  set(SCRIVOLT_MAN_PAGE ${CMAKE_BINARY_DIR}/scrivolt.1)
  add_custom_command(OUTPUT ${SCRIVOLT_MAN_PAGE}
    COMMAND ${CMAKE_COMMAND} -DSCDOC=${SCDOC} -DIN=${CMAKE_SOURCE_DIR}/docs/scrivolt.1.scd
            -DOUT=${SCRIVOLT_MAN_PAGE} -P ${CMAKE_SOURCE_DIR}/cmake/RunScdoc.cmake
    DEPENDS ${CMAKE_SOURCE_DIR}/docs/scrivolt.1.scd ${CMAKE_SOURCE_DIR}/cmake/RunScdoc.cmake
    COMMENT "Building the man page scrivolt.1")
  add_custom_target(scrivolt_man_page ALL DEPENDS ${SCRIVOLT_MAN_PAGE})
  install(FILES ${SCRIVOLT_MAN_PAGE} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
else()
  message(WARNING "scdoc not found: the man page is not built")
endif()

install(FILES README.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.md")
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY editors/vim/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vim/vimfiles)
install(FILES editors/textmate/scrivolt.tmLanguage.json DESTINATION ${CMAKE_INSTALL_DATADIR}/scrivolt/editors)
install(FILES tools/completion/scrivolt.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME scrivolt)

set(CPACK_PACKAGE_NAME scrivolt)
set(CPACK_PACKAGE_VENDOR "The Scrivolt developers")
set(CPACK_PACKAGE_CONTACT "The Scrivolt developers <maintainers@scrivolt.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "text-template processor: fills script blocks in templates from parameters")
set(CPACK_PACKAGE_DESCRIPTION "Scrivolt reads templates - ordinary text with script blocks that call built-in
and user-defined functions over a tree of named parameters - evaluates them and
writes the produced text in a chosen encoding. Parameters come from the command
line, from command files, or are decoded from XML, JSON, CSV, TSV or URL text.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://www.scrivolt.example/")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_RESOURCE_FILE_README ${CMAKE_SOURCE_DIR}/README.md)
set(CPACK_GENERATOR "DEB;TGZ")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_FILE_NAME scrivolt-${PROJECT_VERSION}-linux-x86_64)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${CPACK_PACKAGE_HOMEPAGE_URL})
include(CPack)
