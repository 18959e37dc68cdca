# Installs the build into a temporary prefix, moves the prefix elsewhere (the package must be
# relocatable), checks that no installed file names a path of this machine's source or build
# tree, then builds the embedding example against the moved package and runs it offscreen.
#   -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... [-DGENERATOR=Ninja]
foreach(var BUILD_DIR SOURCE_DIR WORK_DIR)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "${var} is not set")
  endif()
endforeach()

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGV}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${WORK_DIR}/staging")
file(RENAME "${WORK_DIR}/staging" "${WORK_DIR}/prefix")
set(prefix "${WORK_DIR}/prefix")

foreach(expected include/TxAttributeList/AttributeList.hpp include/TxAttributeList/Version.hpp include/Kor/Event.hpp
                 include/TxalQt/Backend.hpp lib/libTxAttributeList.a lib/libTxalQt.a
                 lib/cmake/TxAttributeList/TxAttributeListConfig.cmake lib/cmake/TxAttributeList/TxAttributeListConfigVersion.cmake
                 share/TxAttributeList/resources)
  if(NOT EXISTS "${prefix}/${expected}")
    message(FATAL_ERROR "not installed: ${expected}")
  endif()
endforeach()

# No path of the machine that built it, in text files and binaries alike.
file(GLOB_RECURSE installed LIST_DIRECTORIES false "${prefix}/*")
string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" sourcePattern "${SOURCE_DIR}")
string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" buildPattern "${BUILD_DIR}")
foreach(file IN LISTS installed)
  file(STRINGS "${file}" hits REGEX "${sourcePattern}|${buildPattern}" LIMIT_COUNT 1)
  if(hits)
    list(GET hits 0 hit)
    message(FATAL_ERROR "${file} names a path of the build machine: ${hit}")
  endif()
endforeach()
list(LENGTH installed count)
message(STATUS "${count} installed files, none with a path of the build machine")

if(NOT DEFINED GENERATOR)
  set(GENERATOR Ninja)
endif()
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}/examples/embed" -B "${WORK_DIR}/embed" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${prefix}" -DCMAKE_BUILD_TYPE=Release)
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/embed")
execute_process(COMMAND "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen "${WORK_DIR}/embed/txal-embed" --once TIMEOUT 60
                RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT result EQUAL 0 OR NOT output MATCHES "Visible: off")
  message(FATAL_ERROR "the example ran with ${result}:\n${output}${errors}")
endif()
message(STATUS "the example ran: ${output}")
