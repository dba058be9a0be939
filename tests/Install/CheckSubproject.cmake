# A game that adds the engine with add_subdirectory gets the library alone:
# every build option beside it is off, and configuring looks for none of
# GoogleTest, FreeType, SFML or libpng.
file(REMOVE_RECURSE ${ORV_WORK_DIR})
file(WRITE ${ORV_WORK_DIR}/game/CMakeLists.txt
  "cmake_minimum_required(VERSION 3.25)\nproject(SomeGame C CXX)\nadd_subdirectory(${ORV_SOURCE_DIR} engine)\n")
execute_process(COMMAND ${CMAKE_COMMAND} -S ${ORV_WORK_DIR}/game -B ${ORV_WORK_DIR}/build
  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "configuring a game holding the engine failed:\n${out}\n${err}")
endif()
file(READ ${ORV_WORK_DIR}/build/CMakeCache.txt cache)
foreach(option TESTS TOOLS EXAMPLES BENCH GAME)
  if(NOT cache MATCHES "ORV_BUILD_${option}:BOOL=OFF")
    message(FATAL_ERROR "ORV_BUILD_${option} is not off in a game holding the engine")
  endif()
endforeach()
foreach(looked_for GTest_DIR FREETYPE_INCLUDE_DIR SFML_DIR PNG_LIBRARY ORV_FONT_FILE)
  if(cache MATCHES "${looked_for}")
    message(FATAL_ERROR "the library alone looked for ${looked_for}")
  endif()
endforeach()
