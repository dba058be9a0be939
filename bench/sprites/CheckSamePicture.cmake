# Runs each sprite benchmark configuration for a few frames, saving its last
# frame, and checks that every one is byte for byte the first's picture.
#   cmake -DPROGRAMS="name|program;args..." -DWORK_DIR=dir -P CheckSamePicture.cmake
# PROGRAMS: entries "label|path --option value ...", separated by ";".
file(MAKE_DIRECTORY ${WORK_DIR})
set(reference "")
foreach(entry IN LISTS PROGRAMS)
  string(REPLACE "|" ";" parts "${entry}")
  list(POP_FRONT parts label)
  string(REPLACE " " ";" command "${parts}")
  set(shot ${WORK_DIR}/${label}.ppm)
  file(REMOVE ${shot})
  execute_process(COMMAND ${command} --sprites 300 --warmup 1 --frames 3 --shot ${shot}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT status EQUAL 0 OR NOT EXISTS ${shot})
    message(FATAL_ERROR "${label} failed (${status}):\n${output}${errors}")
  endif()
  message(STATUS "${output}")
  if(reference STREQUAL "")
    set(reference ${shot})
  else()
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${reference} ${shot} RESULT_VARIABLE differs)
    if(NOT differs EQUAL 0)
      message(FATAL_ERROR "${label} does not draw the picture ${reference} shows")
    endif()
  endif()
endforeach()
