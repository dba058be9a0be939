# Sourced by the game's test scripts: orv_mesa_preload PROGRAM prints what
# LD_PRELOAD needs for PROGRAM to be checked for leaks: the sanitizer's
# runtime where PROGRAM loads it as a library (GCC's; Clang links it in), then
# Mesa's driver.
#
# Mesa keeps the executable memory of its vertex-fetch code in a heap that
# only a static of the DRI driver points to, for the life of the process.
# SDL_Quit closes the display and Mesa unloads the driver with it, which
# leaves that heap unreferenced: the leak checker reports it (two 56-byte
# blocks) after any run that drew at all. Loading the driver up front keeps it
# mapped to the end, so the checker still sees its statics and whatever the
# engine and the game lose is reported as before.
orv_mesa_preload() {
  local asan multiarch dir
  asan=$(ldd "$1" | awk '/libasan/ { print $3; exit }')
  multiarch=$(gcc -print-multiarch 2>/dev/null || true)
  for dir in ${LIBGL_DRIVERS_PATH:+${LIBGL_DRIVERS_PATH//:/ }} "/usr/lib/$multiarch/dri" /usr/lib64/dri /usr/lib/dri; do
    if [ -f "$dir/swrast_dri.so" ]; then
      # The sanitizer's runtime must come first.
      echo "${asan:+$asan }$dir/swrast_dri.so"
      return 0
    fi
  done
}
