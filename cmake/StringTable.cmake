# The message texts live once, in text/message_list.h. For Windows the string
# table resource is generated from that list at build time by a small host
# program, so the .rc file can never drift from the texts the code knows.
set(SCRIVOLT_HOST_CXX "c++" CACHE STRING "C++ compiler that runs on the build machine")

function(scrivolt_string_table rc_file)
  set(tool ${CMAKE_BINARY_DIR}/host/gen_string_table)
  add_custom_command(
    OUTPUT ${tool}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/host
    COMMAND ${SCRIVOLT_HOST_CXX} -std=c++17 -O1 -I${CMAKE_SOURCE_DIR}
            ${CMAKE_SOURCE_DIR}/tools/gen_string_table.cpp -o ${tool}
    DEPENDS ${CMAKE_SOURCE_DIR}/tools/gen_string_table.cpp ${CMAKE_SOURCE_DIR}/text/message_list.h
    COMMENT "Building the string table generator")
  add_custom_command(
    OUTPUT ${rc_file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/generated
    COMMAND ${tool} ${rc_file}
    DEPENDS ${tool}
    COMMENT "Generating the string table resource")
endfunction()
