# Tag readers against TagLib reading the same files. TagLib is a reference
# for this benchmark only and is never linked into the product.
find_package(PkgConfig REQUIRED)
pkg_check_modules(TAGLIB REQUIRED IMPORTED_TARGET taglib)
add_executable(tags_bench tags_bench.cpp tags_bench_corpus.cpp tags_bench_corpus.h)
target_link_libraries(tags_bench PRIVATE zelvor_core benchmark::benchmark PkgConfig::TAGLIB)
target_compile_definitions(tags_bench PRIVATE
  ZELVOR_BENCH_MEDIA_DIR="${CMAKE_CURRENT_BINARY_DIR}/tags_media")
zelvor_warnings(tags_bench)
