# The Debian package: `cpack -G DEB` in the build folder makes
# tessaro_<version>_<arch>.deb from the install rules, installed below /usr. The
# dependencies come from dpkg-shlibdeps, so the Qt 6 libraries are named as the
# programs link them.
set(TESSARO_MAINTAINER "Tessaro developers <tessaro@example.org>"
    CACHE STRING "Maintainer named in the Debian package")

# Files that a Debian package carries beside the program.
set(doc_dir ${CMAKE_BINARY_DIR}/packaging)
add_custom_command(OUTPUT ${doc_dir}/changelog.gz
  COMMAND ${CMAKE_COMMAND} -E make_directory ${doc_dir}
  COMMAND gzip -9 --no-name --stdout ${PROJECT_SOURCE_DIR}/packaging/changelog > ${doc_dir}/changelog.gz
  DEPENDS ${PROJECT_SOURCE_DIR}/packaging/changelog)
add_custom_target(tessaro_package_docs ALL DEPENDS ${doc_dir}/changelog.gz)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${doc_dir}/changelog.gz
        DESTINATION share/doc/tessaro)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessaro)
set(CPACK_PACKAGE_VENDOR "Tessaro developers")
set(CPACK_PACKAGE_CONTACT ${TESSARO_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "development environment for Quake III Arena mods in C")
set(CPACK_PACKAGE_DESCRIPTION "\
Tessaro is a desktop IDE for people who write Quake III Arena modifications
in C. A workspace lists the mod's sources; they open in colour-coded document
windows beside browsers of the workspace's files, its structure types and the
file system. Tessaro searches one document or the whole workspace, writes the
build scripts that compile the game, cgame and ui modules with the game's lcc
and q3asm, and leads through publishing the finished mod.
.
The package also holds tessaro-cli, which does the same work from a terminal
or a CI job.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Builds run in a terminal window.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "x-terminal-emulator")
# Installed files and folders get the usual modes whatever the umask of the build.
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
