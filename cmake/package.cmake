# Packages for Debian, made by `cpack` in the build folder or by scripts/package: one for each component of install.cmake.
# What a program or the library needs of other packages dpkg-shlibdeps finds out.

set(ZELNOR_PACKAGE_MAINTAINER "Zelnor maintainers <maintainers@zelnor.example>" CACHE STRING
  "Who answers for the packages: a name and an address")

# The packages' own changelog tells which making of packages of this version they are, "1" for the first.
file(STRINGS packaging/changelog.Debian zelnor_newest_entry LIMIT_COUNT 1)
if(NOT zelnor_newest_entry MATCHES "^zelnor \\(${PROJECT_VERSION}-([0-9]+)\\) ")
  message(FATAL_ERROR "packaging/changelog.Debian begins with no entry of version ${PROJECT_VERSION}")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})

gzipped(CHANGELOG.md zelnor_changelog)
gzipped(packaging/changelog.Debian zelnor_package_changelog)

# package(COMPONENT NAME SECTION SUMMARY DESCRIPTION) declares one, and gives it the files that every package has.
set(CPACK_COMPONENTS_ALL)
macro(package component name section summary description)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}")
  install(FILES packaging/copyright ${zelnor_package_changelog}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
  install(FILES ${zelnor_changelog} RENAME changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endmacro()

# The parts fit one another in the very same version only.
set(same "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

package(library libzelnor libs
  "Real Time Information reporting to HMRC - shared library"
  "Payroll applications load this library to report to HMRC in real time: it
reads and writes the documents, validates them, computes the IRmark, sends
them to the gateway and polls for the answer.

This package holds the library, the schemas, and sample documents.")
# Without the certificates of the authorities no gateway is trusted.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS ca-certificates)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS xdg-utils)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)

package(development libzelnor-dev libdevel
  "Real Time Information reporting to HMRC - development files"
  "Payroll applications load libzelnor to report to HMRC in real time.

This package holds what such an application is built with: headers, the
files that find_package(zelnor) and pkg-config read, the developer's guide,
and examples.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libzelnor ${same}, libsigc++-3.0-dev, pkgconf | pkg-config")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "zelnor ${same}")

if(TARGET zelnor_program)
  package(program zelnor utils
    "Real Time Information reporting to HMRC - command line program"
    "Shows, validates, marks, saves and sends the documents that payroll
software reports to HMRC, makes readable pages of processing logs, and runs
a gateway on this machine for development and tests.

It completes its commands and options in bash and zsh.")
  # Its schemas come with the library.
  set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "libzelnor ${same}")
  set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS "libzelnor-dev, xdg-utils")

  # What is compiled into the program from headers alone asks to have its notices passed on.
  foreach(inside libcli11-dev nlohmann-json3-dev)
    if(EXISTS /usr/share/doc/${inside}/copyright)
      install(FILES /usr/share/doc/${inside}/copyright RENAME copyright.${inside}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zelnor COMPONENT program)
    endif()
  endforeach()
endif()

if(TARGET zelnor_desktop)
  package(desktop zelnor-desktop libs
    "Real Time Information reporting to HMRC - dialog in a window"
    "Payroll applications with a desktop load this library beside libzelnor, to
ask a payroll clerk in a window for the decisions that libzelnor leaves to a
person.")
  set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "libzelnor ${same}")
  set(CPACK_DEBIAN_DESKTOP_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelnor)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Zelnor maintainers")
set(CPACK_PACKAGE_CONTACT "${ZELNOR_PACKAGE_MAINTAINER}")
# Each package has a summary of its own, before which none of the whole is wanted.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
include(CPack)
