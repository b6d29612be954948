# `make package`: a Debian package of what cmake/Install.cmake installs, under /usr.
# Its Depends come from the programs' shared libraries (dpkg-shlibdeps, package dpkg-dev).
# The desktop's caches of file types, launchers and icons are refreshed by Debian's own
# triggers, so the package carries no maintainer scripts.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kvl-r)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "KVL-R developers <kvl-r@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "swimmer's and family's meet results log")
# CPack puts the summary above this and indents it as the control file wants.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "KVL-R keeps the meets, results, splits, relays, best times,
time standards and goals of up to four swimmers in one database file. It
imports meet files, converts times between pool courses, prints reports and
backs up to zip. The desktop program is kvl-r; kvlr does the same from the
command line (kvlr demo builds a made-up family's database to look around in).")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS sqlite3)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The build keeps debug information; the package does not need it.
set(CPACK_STRIP_FILES ON)
include(CPack)
