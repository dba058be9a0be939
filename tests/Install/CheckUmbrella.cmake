# The umbrella header includes every public header.
file(READ ${ORV_SOURCE_DIR}/include/OrvEngine.h umbrella)
file(GLOB headers RELATIVE ${ORV_SOURCE_DIR} ${ORV_SOURCE_DIR}/include/*.h ${ORV_SOURCE_DIR}/template/*.h)
foreach(header ${headers})
  get_filename_component(name ${header} NAME)
  if(NOT name STREQUAL "OrvEngine.h" AND NOT umbrella MATCHES "#include \"${name}\"")
    message(FATAL_ERROR "include/OrvEngine.h lacks ${name}: run scripts/update-umbrella")
  endif()
endforeach()
