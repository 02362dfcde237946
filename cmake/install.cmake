# What `cmake --install` puts in place, for applications that find the library by find_package(zelnor) or by pkg-config.
# Every place is relative to the prefix, so that an installation can be moved.
include(CMakePackageConfigHelpers)

install(TARGETS zelnor EXPORT zelnorTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(TARGET zelnor_program)
  install(TARGETS zelnor_program RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

file(GLOB zelnor_top_headers CONFIGURE_DEPENDS src/*.h)
install(FILES ${zelnor_top_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelnor)
foreach(floor platform common documents envelope validation gateway controller)
  if(EXISTS ${PROJECT_SOURCE_DIR}/src/${floor})
    install(DIRECTORY src/${floor} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zelnor FILES_MATCHING PATTERN "*.h")
  endif()
endforeach()

if(EXISTS ${PROJECT_SOURCE_DIR}/xsd)
  install(DIRECTORY xsd DESTINATION ${CMAKE_INSTALL_DATADIR}/zelnor)
endif()
file(GLOB zelnor_style_sheets CONFIGURE_DEPENDS *.xsl)
install(FILES ${zelnor_style_sheets} DESTINATION ${CMAKE_INSTALL_DATADIR}/zelnor)
file(GLOB zelnor_man_pages CONFIGURE_DEPENDS man/*.1)
install(FILES ${zelnor_man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(zelnor_cmake_folder ${CMAKE_INSTALL_LIBDIR}/cmake/zelnor)
configure_package_config_file(cmake/zelnorConfig.cmake.in ${PROJECT_BINARY_DIR}/cmake/zelnorConfig.cmake
  INSTALL_DESTINATION ${zelnor_cmake_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/zelnorConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/cmake/zelnorConfig.cmake ${PROJECT_BINARY_DIR}/cmake/zelnorConfigVersion.cmake
  DESTINATION ${zelnor_cmake_folder})
install(EXPORT zelnorTargets NAMESPACE zelnor:: DESTINATION ${zelnor_cmake_folder})

file(RELATIVE_PATH ZELNOR_PREFIX_FROM_PC /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" ZELNOR_PREFIX_FROM_PC "${ZELNOR_PREFIX_FROM_PC}")
configure_file(cmake/zelnor.pc.in ${PROJECT_BINARY_DIR}/cmake/zelnor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cmake/zelnor.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
