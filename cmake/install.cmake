# What an installation holds: the library with its headers, a CMake package and a pkg-config file, and the tool.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/tarvola)

install(TARGETS tarvola EXPORT tarvolaTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT tarvolaTargets NAMESPACE tarvola:: DESTINATION ${package_folder})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/tarvola DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h"
        PATTERN "cli" EXCLUDE
        PATTERN "sqlite" EXCLUDE)

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/tarvolaConfig.cmake.in ${PROJECT_BINARY_DIR}/tarvolaConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tarvolaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/tarvolaConfig.cmake ${PROJECT_BINARY_DIR}/tarvolaConfigVersion.cmake
        DESTINATION ${package_folder})

file(RELATIVE_PATH way_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/tarvola.pc.in ${PROJECT_BINARY_DIR}/tarvola.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tarvola.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
