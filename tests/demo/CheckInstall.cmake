# Installs the build into PREFIX (a folder of the test's own) and checks the tree holds the
# programs, help pages, desktop integration, man page and completion, and that they work.
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX}
                OUTPUT_QUIET RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "cmake --install failed")
endif()
foreach(f bin/kvl-r bin/kvlr share/doc/kvl-r/help/KVL-R.html share/applications/kvl-r.desktop
          share/mime/packages/kvl-r.xml share/icons/hicolor/scalable/apps/kvl-r.svg
          share/icons/hicolor/scalable/mimetypes/application-x-kvlr-database.svg
          share/man/man1/kvlr.1 share/bash-completion/completions/kvlr)
  if(NOT EXISTS ${PREFIX}/${f})
    message(FATAL_ERROR "missing from the installed tree: ${f}")
  endif()
endforeach()

file(READ ${PREFIX}/share/man/man1/kvlr.1 man)
file(READ ${PREFIX}/share/bash-completion/completions/kvlr completion)
file(READ ${PREFIX}/share/applications/kvl-r.desktop desktop)
if(NOT man MATCHES "kvlr demo PATH" OR NOT completion MATCHES "demo\\) words=")
  message(FATAL_ERROR "the man page or completion lacks the demo command")
endif()
if(NOT desktop MATCHES "MimeType=application/x-kvlr-database;")
  message(FATAL_ERROR "the launcher does not open our databases")
endif()
find_program(VALIDATE desktop-file-validate)
if(VALIDATE)
  execute_process(COMMAND ${VALIDATE} ${PREFIX}/share/applications/kvl-r.desktop
                  RESULT_VARIABLE invalid)
  if(invalid)
    message(FATAL_ERROR "desktop-file-validate refused the launcher")
  endif()
endif()
# The installed tool runs from there.
execute_process(COMMAND ${PREFIX}/bin/kvlr time 1:05.3 OUTPUT_VARIABLE out RESULT_VARIABLE failed)
if(failed OR NOT out MATCHES "6530")
  message(FATAL_ERROR "the installed kvlr does not run: ${out}")
endif()
file(REMOVE_RECURSE ${PREFIX})
