# A game that includes the engine's umbrella header compiles without any
# platform header: SDL, OpenGL, OpenAL and zlib stay behind the engine's
# private back-ends. Every platform header is shadowed by one that stops the
# compiler, and SDL's own folder is not on the include path at all.
set(poison ${ORV_WORK_DIR}/poison)
file(REMOVE_RECURSE ${ORV_WORK_DIR})
foreach(header GL/gl.h GL/glext.h GL/glu.h GL/glx.h SDL/SDL.h SDL/SDL_opengl.h AL/al.h AL/alc.h AL/alext.h zlib.h png.h)
  file(WRITE ${poison}/${header} "#error \"${header} reached a public header of the engine\"\n")
endforeach()
file(WRITE ${ORV_WORK_DIR}/game.cpp "#include \"OrvEngine.h\"\nint main() { return 0; }\n")
execute_process(
  COMMAND ${ORV_CXX} -std=c++17 -fsyntax-only -I${poison} -I${ORV_SOURCE_DIR}/include -I${ORV_SOURCE_DIR}/template
          ${ORV_WORK_DIR}/game.cpp
  RESULT_VARIABLE result
  ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The umbrella header needs platform headers:\n${errors}")
endif()
