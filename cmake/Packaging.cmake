# What another program finds the installed host libraries by: the CMake package ZOR with its targets ZOR::ZORManager,
# ZOR::ZORBridgeLib, ZOR::ZOR, ZOR::ZORI18n and ZOR::ZORStd, and zor.pc for pkg-config. Both find everything from where
# they stand themselves, so that an installed tree may be moved.
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/ZOR")
install(EXPORT ZORTargets NAMESPACE ZOR:: DESTINATION "${package_folder}")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/ZORConfig.cmake.in" "${PROJECT_BINARY_DIR}/ZORConfig.cmake"
    INSTALL_DESTINATION "${package_folder}" NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZORConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ZORConfig.cmake" "${PROJECT_BINARY_DIR}/ZORConfigVersion.cmake"
    DESTINATION "${package_folder}")

set(pkgconfig_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH ZOR_PREFIX_FROM_PKGCONFIG "${CMAKE_INSTALL_PREFIX}/${pkgconfig_folder}" "${CMAKE_INSTALL_PREFIX}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/zor.pc.in" "${PROJECT_BINARY_DIR}/zor.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zor.pc" DESTINATION "${pkgconfig_folder}")
