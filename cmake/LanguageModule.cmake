# A language module: a resource-only DLL Scrivolt_<CODE>.dll beside the
# executable, holding the string table generated from
# languages/<code>/message_list.h and the resources of languages/<code>/*.rc
# (version, dialogs, menu). It has no code and no entry point, links no
# runtime and imports nothing, so loading it runs nothing.
#
#   scrivolt_language_module(nl 0x13 0x01)
function(scrivolt_language_module code primary sub)
  string(TOUPPER ${code} upper)
  set(strings ${CMAKE_BINARY_DIR}/generated/strings_${code}.rc)
  scrivolt_string_table(${strings} ${code} ${primary} ${sub})
  file(GLOB resources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/languages/${code}/*.rc)
  set(target Scrivolt_${upper})
  add_library(${target} MODULE ${resources} ${strings})
  set_target_properties(${target} PROPERTIES PREFIX "" LINKER_LANGUAGE CXX)
  # The resource scripts name the program's resource ids (app/shell/resource_ids.h).
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR})
  target_link_options(${target} PRIVATE -nostdlib -Wl,--entry,0)
endfunction()
