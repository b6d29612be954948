# What `make install` puts under the prefix: the two programs, the help pages, desktop
# integration (launcher, file type, icons), the man page and bash completion of kvlr.
include(GNUInstallDirs)

install(TARGETS kvl-r kvlr RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The pages are rewritten often; whatever the folder holds at install time goes.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/ui/core/help/ DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/kvl-r/help
        FILES_MATCHING PATTERN "*.html")
install(FILES ${PROJECT_SOURCE_DIR}/data/kvl-r.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/kvl-r-mime.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME kvl-r.xml)

set(KVLR_ICON ${PROJECT_SOURCE_DIR}/data/icons/kvl-r.svg)
set(KVLR_ICONS ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${KVLR_ICON} DESTINATION ${KVLR_ICONS}/scalable/apps)
install(FILES ${KVLR_ICON} DESTINATION ${KVLR_ICONS}/scalable/mimetypes
        RENAME application-x-kvlr-database.svg)
# PNGs for desktops that want them, when a converter is at hand; the SVG serves otherwise.
find_program(KVLR_RSVG rsvg-convert)
find_program(KVLR_MAGICK NAMES magick convert)
set(pngs)
foreach(size 16 22 24 32 48 64 128 256)
  set(png ${CMAKE_BINARY_DIR}/icons/${size}/kvl-r.png)
  if(KVLR_RSVG)
    set(render ${KVLR_RSVG} -w ${size} -h ${size} -o ${png} ${KVLR_ICON})
  elseif(KVLR_MAGICK)
    set(render ${KVLR_MAGICK} -background none -density 300 ${KVLR_ICON} -resize ${size}x${size}
        ${png})
  else()
    break()
  endif()
  add_custom_command(OUTPUT ${png}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/icons/${size}
    COMMAND ${render}
    DEPENDS ${KVLR_ICON} VERBATIM)
  list(APPEND pngs ${png})
  install(FILES ${png} DESTINATION ${KVLR_ICONS}/${size}x${size}/apps)
endforeach()
add_custom_target(kvlr_icons ALL DEPENDS ${pngs})

# The man page and completion are made from kvlr's own --help.
set(KVLR_MAN ${CMAKE_BINARY_DIR}/kvlr.1)
set(KVLR_COMPLETION ${CMAKE_BINARY_DIR}/kvlr.bash)
add_custom_command(OUTPUT ${KVLR_MAN} ${KVLR_COMPLETION}
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/kvlr-docs.sh $<TARGET_FILE:kvlr> ${PROJECT_VERSION}
          ${KVLR_MAN} ${KVLR_COMPLETION}
  DEPENDS kvlr ${PROJECT_SOURCE_DIR}/scripts/kvlr-docs.sh VERBATIM)
add_custom_target(kvlr_docs ALL DEPENDS ${KVLR_MAN} ${KVLR_COMPLETION})
install(FILES ${KVLR_MAN} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${KVLR_COMPLETION} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME kvlr)
