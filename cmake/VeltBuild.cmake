# What all targets share: warnings, sanitizers, the compiler cache and the linker.

find_program(VELT_CCACHE ccache)
if(VELT_CCACHE)
  # Precompiled headers are cached too, and every clone of the tree shares what another one built.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${VELT_CCACHE})
endif()
find_program(VELT_LLD ld.lld)
if(VELT_LLD)
  add_link_options(-fuse-ld=lld)
endif()

if(VELT_SANITIZE)
  add_compile_options(-fsanitize=${VELT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VELT_SANITIZE})
endif()

# Flags for our own code; imported targets are not touched.
function(velt_own_code target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Werror)
  if(VELT_SANITIZE)
    # The sanitizers' instrumentation makes the compiler see ways that the code does not take.
    target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
      target_compile_options(${target} PRIVATE -Wno-unknown-warning-option)
    endif()
  endif()
endfunction()

# A shared library of ours from all sources below some folders.
function(velt_library target)
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    EXPORT_NAME ${ARGV1})
  target_compile_options(${target} PRIVATE -fno-plt)
  # Calls within the library go straight to their function: quicker, and less to look up at the start.
  target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/Runtime> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  velt_own_code(${target})
endfunction()
