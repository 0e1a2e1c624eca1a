# SPDX-License-Identifier: GPL-3.0-or-later
# The package for Debian, made by script/package: what `cmake --install` lays down below /usr, stripped, with its
# dependencies read from the programs themselves. It has no scripts: what a desktop keeps of icons, entries and manual
# pages is renewed by the triggers of the packages that keep it.
set(MORVA_MAINTAINER "The Morva team <maintainers@morva.invalid>" CACHE STRING "Who answers for a package, with an address")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME morva)
set(CPACK_PACKAGE_CONTACT ${MORVA_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
    WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Bundled, so they are no dependencies.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${MORVA_RUNTIME_LIBS})
# A font to write with, the desktop's file chooser, and its display protocol beside X11.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core | fonts-freefont-ttf, qt6-wayland, xdg-desktop-portal")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "crop school portraits, a folder at a time")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Morva makes finished portraits from a folder of school photos: every face
the same size, every eye line at the same height, no hair or bow cut off,
and a short list of the photos that deserve a second look. The photos are
never touched, and never leave the computer.
.
The package holds a window for the desktop, a command line for batches and
clusters, and the models that find faces and bodies.")
include(CPack)
