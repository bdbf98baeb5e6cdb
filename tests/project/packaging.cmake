# The library as other projects meet it: installed below a prefix of its own, or as a subfolder.
set(prefix ${CMAKE_CURRENT_BINARY_DIR}/prefix)

add_test(NAME project.install
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/install.sh ${PROJECT_BINARY_DIR} ${prefix})
set_tests_properties(project.install PROPERTIES FIXTURES_SETUP installed TIMEOUT 120)

# ov_consumer_test(NAME LINKAGE [options for its cmake ...])
function(ov_consumer_test name linkage)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/consumer_${name})
  add_test(
    NAME project.consumer.${name}
    COMMAND
      ${CMAKE_CTEST_COMMAND} --build-and-test ${CMAKE_CURRENT_SOURCE_DIR}/consumer ${folder}
      --build-generator ${CMAKE_GENERATOR} --build-target consumer
      --build-options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}
                      "-DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}"
                      -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} ${ARGN}
      --test-command ${CMAKE_CURRENT_SOURCE_DIR}/run_consumer.sh ${folder}/consumer ${linkage}
                     ${PROJECT_VERSION})
  set_tests_properties(project.consumer.${name} PROPERTIES TIMEOUT 600)
endfunction()

ov_consumer_test(find_package_shared shared -DOV_PROGRAM=main -DOV_LIBRARY=OVAddressBookSDK
                 -DCMAKE_PREFIX_PATH=${prefix})
ov_consumer_test(find_package_static static -DOV_PROGRAM=main -DOV_COMPONENTS=Static
                 -DOV_LIBRARY=OVAddressBookSDK_static -DCMAKE_PREFIX_PATH=${prefix})
if(OV_BUILD_VCARD)
  ov_consumer_test(vcard_shared shared -DOV_PROGRAM=vcard -DOV_COMPONENTS=VCard
                   -DOV_LIBRARY=OVAddressBookVCard -DCMAKE_PREFIX_PATH=${prefix})
  ov_consumer_test(vcard_static static -DOV_PROGRAM=vcard "-DOV_COMPONENTS=Static$<SEMICOLON>VCard"
                   -DOV_LIBRARY=OVAddressBookVCard_static -DCMAKE_PREFIX_PATH=${prefix})
  set_tests_properties(project.consumer.vcard_shared project.consumer.vcard_static
                       PROPERTIES FIXTURES_REQUIRED installed)
endif()
add_test(NAME project.consumer.pkg_config
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/pkg_config_consumer.sh ${prefix}
                 ${CMAKE_CURRENT_BINARY_DIR}/consumer_pkg_config ${PROJECT_VERSION})
set_tests_properties(project.consumer.pkg_config PROPERTIES ENVIRONMENT CXX=${CMAKE_CXX_COMPILER})
set_tests_properties(
  project.consumer.find_package_shared project.consumer.find_package_static
  project.consumer.pkg_config PROPERTIES FIXTURES_REQUIRED installed)

# With the warnings of the main build, so that the compiler cache knows the files already.
ov_consumer_test(add_subdirectory shared -DOV_PROGRAM=main -DOV_LIBRARY=OVAddressBookSDK
                 -DOV_SOURCE_DIR=${PROJECT_SOURCE_DIR}
                 -DOV_WARNINGS_AS_ERRORS=${OV_WARNINGS_AS_ERRORS})
