# The package kelvalr for Debian 12. Its version is that of changelog.Debian: the project's and a revision.
file(STRINGS changelog.Debian newest_change LIMIT_COUNT 1)
if(NOT newest_change MATCHES "^kelvalr \\(${PROJECT_VERSION}-([0-9]+)\\)")
    message(FATAL_ERROR "Packaging/changelog.Debian does not begin with version ${PROJECT_VERSION} of the project.")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelvalr)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "KelvaLR developers <maintainers@kelvalr.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Carries out requests such as 'set exposure to +0.5', typed or spoken, inside
Lightroom Classic and answers in one plain sentence. It reaches Lightroom
through a plug-in of its own; nothing leaves this computer without a key for
OpenAI's services.

A small stand-in for Lightroom comes with it, to practise on where there is
none: it keeps ratings, flags and develop settings in XMP sidecars.")

# What the programs are linked with is found out; this is what they load while they run.
set(loaded
    ca-certificates # of the servers that the chat assistant talks to
    fonts-inter
    pocketsphinx-en-us
    qml6-module-qt-labs-folderlistmodel # of the file dialog
    qml6-module-qtqml
    qml6-module-qtqml-models
    qml6-module-qtqml-workerscript
    qml6-module-qtquick
    qml6-module-qtquick-controls
    qml6-module-qtquick-dialogs
    qml6-module-qtquick-layouts
    qml6-module-qtquick-templates
    qml6-module-qtquick-window
    qt6-image-formats-plugins
    qt6-qpa-plugins # the window on X11
)
# Without these a part of it does not work, and says so.
set(wanted
    "at-spi2-core" # clicks and sliders in other programs
    "default-dbus-session-bus | dbus-session-bus"
    "pipewire-pulse | pulseaudio"
    "qt6-wayland"
    "xdg-utils" # folders are shown with it where the desktop has no file manager on the bus
)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
list(JOIN loaded ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
list(JOIN wanted ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)

include(CPack)
