# The tests of the Windows build look at what the preset "windows" has built and run it under wine.
# Where either is missing they skip themselves.
set(OVRI_WINDOWS_BUILD "${PROJECT_SOURCE_DIR}/build-windows" CACHE PATH
    "Where ovri.dll, ovri.exe and loader.exe were built by the preset \"windows\"")
find_program(OVRI_WINE NAMES wine wine64)
find_program(OVRI_WINDOWS_OBJDUMP x86_64-w64-mingw32-objdump)
mark_as_advanced(OVRI_WINE OVRI_WINDOWS_OBJDUMP)
target_compile_definitions(test_windows PRIVATE
  OVRI_CMAKE="${CMAKE_COMMAND}"
  OVRI_CPACK="${CMAKE_CPACK_COMMAND}"
  OVRI_WINDOWS_BUILD="${OVRI_WINDOWS_BUILD}"
  OVRI_WINDOWS_OBJDUMP="$<IF:$<BOOL:${OVRI_WINDOWS_OBJDUMP}>,${OVRI_WINDOWS_OBJDUMP},>"
  OVRI_WINE="$<IF:$<BOOL:${OVRI_WINE}>,${OVRI_WINE},>"
  OVRI_WINE_PREFIX="${PROJECT_BINARY_DIR}/wine-prefix")
set(test_cost 70)
