# The program's icon and link cursor, drawn at build time by tools/draw_icons.py
# into the folder the resource compiler reads them from.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(scrivolt_icons folder)
  add_custom_command(
    OUTPUT ${folder}/scrivolt.ico ${folder}/link.cur
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/tools/draw_icons.py ${folder}/scrivolt.ico ${folder}/link.cur
    DEPENDS ${CMAKE_SOURCE_DIR}/tools/draw_icons.py
    COMMENT "Drawing the program's icon and link cursor")
  add_custom_target(icons DEPENDS ${folder}/scrivolt.ico ${folder}/link.cur)
endfunction()
