# orv_find_font(VAR) sets the cache entry VAR to a monospaced TrueType font for
# `orvmedia font`, unless VAR is already set (-DVAR=/path/to/font.ttf). It looks
# for DejaVu Sans Mono where distributions install it, then asks fontconfig.
function(orv_find_font var)
  if(${var})
    return()
  endif()
  find_file(${var} NAMES DejaVuSansMono.ttf
    PATHS /usr/share/fonts /usr/local/share/fonts /usr/share/fonts/TTF
    PATH_SUFFIXES truetype/dejavu dejavu dejavu-sans-mono-fonts TTF
    DOC "TrueType font the bitmap fonts are made from")
  if(NOT ${var})
    find_program(ORV_FC_MATCH fc-match)
    if(ORV_FC_MATCH)
      execute_process(COMMAND ${ORV_FC_MATCH} -f "%{file}" "monospace:fontformat=TrueType"
        OUTPUT_VARIABLE found OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
      if(found MATCHES "\\.ttf$" AND EXISTS "${found}")
        set(${var} "${found}" CACHE FILEPATH "TrueType font the bitmap fonts are made from" FORCE)
      endif()
    endif()
  endif()
  if(NOT ${var})
    message(FATAL_ERROR "No TrueType font was found for the bitmap fonts: install DejaVu "
                        "(fonts-dejavu-core on Debian) or pass -D${var}=/path/to/font.ttf")
  endif()
endfunction()
