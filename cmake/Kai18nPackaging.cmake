# Install rules, the CMake package configuration and the pkg-config file,
# so that clients can use find_package(kai18n) or pkg-config --cflags --libs kai18n.
include(CMakePackageConfigHelpers)

install(TARGETS kai18n EXPORT kai18nTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/kai18n DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")

set(KAI18N_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kai18n)
install(EXPORT kai18nTargets NAMESPACE kai18n:: DESTINATION ${KAI18N_CMAKE_DIR})
configure_package_config_file(cmake/kai18nConfig.cmake.in
        ${PROJECT_BINARY_DIR}/kai18nConfig.cmake
        INSTALL_DESTINATION ${KAI18N_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kai18nConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kai18nConfig.cmake ${PROJECT_BINARY_DIR}/kai18nConfigVersion.cmake
        DESTINATION ${KAI18N_CMAKE_DIR})

file(RELATIVE_PATH KAI18N_PC_TO_PREFIX "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(cmake/kai18n.pc.in ${PROJECT_BINARY_DIR}/kai18n.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kai18n.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
