# Warnings for the engine's own targets; third-party headers come in as SYSTEM.
function(orv_enable_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()
