# The source folders in layer order, bottom first. A file may include headers
# of its own folder and of folders before it in this list, never of a folder
# after it; zelvor_check_layers() fails the configure when one does, so a
# cycle between folders cannot creep in. tests/, bench/ and fuzz/ stand above
# everything and are not checked.
set(ZELVOR_LAYERS
  res           # numbers and built-in texts of the program
  platform      # the device on the host, without Qt: files, registry, text, messages
  bytes         # bounded reading and writing of outside bytes
  tags          # track records and the tag readers
  config        # settings, storage locations, localised texts
  library       # the library file, its scan and its sorted lists
  playlists     # playlist files, matching and the operations on them
  playback      # engine, queue, position, volume
  ui/rules      # the screens' rules without a toolkit
  host          # Qt and GStreamer services: graph, endpoints, sounds, power
  ui/widgets    # the Qt widgets
  desktop       # what a Linux desktop adds: D-Bus control, cards, bundles
  app           # program start
  tools         # the command-line programs and generators
)

# The layer index of a path relative to the source root, -1 outside the list
# (the longest matching folder wins, so ui/rules is not taken for ui).
function(zelvor_layer_of path out)
  set(best -1)
  set(bestLength 0)
  set(index 0)
  foreach(layer IN LISTS ZELVOR_LAYERS)
    string(LENGTH "${layer}" length)
    string(FIND "${path}" "${layer}/" at)
    if(at EQUAL 0 AND length GREATER bestLength)
      set(best ${index})
      set(bestLength ${length})
    endif()
    math(EXPR index "${index} + 1")
  endforeach()
  set(${out} ${best} PARENT_SCOPE)
endfunction()

function(zelvor_check_layers)
  set(violations "")
  foreach(layer IN LISTS ZELVOR_LAYERS)
    file(GLOB_RECURSE files RELATIVE ${PROJECT_SOURCE_DIR}
         ${PROJECT_SOURCE_DIR}/${layer}/*.h ${PROJECT_SOURCE_DIR}/${layer}/*.cpp)
    foreach(file IN LISTS files)
      zelvor_layer_of("${file}" own)
      file(STRINGS "${PROJECT_SOURCE_DIR}/${file}" includes
           REGEX "^[ \t]*#[ \t]*include[ \t]*\"[a-z_]+/")
      foreach(line IN LISTS includes)
        string(REGEX REPLACE "^[^\"]*\"([^\"]+)\".*$" "\\1" header "${line}")
        zelvor_layer_of("${header}" theirs)
        if(theirs GREATER own)
          string(APPEND violations "\n  ${file} includes ${header}")
        endif()
      endforeach()
    endforeach()
  endforeach()
  if(violations)
    message(FATAL_ERROR "A folder includes one above it in the layer order "
                        "(cmake/ZelvorLayers.cmake):${violations}")
  endif()
endfunction()
