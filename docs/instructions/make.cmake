# Sets SOURCE on PAPER, with lines as long as LINE says, and puts the result into PDF when it is whole.
execute_process(
  COMMAND ${GROFF} -k -t -ms -Tpdf -dpaper=${PAPER} -P-p${PAPER} -rLL=${LINE} -rPO=2.5c ${SOURCE}
  OUTPUT_FILE ${PDF}.new RESULT_VARIABLE status ERROR_VARIABLE errors)
if(NOT status EQUAL 0 OR errors)
  message(FATAL_ERROR "groff could not set ${SOURCE} (is the whole package groff installed?):\n${errors}")
endif()
file(RENAME ${PDF}.new ${PDF})
