# Warnings for the engine's own targets; third-party headers come in as SYSTEM.
# With ORV_WERROR (CI) any warning fails the build.
function(orv_enable_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
  if(ORV_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
