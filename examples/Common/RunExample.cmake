# Runs an example for its test, then looks at what it did.
#
#   cmake -DPROGRAM=EXAMPLE [-DARGS="..."] [-DEXPECT=REGEX]
#         [-DCHECKS="CHECK..." -DCHECKER=ShotCheck]
#         [-DREFERENCE=PNG -DORVSHOT=orvshot] -P RunExample.cmake
#
# The example must end well and, with EXPECT, print something it matches.
# With CHECKS it leaves a screenshot, shot.tga in the working folder, that
# ShotCheck then reads (see ShotCheck.cpp for the checks). With REFERENCE it
# leaves shot.png, which must match the reference but for a few pixels of
# edges; what differs is drawn in shot-diff.png.

separate_arguments(arguments UNIX_COMMAND "${ARGS}")
# A screenshot left by an earlier run must not pass for this one's.
file(REMOVE shot.tga shot.png shot-diff.png)
if(CHECKS)
  list(APPEND arguments --screenshot shot.tga)
elseif(REFERENCE)
  list(APPEND arguments --screenshot shot.png)
endif()

execute_process(COMMAND ${PROGRAM} ${arguments}
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
message("${output}${errors}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} ended with ${status}")
endif()
if(EXPECT AND NOT output MATCHES "${EXPECT}")
  message(FATAL_ERROR "The output does not match: ${EXPECT}")
endif()

if(CHECKS)
  separate_arguments(checks UNIX_COMMAND "${CHECKS}")
  execute_process(COMMAND ${CHECKER} shot.tga ${checks} RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "The screenshot fails its checks")
  endif()
endif()

if(REFERENCE)
  execute_process(COMMAND ${ORVSHOT} diff ${REFERENCE} shot.png --tolerance 8 --allow 200 --out shot-diff.png
    RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "The screenshot does not match ${REFERENCE} (differences in shot-diff.png)")
  endif()
endif()
