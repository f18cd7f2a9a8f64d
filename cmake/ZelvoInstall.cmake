# cmake --install: the program, its resources, and the files that make it known to a desktop.
include(GNUInstallDirs)

install(TARGETS zelvo RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
# The program looks for its helpers in ../libexec/zelvo, relative to itself.
install(TARGETS zelvo-draw zelvo-tags RUNTIME DESTINATION "libexec/zelvo")
# The program looks for them in ../share/zelvo, relative to itself, so it can be installed anywhere.
install(DIRECTORY "${CMAKE_SOURCE_DIR}/resources/" "${ZELVO_BAKED_DIR}/" DESTINATION "share/zelvo")
install(FILES "${CMAKE_SOURCE_DIR}/LICENSE" DESTINATION "share/doc/zelvo")
install(FILES "${CMAKE_SOURCE_DIR}/packaging/zelvo.desktop" DESTINATION "share/applications")
install(FILES "${CMAKE_SOURCE_DIR}/packaging/zelvo-mime.xml" DESTINATION "share/mime/packages" RENAME zelvo.xml)
install(FILES "${CMAKE_SOURCE_DIR}/packaging/zelvo.metainfo.xml" DESTINATION "share/metainfo")
install(FILES "${CMAKE_SOURCE_DIR}/src/ui/qml/icons/Zelvo.svg" DESTINATION "share/icons/hicolor/scalable/apps"
        RENAME zelvo.svg)
install(FILES "${CMAKE_SOURCE_DIR}/packaging/icons/application-x-zelvo.svg"
        DESTINATION "share/icons/hicolor/scalable/mimetypes")
