# Makes the Debian packages of this build, unpacks them into a scratch root as
# dpkg would lay them out (without touching the system), checks what each one
# holds and depends on, then builds The Tarnwick against that root and plays a
# few frames, and makes a new game with the packaged orv-new-game, builds it
# and runs its own test.
set(root ${ORV_WORK_DIR}/root)
file(REMOVE_RECURSE ${ORV_WORK_DIR})
file(MAKE_DIRECTORY ${ORV_WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${ORV_WORK_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

function(expect_in text what)
  foreach(item IN LISTS ARGN)
    string(FIND "${text}" "${item}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "${what} lacks ${item}:\n${text}")
    endif()
  endforeach()
endfunction()

run(${ORV_CPACK} -G DEB -B ${ORV_WORK_DIR}/packages --config ${ORV_BINARY_DIR}/CPackConfig.cmake)
file(GLOB runtime ${ORV_WORK_DIR}/packages/liborvengine${ORV_MAJOR}_*.deb)
file(GLOB development ${ORV_WORK_DIR}/packages/liborvengine-dev_*.deb)
if(NOT runtime OR NOT development)
  message(FATAL_ERROR "cpack made neither or only one of the two packages")
endif()

run(dpkg-deb -f ${runtime} Depends)
expect_in("${out}" "the runtime package's dependencies" libsdl1.2debian libopenal1 zlib1g libgl1)
run(dpkg-deb -c ${runtime})
expect_in("${out}" "the runtime package" "/usr/${ORV_LIBDIR}/libOrvEngine.so.${ORV_MAJOR}" "/usr/share/OrvEngine/media/")
if(out MATCHES "/include/")
  message(FATAL_ERROR "the runtime package holds headers:\n${out}")
endif()
run(dpkg-deb -f ${development} Depends)
expect_in("${out}" "the development package's dependencies" "liborvengine${ORV_MAJOR} (= ${ORV_VERSION})")
run(dpkg-deb -c ${development})
expect_in("${out}" "the development package" "/usr/include/OrvEngine/OrvApplication.h"
  "/usr/include/OrvEngine/OrvTArray.h" "/usr/${ORV_LIBDIR}/cmake/OrvEngine/OrvEngineConfig.cmake"
  "/usr/${ORV_LIBDIR}/pkgconfig/orvengine.pc" "/usr/bin/orvpack" "/usr/bin/orvmedia" "/usr/bin/orv-new-game"
  "/usr/share/OrvEngine/new-game/")

run(dpkg -x ${runtime} ${root})
run(dpkg -x ${development} ${root})

# The Tarnwick, against the unpacked packages; a few frames prove it runs.
run(${CMAKE_COMMAND} -S ${ORV_GAME_DIR} -B ${ORV_WORK_DIR}/tarnwick -DCMAKE_PREFIX_PATH=${root}/usr)
run(${CMAKE_COMMAND} --build ${ORV_WORK_DIR}/tarnwick -j 2)
execute_process(COMMAND ./Tarnwick --frames 5 WORKING_DIRECTORY ${ORV_WORK_DIR}/tarnwick
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "The Tarnwick built from the packages failed (${rc}):\n${out}\n${err}")
endif()

# A new game, made by the packaged script, builds and passes its own test.
run(${root}/usr/bin/orv-new-game Pebble ${ORV_WORK_DIR}/pebble)
run(${CMAKE_COMMAND} -S ${ORV_WORK_DIR}/pebble -B ${ORV_WORK_DIR}/pebble/build -DCMAKE_PREFIX_PATH=${root}/usr)
run(${CMAKE_COMMAND} --build ${ORV_WORK_DIR}/pebble/build -j 2)
run(${CMAKE_CTEST_COMMAND} --test-dir ${ORV_WORK_DIR}/pebble/build --output-on-failure)
message(STATUS "${out}")
