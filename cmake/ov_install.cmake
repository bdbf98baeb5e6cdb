# What `cmake --install` puts where, and how other projects find it. Included last, when every
# target is known.
if(NOT OV_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OVAddressBookSDK)
set(generated_dir ${CMAKE_CURRENT_BINARY_DIR}/package)

# ov_install_library(SET TARGET [COMPONENT]): installs a library, for developers with the component
# Development unless another is named. Each has an export set of its own, so that a
# project that uses one library needs the dependencies of that one only.
function(ov_install_library set target)
  set(development Development)
  if(ARGC GREATER 2)
    set(development ${ARGV2})
  endif()
  install(TARGETS ${target} EXPORT OVAddressBookSDK${set}
          LIBRARY COMPONENT Runtime NAMELINK_COMPONENT ${development}
          ARCHIVE COMPONENT ${development})
  install(EXPORT OVAddressBookSDK${set} NAMESPACE OVAddressBookSDK:: DESTINATION ${package_dir}
          COMPONENT ${development})
endfunction()

ov_install_library(Shared OVAddressBookSDK)
ov_install_library(Static OVAddressBookSDK_static)
install(DIRECTORY include/OVAddressBookSDK DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT Development FILES_MATCHING PATTERN "*.h")
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Runtime)

if(OV_BUILD_VCARD)
  ov_install_library(VCard OVAddressBookVCard)
  ov_install_library(VCardStatic OVAddressBookVCard_static)
  install(DIRECTORY hosts/vcard/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          COMPONENT Development FILES_MATCHING PATTERN "*.h")
endif()
if(OV_BUILD_QT)
  ov_install_library(Qt OVAddressBookQt)
  ov_install_library(QtStatic OVAddressBookQt_static)
  install(DIRECTORY hosts/qt/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          COMPONENT Development FILES_MATCHING PATTERN "*.h")
endif()
if(OV_BUILD_EDS)
  ov_install_library(EDS OVAddressBookEDS EDSDevelopment)
  ov_install_library(EDSStatic OVAddressBookEDS_static EDSDevelopment)
  install(DIRECTORY hosts/eds/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          COMPONENT EDSDevelopment FILES_MATCHING PATTERN "*.h")
endif()
if(OV_BUILD_EDS AND OV_BUILD_TOOLS)
  install(TARGETS ovbook-live RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/ovbook
          COMPONENT LiveTools)
endif()
if(TARGET ovcontacts)
  install(TARGETS ovcontacts RUNTIME COMPONENT Contacts)
  install(FILES tools/ovcontacts/ovcontacts.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT Contacts)
  install(FILES tools/ovcontacts/ovcontacts.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT Contacts)
  install(FILES tools/ovcontacts/ovcontacts.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT Contacts)
  install(FILES man/ovcontacts.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Contacts)
endif()
if(OV_BUILD_TOOLS)
  install(TARGETS ovbook RUNTIME COMPONENT Tools)
  install(FILES man/ovbook.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Tools)
  install(FILES completions/ovbook.bash RENAME ovbook
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT Tools)
  install(FILES completions/_ovbook DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
          COMPONENT Tools)
endif()

configure_package_config_file(
  cmake/OVAddressBookSDKConfig.cmake.in ${generated_dir}/OVAddressBookSDKConfig.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${generated_dir}/OVAddressBookSDKConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${generated_dir}/OVAddressBookSDKConfig.cmake
              ${generated_dir}/OVAddressBookSDKConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT Development)

# Relative to the file itself, so that the prefix can be chosen at install time.
set(pkgconfig_dir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH pkgconfig_prefix ${pkgconfig_dir} ${CMAKE_INSTALL_PREFIX})
set(pkgconfig_names OVAddressBookSDK)
if(OV_BUILD_QT)
  list(APPEND pkgconfig_names OVAddressBookQt)
endif()
foreach(name ${pkgconfig_names})
  configure_file(cmake/${name}.pc.in ${generated_dir}/${name}.pc @ONLY)
  install(FILES ${generated_dir}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
          COMPONENT Development)
endforeach()
if(OV_BUILD_EDS)
  configure_file(cmake/OVAddressBookEDS.pc.in ${generated_dir}/OVAddressBookEDS.pc @ONLY)
  install(FILES ${generated_dir}/OVAddressBookEDS.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
          COMPONENT EDSDevelopment)
endif()
