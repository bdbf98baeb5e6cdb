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
                      -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}
                      -DCMAKE_UNITY_BUILD=ON
                      -DCMAKE_UNITY_BUILD_BATCH_SIZE=${CMAKE_UNITY_BUILD_BATCH_SIZE}
                      "-DCMAKE_CXX_FLAGS_RELEASE=${CMAKE_CXX_FLAGS_RELEASE}" ${ARGN}
      --test-command ${CMAKE_CURRENT_SOURCE_DIR}/run_consumer.sh ${folder}/consumer ${linkage}
                     ${PROJECT_VERSION})
  set_tests_properties(project.consumer.${name} PROPERTIES TIMEOUT 600)
endfunction()

# Each compiler and each standard that a host may have, in each of these ways.
foreach(host shared:g++:20 shared:clang++-14:23 static:g++:23 static:clang++-14:20)
  string(REPLACE ":" ";" parts ${host})
  list(GET parts 0 linkage)
  list(GET parts 1 compiler)
  list(GET parts 2 standard)
  set(name find_package_${linkage}.${compiler}.${standard})
  set(library -DOV_LIBRARY=OVAddressBookSDK)
  if(linkage STREQUAL static)
    set(library -DOV_COMPONENTS=Static -DOV_LIBRARY=OVAddressBookSDK_static)
  endif()
  ov_consumer_test(${name} ${linkage} -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${compiler}
                   -DCMAKE_CXX_STANDARD=${standard} -DOV_PROGRAM=main ${library})
  set_tests_properties(project.consumer.${name} PROPERTIES FIXTURES_REQUIRED installed)
endforeach()
foreach(host g++:20 clang++-14:23)
  string(REPLACE ":" ";" parts ${host})
  list(GET parts 0 compiler)
  list(GET parts 1 standard)
  set(name pkg_config.${compiler}.${standard})
  add_test(NAME project.consumer.${name}
           COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/pkg_config_consumer.sh ${prefix}
                   ${CMAKE_CURRENT_BINARY_DIR}/consumer_${name} ${PROJECT_VERSION})
  set_tests_properties(project.consumer.${name} PROPERTIES ENVIRONMENT "CXX=${compiler};STANDARD=${standard}"
                                                           FIXTURES_REQUIRED installed)
endforeach()

# The installed static library brings every class along, in a program that names none.
set(folder ${CMAKE_CURRENT_BINARY_DIR}/consumer_static_classes)
add_test(
  NAME project.consumer.static_classes
  COMMAND
    ${CMAKE_CTEST_COMMAND} --build-and-test ${CMAKE_CURRENT_SOURCE_DIR}/consumer ${folder}
    --build-generator ${CMAKE_GENERATOR} --build-target consumer
    --build-options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER} -DCMAKE_PREFIX_PATH=${prefix}
                    -DOV_PROGRAM=classes -DOV_COMPONENTS=Static -DOV_LIBRARY=OVAddressBookSDK_static
    --test-command ${CMAKE_CURRENT_SOURCE_DIR}/registered_classes.sh ${folder}/consumer
                   ${PROJECT_SOURCE_DIR}/tests/golden/1.0
                   ${PROJECT_SOURCE_DIR}/src/book/library_classes.cpp)
set_tests_properties(project.consumer.static_classes PROPERTIES FIXTURES_REQUIRED installed TIMEOUT 600)
if(OV_BUILD_VCARD)
  ov_consumer_test(vcard_shared shared -DOV_PROGRAM=vcard -DOV_COMPONENTS=VCard
                   -DOV_LIBRARY=OVAddressBookVCard -DCMAKE_PREFIX_PATH=${prefix})
  ov_consumer_test(vcard_static static -DOV_PROGRAM=vcard "-DOV_COMPONENTS=Static$<SEMICOLON>VCard"
                   -DOV_LIBRARY=OVAddressBookVCard_static -DCMAKE_PREFIX_PATH=${prefix})
  set_tests_properties(project.consumer.vcard_shared project.consumer.vcard_static
                       PROPERTIES FIXTURES_REQUIRED installed)
endif()
if(OV_BUILD_EDS)
  ov_consumer_test(eds_shared shared -DOV_PROGRAM=eds -DOV_COMPONENTS=EDS
                   -DOV_LIBRARY=OVAddressBookEDS -DCMAKE_PREFIX_PATH=${prefix})
  ov_consumer_test(eds_static static -DOV_PROGRAM=eds "-DOV_COMPONENTS=Static$<SEMICOLON>EDS"
                   -DOV_LIBRARY=OVAddressBookEDS_static -DCMAKE_PREFIX_PATH=${prefix})
  add_test(NAME project.consumer.eds_pkg_config
           COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/pkg_config_consumer.sh ${prefix}
                   ${CMAKE_CURRENT_BINARY_DIR}/consumer_eds_pkg_config ${PROJECT_VERSION}
                   OVAddressBookEDS eds)
  set_tests_properties(project.consumer.eds_pkg_config
                       PROPERTIES ENVIRONMENT "CXX=${CMAKE_CXX_COMPILER};STANDARD=20" TIMEOUT 600)
  set_tests_properties(project.consumer.eds_shared project.consumer.eds_static
                       project.consumer.eds_pkg_config PROPERTIES FIXTURES_REQUIRED installed)
endif()
if(OV_BUILD_QT)
  ov_consumer_test(qt_shared shared -DOV_PROGRAM=qt -DOV_COMPONENTS=Qt -DOV_LIBRARY=OVAddressBookQt
                   -DCMAKE_PREFIX_PATH=${prefix})
  ov_consumer_test(qt_static static -DOV_PROGRAM=qt "-DOV_COMPONENTS=Static$<SEMICOLON>Qt"
                   -DOV_LIBRARY=OVAddressBookQt_static -DCMAKE_PREFIX_PATH=${prefix})
  set_tests_properties(project.consumer.qt_shared project.consumer.qt_static
                       PROPERTIES FIXTURES_REQUIRED installed)
endif()
# Built with what the comparison of binary interfaces reads.
ov_consumer_test(add_subdirectory shared -DOV_PROGRAM=main -DOV_LIBRARY=OVAddressBookSDK
                 -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_BUILD_TYPE=Debug
                 -DCMAKE_CXX_FLAGS=-fstandalone-debug -DCMAKE_UNITY_BUILD=ON
                 -DCMAKE_UNITY_BUILD_BATCH_SIZE=60
                 -DOV_SOURCE_DIR=${PROJECT_SOURCE_DIR}
                 -DOV_WARNINGS_AS_ERRORS=${OV_WARNINGS_AS_ERRORS})
# It takes longest, so that it begins first.
set_tests_properties(project.consumer.add_subdirectory PROPERTIES FIXTURES_SETUP subfolder COST 100)
add_test(
  NAME project.abi
  COMMAND
    ${CMAKE_CURRENT_SOURCE_DIR}/abi.sh
    ${CMAKE_CURRENT_BINARY_DIR}/consumer_add_subdirectory/OVAddressBookSDK/src/libOVAddressBookSDK.so)
set_tests_properties(project.abi PROPERTIES FIXTURES_REQUIRED subfolder TIMEOUT 120)
# Each of these builds the whole library, so they are only made when they are asked for.
if(OV_TEST_EVERY_CONSUMER)
  foreach(compiler g++ clang++-14)
    foreach(standard 20 23)
      foreach(linkage shared static)
        set(suffix $<$<STREQUAL:${linkage},static>:_static>)
        ov_consumer_test(
          add_subdirectory_${linkage}.${compiler}.${standard} ${linkage} -DOV_PROGRAM=main
          -DOV_LIBRARY=OVAddressBookSDK${suffix} -DOV_SOURCE_DIR=${PROJECT_SOURCE_DIR}
          -DOV_WARNINGS_AS_ERRORS=ON -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_UNITY_BUILD=OFF
          -DCMAKE_CXX_STANDARD=${standard})
      endforeach()
    endforeach()
  endforeach()
endif()

if(OV_BUILD_EXAMPLES AND OV_BUILD_EDS)
  ov_script_test(task_pages ${CMAKE_CURRENT_SOURCE_DIR}/task_pages_test.py)
  set_tests_properties(
    project.task_pages
    PROPERTIES ENVIRONMENT "OV_BUILD_DIR=${PROJECT_BINARY_DIR};OV_PREFIX=${prefix};OV_ON_A_DESKTOP=$<TARGET_FILE:on_a_desktop>"
               FIXTURES_REQUIRED installed TIMEOUT 300 COST 100)
endif()
