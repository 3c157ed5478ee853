# The tests of the archives make them from this build and, where it is there, from the Windows one.
find_program(OVRI_DPKG_DEB dpkg-deb)
mark_as_advanced(OVRI_DPKG_DEB)
target_compile_definitions(test_packaging PRIVATE
  OVRI_BUILD_DIRECTORY="${PROJECT_BINARY_DIR}"
  OVRI_VERSION="${PROJECT_VERSION}"
  OVRI_CMAKE="${CMAKE_COMMAND}"
  OVRI_CPACK="${CMAKE_CPACK_COMMAND}"
  OVRI_DPKG_DEB="$<IF:$<BOOL:${OVRI_DPKG_DEB}>,${OVRI_DPKG_DEB},>")
if(TARGET ovri_jar)
  add_dependencies(test_packaging ovri_jar)
  target_compile_definitions(test_packaging PRIVATE OVRI_JAVA="${Java_JAVA_EXECUTABLE}")
endif()
set(test_cost 60)
