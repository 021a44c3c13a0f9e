# What "cmake --install" puts where under a prefix, and the Debian package made of it.
#
#   bin/tape-print                      the dialog
#   lib/GNUstep/Bundles                 the panel's bundle, where the toolkit keeps such bundles
#   lib/page-settings                   the printing calls that both use, the reader of documents
#   share                               texts, icon, desktop entry, manual, completions, samples

set(private lib/page-settings)
set(bundle lib/GNUstep/Bundles/PageSettings.plugin)

install(TARGETS tape-print RUNTIME DESTINATION bin)
install(TARGETS tape-print-picture RUNTIME DESTINATION ${private})
install(TARGETS printing_platform LIBRARY DESTINATION ${private})
install(TARGETS PageSettings LIBRARY DESTINATION ${bundle})
install(DIRECTORY ${CMAKE_BINARY_DIR}/PageSettings.plugin/Resources DESTINATION ${bundle})
install(DIRECTORY ${CMAKE_BINARY_DIR}/locale/ DESTINATION share/locale
  FILES_MATCHING PATTERN *.mo)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/tape-print.desktop DESTINATION share/applications)
set(icons ${CMAKE_SOURCE_DIR}/packaging/icon)
install(FILES ${icons}/tape-print.svg DESTINATION share/icons/hicolor/scalable/apps)
foreach(size IN ITEMS 32 48 128)
  install(FILES ${icons}/tape-print-${size}.png RENAME tape-print.png
    DESTINATION share/icons/hicolor/${size}x${size}/apps)
endforeach()
file(GLOB samples ${CMAKE_SOURCE_DIR}/samples/*.ppd ${CMAKE_SOURCE_DIR}/samples/*.png)
install(FILES ${samples} DESTINATION share/page-settings/samples)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/copyright DESTINATION share/doc/page-settings)

# Changes and manual are packed, as Debian wants them.
find_program(GZIP gzip REQUIRED)
function(install_packed file name destination)
  set(packed ${CMAKE_BINARY_DIR}/packed/${name}.gz)
  add_custom_command(OUTPUT ${packed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packed
    COMMAND ${GZIP} -9nc ${file} > ${packed}
    DEPENDS ${file})
  add_custom_target(packed_${name} ALL DEPENDS ${packed})
  install(FILES ${packed} DESTINATION ${destination})
endfunction()
install_packed(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog share/doc/page-settings)
install_packed(${CMAKE_SOURCE_DIR}/docs/man/tape-print.1 tape-print.1 share/man/man1)

# Debian's zsh looks below /usr where packages put completions, elsewhere where a site does.
set(completion ${CMAKE_SOURCE_DIR}/packaging/completion)
install(FILES ${completion}/tape-print.bash RENAME tape-print
  DESTINATION share/bash-completion/completions)
install(CODE "
  set(place site-functions)
  if(CMAKE_INSTALL_PREFIX MATCHES \"/usr\$\")
    set(place vendor-completions)
  endif()
  file(INSTALL \"${completion}/_tape-print\"
    DESTINATION \"\${CMAKE_INSTALL_PREFIX}/share/zsh/\${place}\")")

set_target_properties(tape-print PROPERTIES INSTALL_RPATH "$ORIGIN/../${private}")
set_target_properties(PageSettings PROPERTIES INSTALL_RPATH "$ORIGIN/../../../page-settings")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME page-settings)
set(CPACK_PACKAGE_VENDOR "Page Settings maintainers")
set(CPACK_PACKAGE_CONTACT "Page Settings maintainers <maintainers@page-settings.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "print dialog and panel for label-tape printers")
set(CPACK_PACKAGE_DESCRIPTION
"Sets length, margin, print quality and resolution of labels on printers that
print on tape, keeps them within what the printer can do, and sends the
document with them to CUPS. Works in a window and from the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})
# What is needed to run, but cannot be seen from the libraries linked.
file(STRINGS ${CMAKE_SOURCE_DIR}/packaging/dependencies run_lines REGEX "^run ")
foreach(line IN LISTS run_lines)
  string(REGEX REPLACE "^run +([^ ]+).*" "\\1" package "${line}")
  list(APPEND needed ${package})
endforeach()
list(JOIN needed ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS cups)
include(CPack)
