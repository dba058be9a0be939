# Installs the built engine into a scratch prefix, then builds and runs a tiny
# game against it, once through find_package and once through pkg-config.
# With ORV_BUILD_ONLY the project in ORV_CONSUMER_DIR is only configured and
# built through find_package.
set(prefix ${ORV_WORK_DIR}/prefix)
file(REMOVE_RECURSE ${ORV_WORK_DIR})
# Games start in a folder holding their media path list.
file(WRITE ${ORV_WORK_DIR}/MediaPaths.xml "<MediaPaths>\n  <Path>${prefix}/share/OrvEngine/media</Path>\n</MediaPaths>\n")

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${ORV_WORK_DIR} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  message(STATUS "${out}")
endfunction()

set(flags "")
if(ORV_SANITIZE)
  set(flags "-fsanitize=address,undefined")
endif()

run(${CMAKE_COMMAND} --install ${ORV_BINARY_DIR} --prefix ${prefix})
foreach(required include/OrvEngine/OrvApplication.h include/OrvEngine/OrvTArray.h
                 include/OrvEngine/OrvEngine.h ${ORV_LIBDIR}/cmake/OrvEngine/OrvEngineConfig.cmake
                 ${ORV_LIBDIR}/pkgconfig/orvengine.pc share/OrvEngine/media)
  if(NOT EXISTS ${prefix}/${required})
    message(FATAL_ERROR "not installed: ${required}")
  endif()
endforeach()

run(${CMAKE_COMMAND} -S ${ORV_CONSUMER_DIR} -B ${ORV_WORK_DIR}/consumer-build
    -DCMAKE_PREFIX_PATH=${prefix} "-DCMAKE_CXX_FLAGS=${flags}" "-DCMAKE_EXE_LINKER_FLAGS=${flags}")
run(${CMAKE_COMMAND} --build ${ORV_WORK_DIR}/consumer-build)
if(ORV_BUILD_ONLY)
  return()
endif()
run(${ORV_WORK_DIR}/consumer-build/consumer)

set(ENV{PKG_CONFIG_PATH} ${prefix}/${ORV_LIBDIR}/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs orvengine OUTPUT_VARIABLE pc RESULT_VARIABLE rc OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config does not know orvengine")
endif()
# The package puts include/ on the path, never the folder of generic names.
if(NOT pc MATCHES "-I[^ ]*/include( |$)" OR pc MATCHES "include/OrvEngine")
  message(FATAL_ERROR "pkg-config gives the wrong include folder: ${pc}")
endif()
separate_arguments(pc UNIX_COMMAND "${pc}")
separate_arguments(flags UNIX_COMMAND "${flags}")
run(c++ -std=c++17 ${flags} ${ORV_CONSUMER_DIR}/main.cpp ${pc} -o ${ORV_WORK_DIR}/consumer-pc)
set(ENV{LD_LIBRARY_PATH} ${prefix}/${ORV_LIBDIR})
run(${ORV_WORK_DIR}/consumer-pc)
