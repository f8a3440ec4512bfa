# Compiler settings shared by every target of the project.

if(ZELVOR_SANITIZE)
  # vptr checks are left out: the Qt and GStreamer libraries are not built
  # with the sanitizer and would report their own casts.
  set(ZELVOR_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize=vptr
                             -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_compile_options(${ZELVOR_SANITIZER_FLAGS})
  add_link_options(${ZELVOR_SANITIZER_FLAGS})
endif()

if(ZELVOR_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

function(zelvor_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
                                           -Wnon-virtual-dtor -Wno-missing-field-initializers)
endfunction()
