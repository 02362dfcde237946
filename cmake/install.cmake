# What `cmake --install` puts in place, for applications that find the library by find_package(zelnor) or by pkg-config.
# Every place is relative to the prefix, so that an installation can be moved. Each component is a package of its own:
# see package.cmake.
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# ---- library: what a program that was built with it needs to run

install(TARGETS zelnor EXPORT zelnorTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(DIRECTORY xsd DESTINATION ${CMAKE_INSTALL_DATADIR}/zelnor COMPONENT library)
file(GLOB zelnor_style_sheets CONFIGURE_DEPENDS *.xsl)
install(FILES ${zelnor_style_sheets} DESTINATION ${CMAKE_INSTALL_DATADIR}/zelnor COMPONENT library)
install(DIRECTORY samples DESTINATION ${CMAKE_INSTALL_DATADIR}/zelnor COMPONENT library)

# ---- development: headers, what find_package and pkg-config read, the guide with its examples

file(GLOB zelnor_top_headers CONFIGURE_DEPENDS src/*.h)
install(FILES ${zelnor_top_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelnor COMPONENT development)
foreach(floor platform common documents envelope validation gateway controller)
  install(DIRECTORY src/${floor} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelnor COMPONENT development
    FILES_MATCHING PATTERN "*.h" PATTERN xml_tree.h EXCLUDE)  # that one shows the library underneath
endforeach()

set(zelnor_cmake_folder ${CMAKE_INSTALL_LIBDIR}/cmake/zelnor)
configure_package_config_file(cmake/zelnorConfig.cmake.in ${PROJECT_BINARY_DIR}/cmake/zelnorConfig.cmake
  INSTALL_DESTINATION ${zelnor_cmake_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/zelnorConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/cmake/zelnorConfig.cmake ${PROJECT_BINARY_DIR}/cmake/zelnorConfigVersion.cmake
  DESTINATION ${zelnor_cmake_folder} COMPONENT development)
install(EXPORT zelnorTargets NAMESPACE zelnor:: DESTINATION ${zelnor_cmake_folder} COMPONENT development)

file(RELATIVE_PATH ZELNOR_PREFIX_FROM_PC /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" ZELNOR_PREFIX_FROM_PC "${ZELNOR_PREFIX_FROM_PC}")
configure_file(cmake/zelnor.pc.in ${PROJECT_BINARY_DIR}/cmake/zelnor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cmake/zelnor.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# The guide names examples and samples by their places in the source tree, and they lie about it here as they do there.
set(zelnor_development_doc ${CMAKE_INSTALL_DATADIR}/doc/libzelnor-dev)
install(DIRECTORY docs DESTINATION ${zelnor_development_doc} COMPONENT development)
install(DIRECTORY examples DESTINATION ${zelnor_development_doc} COMPONENT development
  PATTERN examples/CMakeLists.txt EXCLUDE)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)
file(CREATE_LINK ../../zelnor/samples ${PROJECT_BINARY_DIR}/packaging/samples SYMBOLIC)
install(FILES ${PROJECT_BINARY_DIR}/packaging/samples DESTINATION ${zelnor_development_doc} COMPONENT development)

# ---- program: zelnor, its manual page, what a shell completes

# gzipped(FILE RESULT) compresses a file into the build folder, always to the same bytes.
find_program(ZELNOR_GZIP gzip REQUIRED)
function(gzipped file result)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${file})
  cmake_path(GET file FILENAME name)
  set(compressed ${PROJECT_BINARY_DIR}/packaging/${name}.gz)
  execute_process(COMMAND ${ZELNOR_GZIP} -9nc ${PROJECT_SOURCE_DIR}/${file}
    OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
  set(${result} ${compressed} PARENT_SCOPE)
endfunction()

if(TARGET zelnor_program)
  install(TARGETS zelnor_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
  gzipped(man/zelnor.1 zelnor_man_page)
  install(FILES ${zelnor_man_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
  install(FILES completions/zelnor.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zelnor
    COMPONENT program)
  # zsh looks for the completions of Debian's packages in another folder than for those of /usr/local.
  install(CODE "
    if(EXISTS /etc/debian_version AND CMAKE_INSTALL_PREFIX MATCHES \"/usr/?$\")
      set(folder vendor-completions)
    else()
      set(folder site-functions)
    endif()
    file(INSTALL \"${PROJECT_SOURCE_DIR}/completions/_zelnor\"
      DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/zsh/\${folder}\")" COMPONENT program)
endif()

# ---- desktop: the dialog in a window, and what an application is built with to show it

if(TARGET zelnor_desktop)
  install(TARGETS zelnor_desktop EXPORT zelnorDesktopTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT desktop NAMELINK_SKIP)
  install(FILES src/desktop/desktop_host.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelnor/desktop COMPONENT desktop)
  install(EXPORT zelnorDesktopTargets NAMESPACE zelnor:: DESTINATION ${zelnor_cmake_folder} COMPONENT desktop)
endif()
