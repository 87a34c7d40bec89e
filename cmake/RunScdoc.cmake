# Runs scdoc with IN as its input and OUT as its output (scdoc reads and
# writes only standard streams): cmake -DSCDOC=... -DIN=... -DOUT=... -P this
execute_process(COMMAND ${SCDOC} INPUT_FILE ${IN} OUTPUT_FILE ${OUT} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  file(REMOVE ${OUT})
  message(FATAL_ERROR "scdoc failed on ${IN}")
endif()
