# zelvor_core must stay free of Qt and GStreamer so that every rule in it can
# be tested with fakes. Two checks enforce it when the project is configured:
# the libraries the target links, and the includes of every source it compiles.

function(zelvor_check_core_purity target)
  get_target_property(libs ${target} LINK_LIBRARIES)
  foreach(lib IN LISTS libs)
    if(lib MATCHES "Qt|gst|GST|glib")
      message(FATAL_ERROR "${target} must not link ${lib}: the core is Qt- and GStreamer-free")
    endif()
  endforeach()

  get_target_property(sources ${target} SOURCES)
  get_target_property(source_dir ${target} SOURCE_DIR)
  foreach(src IN LISTS sources)
    if(NOT IS_ABSOLUTE "${src}")
      set(src "${source_dir}/${src}")
    endif()
    if(NOT EXISTS "${src}")
      continue()
    endif()
    file(STRINGS "${src}" bad REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"](Q[A-Za-z]+|gst/|glib)")
    if(bad)
      message(FATAL_ERROR "${src} includes Qt or GStreamer (${bad}) but is compiled into ${target}")
    endif()
  endforeach()
endfunction()
