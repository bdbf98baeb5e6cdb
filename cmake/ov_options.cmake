# Compiles a file again only when it has changed, where ccache is there.
find_program(OV_CCACHE ccache)
if(OV_CCACHE AND PROJECT_IS_TOP_LEVEL AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${OV_CCACHE})
endif()

# Compiler settings that every target of this project shares.
add_library(ov_options INTERFACE)
target_compile_features(ov_options INTERFACE cxx_std_20)
target_compile_options(
  ov_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
                       $<$<BOOL:${OV_WARNINGS_AS_ERRORS}>:-Werror>)
# Files that are compiled together see each other's names.
target_compile_options(
  ov_options INTERFACE $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>)
# g++ takes what a file of such a bundle keeps to itself for a header's.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(
    ov_options INTERFACE $<$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>:-Wno-subobject-linkage>)
endif()
# g++ 12 sees overlapping copies inside std::string where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(ov_options INTERFACE -Wno-restrict)
endif()
if(OV_SANITIZE)
  target_compile_options(ov_options INTERFACE -fsanitize=${OV_SANITIZE} -fno-omit-frame-pointer
                                              -fno-sanitize-recover=all)
  target_link_options(ov_options INTERFACE -fsanitize=${OV_SANITIZE})
endif()
# Lets the fuzzers see which branches an input takes.
if(OV_BUILD_FUZZERS)
  target_compile_options(ov_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(ov_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Has what is below compiled by OV_TEST_COMPILER: clang takes half of g++'s time for code that is not
# optimised, and links with what g++ has compiled.
macro(ov_use_test_compiler)
  if(OV_TEST_COMPILER)
    set(CMAKE_CXX_COMPILER ${OV_TEST_COMPILER})
    set(CMAKE_PCH_EXTENSION .pch)
    set(CMAKE_CXX_COMPILE_OPTIONS_CREATE_PCH
        -Xclang -emit-pch -Xclang -include -Xclang <PCH_HEADER> -x c++-header)
    set(CMAKE_CXX_COMPILE_OPTIONS_USE_PCH
        -Xclang -include-pch -Xclang <PCH_FILE> -Xclang -include -Xclang <PCH_HEADER>)
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Wno-unknown-warning-option -Xclang -fno-pch-timestamp>")
  endif()
endmacro()
