# The message texts live once per language: text/message_list.h (English,
# built in) and languages/<code>/message_list.h (the language modules). The
# string table resources are generated from those lists at build time by a
# small host program, so an .rc file can never drift from the texts; for a
# translation the program first checks the list against the English one and
# fails the build on a missing or unknown id.
set(SCRIVOLT_HOST_CXX "c++" CACHE STRING "C++ compiler that runs on the build machine")

set(SCRIVOLT_STRING_TABLE_TOOL ${CMAKE_BINARY_DIR}/host/gen_string_table)
file(GLOB_RECURSE SCRIVOLT_MESSAGE_LISTS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/languages/*.h)
add_custom_command(
  OUTPUT ${SCRIVOLT_STRING_TABLE_TOOL}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/host
  COMMAND ${SCRIVOLT_HOST_CXX} -std=c++17 -O1 -I${CMAKE_SOURCE_DIR}
          ${CMAKE_SOURCE_DIR}/tools/gen_string_table.cpp -o ${SCRIVOLT_STRING_TABLE_TOOL}
  DEPENDS ${CMAKE_SOURCE_DIR}/tools/gen_string_table.cpp ${CMAKE_SOURCE_DIR}/text/message_list.h
          ${SCRIVOLT_MESSAGE_LISTS}
  COMMENT "Building the string table generator")

# scrivolt_string_table(OUTPUT.rc LANGUAGE PRIMARY-ID SUBLANGUAGE-ID): the
# string table of one message list ("en" or a code of languages/), marked
# with the resource language PRIMARY-ID, SUBLANGUAGE-ID (0x09 0x01 English,
# 0x13 0x01 Dutch).
function(scrivolt_string_table rc_file language primary sub)
  add_custom_command(
    OUTPUT ${rc_file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/generated
    COMMAND ${SCRIVOLT_STRING_TABLE_TOOL} ${language} ${primary} ${sub} ${rc_file}
    DEPENDS ${SCRIVOLT_STRING_TABLE_TOOL}
    COMMENT "Generating the string table resource ${rc_file}")
endfunction()
