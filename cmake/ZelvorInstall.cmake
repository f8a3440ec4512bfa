# Where `cmake --install` puts the player on a Linux host (FHS and XDG
# places under CMAKE_INSTALL_PREFIX), and the Debian package cpack makes of
# it. The colour bundles go to share/zelvor/skins, from where the player
# copies them into a new device's program directory (app/desktop_setup).
include(GNUInstallDirs)

get_property(zelvor_skin_dir GLOBAL PROPERTY ZELVOR_SKIN_DIR)
set(zelvor_packaging ${PROJECT_SOURCE_DIR}/packaging)

install(TARGETS zelvor zelvor-lib zelvor-send RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
foreach(module ZelvorBlue ZelvorRed ZelvorOrange ZelvorGreen)
  install(FILES ${zelvor_skin_dir}/${module}.rcc DESTINATION ${CMAKE_INSTALL_DATADIR}/zelvor/skins)
endforeach()
install(FILES ${zelvor_packaging}/zelvor.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(DIRECTORY ${zelvor_skin_dir}/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)

# Debian installs manual pages compressed.
foreach(page zelvor zelvor-lib zelvor-send)
  set(page_gz ${CMAKE_BINARY_DIR}/man/${page}.1.gz)
  add_custom_command(
    OUTPUT ${page_gz}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
    COMMAND gzip -9 -n -c ${zelvor_packaging}/man/${page}.1 > ${page_gz}
    DEPENDS ${zelvor_packaging}/man/${page}.1
    VERBATIM)
  list(APPEND zelvor_man_pages ${page_gz})
endforeach()
add_custom_target(zelvor_man_pages ALL DEPENDS ${zelvor_man_pages})
install(FILES ${zelvor_man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_PACKAGE_NAME zelvor)
set(CPACK_PACKAGE_VENDOR "Quorrel Systems Inc.")
set(CPACK_PACKAGE_CONTACT "Zelvor developers <zelvor@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "skinned, touch-first music player for small screens")
set(CPACK_PACKAGE_DESCRIPTION
    "Zelvor plays MP3, WMA and AAC files from a storage card or any folder, with\n"
    "browsing by artist, album and genre, playlists, favourites and four colour skins.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY zelvor)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What shlibdeps cannot see: the GStreamer elements the player builds by
# name. playbin and the MP3 decoder are needed to play at all; WMA and AAC
# need the ugly and libav sets, the skin's texts look best in DejaVu Sans.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "gstreamer1.0-plugins-ugly, gstreamer1.0-libav, fonts-dejavu-core")
set(CPACK_GENERATOR DEB)
include(CPack)

# The package's file list and computed dependencies, checked from this tree.
if(ZELVOR_BUILD_TESTS)
  add_test(NAME zelvor_package
           COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-package ${CMAKE_BINARY_DIR})
  set_tests_properties(zelvor_package PROPERTIES LABELS package)
endif()
