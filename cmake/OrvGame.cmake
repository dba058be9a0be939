# The sample game is built as any game would be: a project of its own that
# finds the engine's package, here the one of this build tree.
include(ExternalProject)

set(ORV_GAME_BINARY_DIR ${PROJECT_BINARY_DIR}/game)
set(ORV_GAME_FLAGS "")
if(ORV_SANITIZE)
  set(ORV_GAME_FLAGS "-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer")
endif()
set(ORV_GAME_CXX_FLAGS "${ORV_GAME_FLAGS}")
if(ORV_WERROR)
  string(APPEND ORV_GAME_CXX_FLAGS " -Werror")
endif()

ExternalProject_Add(Tarnwick
  SOURCE_DIR ${PROJECT_SOURCE_DIR}/game
  BINARY_DIR ${ORV_GAME_BINARY_DIR}
  CMAKE_ARGS
    -DOrvEngine_DIR=${PROJECT_BINARY_DIR}
    -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}
    -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}
    "-DCMAKE_CXX_FLAGS=${ORV_GAME_CXX_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${ORV_GAME_FLAGS}"
    -DTARNWICK_FONT_FILE=${ORV_FONT_FILE}
  INSTALL_COMMAND ""
  DEPENDS OrvEngine orvmedia orvpack)
# The game's build runs again when one of its files, the engine or a tool
# changed, and only then.
file(GLOB_RECURSE ORV_GAME_FILES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/game/*)
ExternalProject_Add_StepDependencies(Tarnwick build ${ORV_GAME_FILES}
  $<TARGET_FILE:OrvEngine> $<TARGET_FILE:orvmedia> $<TARGET_FILE:orvpack>)
