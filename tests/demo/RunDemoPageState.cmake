# Runs the demo offscreen twice with one settings file: FIRST leaves a page state behind when it
# closes the dialog, SECOND finds it in a new run.
# Usage: cmake -DDEMO=... -DFIRST=... -DSECOND=... -DSTATE=... -P RunDemoPageState.cmake
set(ENV{QT_QPA_PLATFORM} offscreen)
file(REMOVE "${STATE}")
foreach(script IN ITEMS "${FIRST}" "${SECOND}")
  execute_process(COMMAND "${DEMO}" --script "${script}" --settings "${STATE}" RESULT_VARIABLE result ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "txal-demo failed on ${script} (${result}):\n${errors}")
  endif()
  if(NOT EXISTS "${STATE}")
    message(FATAL_ERROR "${script} left no settings file ${STATE}")
  endif()
endforeach()
file(READ "${STATE}" state)
if(NOT state MATCHES "splitter = 203\n")
  message(FATAL_ERROR "The settings file holds:\n${state}")
endif()
file(REMOVE "${STATE}")
