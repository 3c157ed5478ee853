# What `cmake --install` lays out, and the archives that `cpack` makes of it.
#
#   bin/                 ovri (and, for Windows, ovri.dll)
#   lib/                 libovri.so
#   share/java/          ovri.jar, when a JDK was there; it finds the library from where it lies
#   share/doc/ovri/      what there is to read
#   share/ovri/examples  networks with model files, and setup files whose paths start at share/ovri
#   share/man/man1       manual pages; with the completion scripts of bash and zsh in their folders
#
# There are no headers: the library is for a Java machine, which needs none.

include(GNUInstallDirs)

install(TARGETS ovri_tool RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
if(WIN32)
  install(PROGRAMS "$<TARGET_FILE:ovri_library>" DESTINATION "${CMAKE_INSTALL_BINDIR}")
else()
  install(TARGETS ovri_library LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
endif()
if(TARGET ovri_jar)
  install(FILES "${PROJECT_BINARY_DIR}/ovri.jar" DESTINATION "${CMAKE_INSTALL_DATADIR}/java")
endif()
# The tool writes its own manual pages and completion scripts, where it runs on the machine that
# builds it.
if(NOT CMAKE_CROSSCOMPILING)
  set(pages "${PROJECT_BINARY_DIR}/pages")
  install(CODE "file(REMOVE_RECURSE \"${pages}\")
execute_process(COMMAND \"$<TARGET_FILE:ovri_tool>\" help --pages \"${pages}\"
                COMMAND_ERROR_IS_FATAL ANY)")
  install(DIRECTORY "${pages}/" DESTINATION "${CMAKE_INSTALL_DATADIR}")
endif()
install(FILES README.md CHANGELOG.md CITATION.cff DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY docs/ DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DATADIR}/ovri")

set(CPACK_PACKAGE_NAME ovri)
set(CPACK_PACKAGE_VENDOR "The Ovri developers")
set(CPACK_PACKAGE_CONTACT "The Ovri developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ DEB)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION science)
  set(CPACK_DEBIAN_PACKAGE_SUGGESTS "default-jre-headless")
  # The libraries that the package needs are read from its files where the tools for that are there.
  find_program(OVRI_SHLIBDEPS dpkg-shlibdeps)
  find_program(OVRI_FILE file)
  mark_as_advanced(OVRI_SHLIBDEPS OVRI_FILE)
  if(OVRI_SHLIBDEPS AND OVRI_FILE)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  else()
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6, libgcc-s1")
  endif()
endif()
include(CPack)
