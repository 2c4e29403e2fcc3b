# What is installed where, and the packages made of it. The program finds all of it from its own place.
set(KESTOR_HOMEPAGE_URL https://kestorsvn.example CACHE STRING "Where the program and its pictures are published")
set(KESTOR_CONTACT "KestorSVN developers <maintainers@kestorsvn.example>" CACHE STRING "Who maintains the packages")
string(TIMESTAMP KESTOR_BUILD_DAY "%Y-%m-%d" UTC)
string(TIMESTAMP KESTOR_BUILD_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(prepared ${PROJECT_BINARY_DIR}/packaging)

# prepare(TEMPLATE RESULT [GZIP]): fills the values above into packaging/TEMPLATE.
function(prepare template result)
  configure_file(${packaging}/${template} ${prepared}/${result} @ONLY)
  if("GZIP" IN_LIST ARGN)
    execute_process(COMMAND gzip -9nf ${prepared}/${result} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endfunction()

if(APPLE)
  set(KESTOR_AUDIO_FOLDER ../PlugIns)
  target_sources(kestorsvn PRIVATE ${packaging}/macos/KestorSVN.icns)
  set_source_files_properties(${packaging}/macos/KestorSVN.icns PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
  set_target_properties(kestorsvn PROPERTIES
    OUTPUT_NAME KestorSVN
    MACOSX_BUNDLE TRUE
    MACOSX_BUNDLE_INFO_PLIST ${packaging}/macos/Info.plist.in
    MACOSX_BUNDLE_BUNDLE_NAME KestorSVN
    MACOSX_BUNDLE_GUI_IDENTIFIER ${KESTOR_APPLICATION_ID}
    MACOSX_BUNDLE_ICON_FILE KestorSVN.icns
    MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
    MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})
  install(TARGETS kestorsvn BUNDLE DESTINATION .)
  set(audio_destination KestorSVN.app/Contents/PlugIns)
else()
  include(GNUInstallDirs)
  file(RELATIVE_PATH KESTOR_AUDIO_FOLDER ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/kestorsvn)
  install(TARGETS kestorsvn RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  set(audio_destination ${CMAKE_INSTALL_LIBDIR}/kestorsvn)

  prepare(kestorsvn.desktop.in ${KESTOR_APPLICATION_ID}.desktop)
  prepare(kestorsvn.metainfo.xml.in ${KESTOR_APPLICATION_ID}.metainfo.xml)
  prepare(kestorsvn.1.in kestorsvn.1 GZIP)
  prepare(debian/changelog.in changelog GZIP)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES ${prepared}/${KESTOR_APPLICATION_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${prepared}/${KESTOR_APPLICATION_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${packaging}/icons/kestorsvn.svg DESTINATION ${icons}/scalable/apps
          RENAME ${KESTOR_APPLICATION_ID}.svg)
  install(FILES ${packaging}/icons/kestorsvn-symbolic.svg DESTINATION ${icons}/symbolic/apps
          RENAME ${KESTOR_APPLICATION_ID}-symbolic.svg)
  install(FILES ${packaging}/icons/kestorsvn-64.png DESTINATION ${icons}/64x64/apps
          RENAME ${KESTOR_APPLICATION_ID}.png)
  install(FILES ${prepared}/kestorsvn.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${packaging}/debian/copyright ${prepared}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kestorsvn)
endif()

# The window's own icon, for desktops that do not take it from the desktop file.
qt_add_resources(kestorsvn icon PREFIX / BASE ${packaging}/icons FILES ${packaging}/icons/kestorsvn-64.png)

set_source_files_properties(${PROJECT_SOURCE_DIR}/src/ui/preview/audio_backend.cpp
  TARGET_DIRECTORY kestor_ui_preview PROPERTIES COMPILE_DEFINITIONS KESTOR_AUDIO_FOLDER="${KESTOR_AUDIO_FOLDER}")
if(TARGET kestor_audio)
  install(TARGETS kestor_audio LIBRARY DESTINATION ${audio_destination})
  if(APPLE)
    set_target_properties(kestor_audio PROPERTIES
      LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/src/ui/KestorSVN.app/Contents/PlugIns)
  endif()
endif()

set(CPACK_PACKAGE_NAME kestorsvn)
set(CPACK_PACKAGE_VENDOR "KestorSVN developers")
set(CPACK_PACKAGE_CONTACT ${KESTOR_CONTACT})
set(CPACK_PACKAGE_HOMEPAGE_URL ${KESTOR_HOMEPAGE_URL})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calm, fast client for Subversion and Git")
set(CPACK_PACKAGE_DESCRIPTION
"KestorSVN is one window on Subversion working copies and Git repositories.
It runs the svn and git that are installed and shows which files changed,
and how, line by line: with colors and word marks, previews of images, fonts
and sounds, the history of each file, and what an update would bring.
.
From the same window files are committed, reverted, ignored, merged, switched
to other branches, and saved as archives of any revision.")
set(CPACK_STRIP_FILES ON)
if(APPLE)
  set(CPACK_GENERATOR DragNDrop)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
  set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION vcs)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # Without its platform plug-ins Qt opens no window, and no library asks for them.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "subversion, git, libqt6svg6, qt6-image-formats-plugins, gstreamer1.0-plugins-good")
  set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland, qt6-gtk-platformtheme")
endif()
include(CPack)
